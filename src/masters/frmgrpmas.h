// The group master: the account groups of all clients and years, each under its primary group.
// Groups are added, renamed, moved, deleted while nothing uses them, and merged; predefined ones
// are protected. Modal; the opener reads what came of it when it has closed.
#pragma once

#include <optional>
#include <string>

#include "controls/choice.h"
#include "controls/simple.h"
#include "masters/master_form.h"

namespace quillet {

class frmgrpmas : public MasterForm {
 public:
  explicit frmgrpmas(Context& context);

  // Whether groups may have been written since the form was shown, and whether lines may stand
  // under those that were: a group that was only added has no lines.
  bool groupsChanged() const { return groupsChanged_; }
  bool linesTouched() const { return linesTouched_; }
  // The name of the group added last, "" when there is none or it has gone since.
  std::string newGroup() const;

  Node layout() override;

  // --- the groups
  Frame famMain{*this, "famMain"};
  Grid vsf{*this, "vsf"};
  TextBox Text1{*this, "Text1"};
  ComboBox Combo1{*this, "Combo1"};
  Label lblhint{*this, "lblhint"};
  Button cmdupdate{*this, "cmdupdate", "&Update"};
  Button cmdcancel{*this, "cmdcancel", "&Cancel"};
  Button cmdadd{*this, "cmdadd", "&Add Group"};
  Button cmdmodify{*this, "cmdmodify", "&Modify Group"};
  Button cmddelete{*this, "cmddelete", "&Delete Group"};
  Button cmdMerge{*this, "cmdMerge", "Mer&ge Groups"};
  Button cmdback{*this, "cmdback", "Bac&k"};

  // --- the merge page
  Frame famMerge{*this, "famMerge"};
  Label lblmerge{*this, "lblmerge", "Groups to merge"};
  Grid vsM{*this, "vsM"};
  Label lblmergewith{*this, "lblmergewith", "Merge with"};
  Grid vsMW{*this, "vsMW"};
  Button cmdMergeGroup{*this, "cmdMergeGroup", "&Merge"};
  Button cmdMergeBack{*this, "cmdMergeBack", "&Back"};

  void FORM_LOAD();
  void FORM_KEYPRESS(Key& key);
  void LOADGROUPS();
  // Every group, or the row of one group anew.
  void LOADGRID(long groupId);
  void LOADDATA();
  void CLEARDATA();
  void SETBUTTON(bool edit);
  // Whether a table of any year uses the group; nothing when that could not be found out.
  std::optional<bool> CHECKEXISTS(long groupId);
  void CMDADD_CLICK();
  void CMDMODIFY_CLICK();
  void CMDUPDATE_CLICK();
  void CMDDELETE_CLICK();
  void CMDCANCEL_CLICK();
  void CMDBACK_CLICK();
  void cmdMerge_Click();
  void LoadMergeGrid();
  void cmdMergeGroup_Click();
  void cmdMergeBack_Click();

 protected:
  void load() override { FORM_LOAD(); }

 private:
  enum Column { idColumn, nameColumn, underColumn, userColumn, underIdColumn, tickColumn };

  void setColumns();
  std::vector<std::string> cellsOf(const Recordset& group) const;
  bool predefined() const;
  long selectedId() const;
  bool nameHolds(const std::string& name);
  long insertGroup(const std::string& name);
  void updateGroup(long id, const std::string& name);
  // Before the first statement: whatever fails on the way, something may have been written.
  void noteChange() { groupsChanged_ = linesTouched_ = true; }
  void showPage(Frame& page);
  // The ids of the ticked groups; nothing when the group to merge with is among them.
  std::optional<IdList> tickedGroups(const std::string& target) const;
  void mergeInto(long target, const IdList& ids);

  bool adding_ = false;
  bool editing_ = false;
  bool groupsChanged_ = false;
  bool linesTouched_ = false;
  long newGroupId_ = 0;
};

}  // namespace quillet
