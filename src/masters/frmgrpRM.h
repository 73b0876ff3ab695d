// The raw-material binding of one client's year, for manufacturing accounts: which account groups
// hold the opening stock, the purchases and the closing stock of each raw-material head. A second
// page keeps the heads, which all clients share.
//
// The opener hands the year over with INITDATA before it shows the form. The items of the
// binding (suffix M), their order and import, and the heads (suffix G) have a source file each.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "books/raw_material_binding.h"
#include "books/raw_material_heads.h"
#include "controls/basic_controls.h"
#include "controls/choice.h"
#include "controls/control_array.h"
#include "host/lock_note.h"
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

  LayoutItem layout() override;

  Label lbllock{*this, "lbllock"};  // why the year takes no changes
  LockNote lock{lbllock, context_};

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

  void takenBack() override;
  void booksMoved(bool masters) override;

 protected:
  void load() override { FORM_LOAD(); }
  void unload(bool& cancel) override { FORM_UNLOAD(cancel); }
  void reread() override;
  bool entryBegun() const override { return state_ != State::browsing; }
  bool modifying() const override { return state_ == State::modifying; }
  std::vector<std::string> atStake() const override;
  void showEntry() override { famG.visible() ? LOADDATAG() : LOADDATAM(); }

 private:
  enum class State { browsing, adding, modifying, sorting };
  bool editing() const { return state_ == State::adding || state_ == State::modifying; }

  void attachBinding();
  void attachHeads();
  void showPage(Frame& page);
  bool itemSelected(Grid& grid) { return rowSelected(grid, "Please Select an Item."); }

  // Binding.
  // Lists that could not be read are asked for once more: an item must not lose what they do not
  // list.
  bool listsThere();
  void setStateM(State state);
  ListedRow listed(const BoundItem& item);
  // What is chosen, for the item that is being modified or for a new one.
  BoundItem chosenItem() const;
  bool choicesHold();
  bool groupsFree(const BoundItem& item);
  void moveItem(int step);

  // Heads.
  void setStateG(State state);
  ListedRow listed(const RawMaterialHead& head) const;
  bool headHolds(const RawMaterialHead& head);

  RawMaterialBinding binding_{*context_.host};
  RawMaterialHeads heads_{*context_.host};
  std::map<long, BoundItem> items_;  // those of the grid, by their numbers
  State state_ = State::browsing;
  bool listsRead_ = false;
};

}  // namespace quillet
