// The raw-material binding of one client's year, for manufacturing accounts: which account groups
// hold the opening stock, the purchases and the closing stock of each raw-material head. A second
// page keeps the heads, which all clients share.
//
// The opener hands the year over with INITDATA before it shows the form. The items of the
// binding (suffix M), their order and import, and the heads (suffix G) have a source file each.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "controls/choice.h"
#include "controls/control_array.h"
#include "controls/simple.h"
#include "masters/master_form.h"

namespace quillet {

struct BoundYear {
  std::string client;
  std::string clientName;
  std::string table;      // the trial balance's
  std::string firstDate;  // keys, "01042008"
  std::string secondDate;
};

class frmgrpRM : public MasterForm {
 public:
  explicit frmgrpRM(Context& context);

  void INITDATA(const BoundYear& year);

  Node layout() override;

  // --- the binding
  Frame famM{*this, "famM"};
  Grid vsfM{*this, "vsfM"};
  Label lblhead{*this, "lblhead", "Raw Material Group Type"};
  ComboBox cbohead{*this, "cbohead"};
  ControlArray<Label> lblgrp{*this, "lblgrp", {"Opening Stock", "Purchases", "Closing Stock"}};
  ControlArray<ComboBox> cbogroup{*this, "cbogroup", {"", "", ""}};
  Button cmdupdateM{*this, "cmdupdateM", "&Update"};
  Button cmdcancelM{*this, "cmdcancelM", "&Cancel"};
  Button cmdaddM{*this, "cmdaddM", "&Add Item"};
  Button cmdmodifyM{*this, "cmdmodifyM", "&Modify Item"};
  Button cmddeleteM{*this, "cmddeleteM", "&Delete Item"};
  Button cmdsortorder{*this, "cmdsortorder", "&Sorting Order"};
  Button cmdup{*this, "cmdup", "Move U&p"};
  Button cmddown{*this, "cmddown", "Move Do&wn"};
  Button cmdgrpM{*this, "cmdgrpM", "&Group Heads..."};
  Button cmdbackM{*this, "cmdbackM", "Bac&k"};

  // --- the heads
  Frame famG{*this, "famG"};
  Grid vsfG{*this, "vsfG"};
  TextBox txthead{*this, "txthead"};
  ComboBox cbotype{*this, "cbotype"};
  Label lblhint{*this, "lblhint"};
  Button cmdupdateG{*this, "cmdupdateG", "&Update"};
  Button cmdcancelG{*this, "cmdcancelG", "&Cancel"};
  Button cmdaddG{*this, "cmdaddG", "&Add Head"};
  Button cmdmodifyG{*this, "cmdmodifyG", "&Modify Head"};
  Button cmddeleteG{*this, "cmddeleteG", "&Delete Head"};
  Button cmdbackG{*this, "cmdbackG", "Bac&k"};

  void FORM_LOAD();
  void FORM_KEYPRESS(Key& key);
  // Asks in any case.
  void FORM_UNLOAD(bool& cancel);
  // False when the lists to choose from could not be read: they are empty then.
  bool LOADLIST();

  // False when the binding could not be read. All items, or the row of one anew.
  bool LOADGRIDM(long srNo);
  void LOADDATAM();
  void CLEARDATAM();
  void SETBUTTONSM();
  void CMDADDM_CLICK();
  void CMDMODIFYM_CLICK();
  void CMDDELETEM_CLICK();
  void CMDCANCELM_CLICK();
  void CMDUPDATEM_CLICK();
  void CMDSORTORDER_CLICK();
  void CMDUP_CLICK();
  void CMDDOWN_CLICK();
  void UPDATESORTNOS();
  void IMPORTFROMPREVYR();
  void CMDGRPM_CLICK();
  void CMDBACKM_CLICK();

  // All heads, or the row of one anew.
  void LOADGRIDG(long grpId);
  void LOADDATAG();
  void CLEARDATAG();
  void SETBUTTONG();
  // Whether any year binds the head; nothing when that could not be found out.
  std::optional<bool> CHECKEXISTS(long grpId);
  void CMDADDG_CLICK();
  void CMDMODIFYG_CLICK();
  void CMDDELETEG_CLICK();
  void CMDCANCELG_CLICK();
  void CMDUPDATEG_CLICK();
  void CMDBACKG_CLICK();

 protected:
  void load() override { FORM_LOAD(); }
  void unload(bool& cancel) override { FORM_UNLOAD(cancel); }
  void reread() override;
  bool entryBegun() const override { return state_ != State::browsing; }

 private:
  // The three account groups of an item, in the order of cbogroup: how many, where the binding
  // keeps them, and the primary group that each belongs to.
  static constexpr int columns = 3;
  static constexpr const char* groupFields[columns] = {"OsGrpId", "PurGrpId", "CsGrpId"};
  static constexpr int primaryGroups[columns] = {18, 19, 7};
  // The binding's grid: ids of the account groups from osColumn on, their names from osName on.
  enum Item { srNoColumn, grpSrColumn, osColumn, orderColumn = 5, headName = 6, osName = 7 };
  enum class State { browsing, adding, modifying, sorting };
  bool editing() const { return state_ == State::adding || state_ == State::modifying; }

  void attachBinding();
  void attachHeads();
  void showPage(Frame& page);
  bool itemSelected(Grid& grid) { return rowSelected(grid, "Please Select an Item."); }
  static long idAt(const Grid& grid, int row, int column);

  // Lists.
  void loadHeads();
  void seedHeads();
  void loadGroups();
  std::array<IdList, columns> groupsInUse();
  std::array<std::vector<long>, columns> boundGroups();
  void addIds(IdList& list, const Sql& sql);

  // Binding.
  // Those that could not be read are asked for once more: an item must not lose what they do not
  // list.
  bool listsThere();
  void setStateM(State state);
  std::vector<std::string> cellsOf(const Recordset& item) const;
  bool choicesHold();
  bool groupsFree();
  long insertItem();
  void updateItem(long srNo);
  void moveRow(int step);
  Sql ofClient() const { return " Where Code_No='" + client_ + "'"; }
  std::string previousTable();
  void copySetup();

  // Heads.
  void setStateG(State state);
  std::vector<std::string> headCells(const Recordset& head) const;
  bool headHolds(const std::string& head);

  BoundYear year_;
  Sql client_;  // code_no as it stands between quotes
  Sql table_;   // the year's RMGRP_ table
  State state_ = State::browsing;
  bool listsRead_ = false;
};

}  // namespace quillet
