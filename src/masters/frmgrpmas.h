// The group master: the account groups of all clients and years, each under its primary group.
// Groups are added, renamed, moved, deleted while nothing uses them, and merged; predefined ones
// are protected. On a page of its own groups are mapped to the heads of statutory statements.
// Modal; the opener reads what came of it when it has closed.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "books/group_master.h"
#include "controls/basic_controls.h"
#include "controls/choice.h"
#include "controls/control_array.h"
#include "masters/group_columns.h"
#include "masters/mapped_groups.h"
#include "masters/master_form.h"

namespace quillet {

class frmgrpmas : public MasterForm {
 public:
  explicit frmgrpmas(Context& context);

  // Whose own mapping may be edited; without it that of the client at work, "" for none.
  void INITDATA(const std::string& client);

  // Whether groups may have been written since the form was shown, and whether lines may stand
  // under those that were: a group that was only added has no lines.
  bool groupsChanged() const { return groupsChanged_; }
  bool linesTouched() const { return linesTouched_; }
  // The name of the group added last, "" when there is none or it has gone since.
  std::string newGroup() const;

  LayoutItem layout() override;

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
  Button cmdMap{*this, "cmdMap", "Ma&pping"};
  Button cmdShow{*this, "cmdShow", "Co&lumns"};
  Button cmdback{*this, "cmdback", "Bac&k"};

  // --- the merge page
  Frame famMerge{*this, "famMerge"};
  Label lblmerge{*this, "lblmerge", "Groups to merge"};
  Grid vsM{*this, "vsM"};
  Label lblmergewith{*this, "lblmergewith", "Merge with"};
  Grid vsMW{*this, "vsMW"};
  Button cmdMergeGroup{*this, "cmdMergeGroup", "&Merge"};
  Button cmdMergeBack{*this, "cmdMergeBack", "&Back"};

  // --- the mapping page
  Frame famMap{*this, "famMap"};
  ControlArray<OptionButton> optMap{
      *this, "optMap", {"C&ommon to all clients", "The client's o&wn"}};
  Label lblMapClient{*this, "lblMapClient"};
  ComboBox cboMapShow{*this, "cboMapShow"};
  Label lblMapCount{*this, "lblMapCount"};
  Grid vsMap{*this, "vsMap"};
  ComboBox cboSVI{*this, "cboSVI"};
  ComboBox cboIT{*this, "cboIT"};
  Button cmdMapSet{*this, "cmdMapSet", "&Map"};
  Button cmdMapTick{*this, "cmdMapTick", "&Tick All"};
  Button cmdMapClear{*this, "cmdMapClear", "C&lear"};
  Button cmdMapCopy{*this, "cmdMapCopy", "&Copy Common to Client"};
  Button cmdMapBack{*this, "cmdMapBack", "&Back"};

  // --- the column page
  Frame famCols{*this, "famCols"};
  Label lblCols{*this, "lblCols", "Columns of the group master"};
  Grid vsCols{*this, "vsCols"};
  Button cmdShowBack{*this, "cmdShowBack", "&Back"};

  void FORM_LOAD();
  void FORM_KEYPRESS(Key& key);
  // False when the primary groups could not be read.
  bool LOADGROUPS();
  // Every group, or the row of one group anew.
  void LOADGRID(long groupId);
  void LOADDATA();
  void CLEARDATA();
  void SETBUTTON(bool edit);
  // Whether a table of any year or a mapping uses the group; nothing when that could not be found
  // out.
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
  void CMDMAP_CLICK();
  // What is stored and the heads there are, anew.
  void LOADMAPGRID();
  void OPTMAP_CLICK(bool own);
  // Gives the ticked groups, else the current one, the chosen heads.
  void CMDMAPSET_CLICK();
  void CMDMAPTICK_CLICK();
  void CMDMAPCLEAR_CLICK();
  // The common mapping of the ticked groups, else of all, becomes the client's own.
  void CMDMAPCOPY_CLICK();
  void CMDMAPBACK_CLICK();
  void LOADSETUP();
  void CMDSHOW_CLICK();
  void VSCOLS_AFTEREDIT(int row);
  void CMDSHOWBACK_CLICK();

  void booksMoved(bool masters) override;
  void takenBack() override;

 protected:
  void load() override { FORM_LOAD(); }
  void reread() override;
  bool entryBegun() const override { return editing_; }
  bool modifying() const override { return editing_ && !adding_; }
  std::vector<std::string> atStake() const override;
  void showEntry() override { LOADDATA(); }

 private:
  // The merge page's grids have no column for the user.
  enum Column { nameColumn, underColumn, userColumn };

  void setColumns();
  void attachMappingPage();
  LayoutItem mappingPage();
  ListedRow listed(const AccountGroup& group);
  bool primaryGroupsThere();
  bool predefined() const;
  // What was entered, for the group that is being modified or for a new one.
  AccountGroup entered() const;
  bool nameHolds(const AccountGroup& group);
  void insertGroup(AccountGroup& group);
  // Before the first statement: whatever fails on the way, something may have been written.
  void noteChange() { groupsChanged_ = linesTouched_ = true; }
  void showPage(Frame& page);
  // What a person chose to merge.
  struct Merge {
    std::vector<long> ids;
    long target = 0;  // 0 for none
  };
  Merge chosenMerge() const;
  bool mergeHolds(const Merge& merge);
  bool confirmed(const Merge& merge);
  bool carriersAgree(const Merge& merge);
  void carryOut(const Merge& merge);

  // The groups that a command of the mapping page is for; tells when there are none.
  std::vector<long> groupsToMap();
  bool leaveCopied(std::vector<long>& groups);

  GroupMaster master_{*context_.host};
  MappedGroups mapped_{vsMap, cboSVI, cboIT, cboMapShow};
  GroupColumns columns_{vsf, vsCols};
  StatutoryHeads* heads_ = context_.environment.statutoryHeads();
  std::optional<std::string> givenClient_;
  GroupMapper mapper_{*context_.host};
  StatutoryHeadList headList_;
  bool choiceMade_ = false;             // common or own, on the mapping page
  unsigned long choiceAct_ = 0;         // that stored it
  GroupMappings shownMappings_;         // of the column of the master, while it has them
  std::map<long, long> primaryGroups_;  // of the groups that were listed, by their ids
  bool primaryGroupsRead_ = false;
  bool adding_ = false;
  bool editing_ = false;
  bool groupsChanged_ = false;
  bool linesTouched_ = false;
  long newGroupId_ = 0;
};

}  // namespace quillet
