// The ledger master: the particulars that the lines of every client and year refer to. They are
// added, renamed, deleted while nothing uses them, replaced by one another everywhere, and listed
// with the clients and years that use them. Modal; the opener reads changed() when it has closed.
//
// Two more views of the form: the link view, in which the particulars to be replaced are ticked,
// and the list of use. Use, saving and replacing have a source file each.
#pragma once

#include <string>
#include <vector>

#include "books/ledger_master.h"
#include "controls/basic_controls.h"
#include "controls/control_array.h"
#include "controls/vtxt.h"
#include "masters/ledger_rows.h"
#include "masters/master_form.h"

namespace quillet {

class frmtbledmas : public MasterForm {
 public:
  explicit frmtbledmas(Context& context);

  // Whether ledgers may have been written since the form was shown.
  bool changed() const { return changed_; }

  LayoutItem layout() override;

  // --- the particulars
  Frame famMain{*this, "famMain"};
  TextBox txtfind{*this, "txtfind"};
  ControlArray<OptionButton> Option1{*this, "Option1", {"Not In Use", "In Use", "All"}};
  Label lblcount{*this, "lblcount"};
  Label lbllink{*this, "lbllink", "All the Linked"};
  Grid vsf{*this, "vsf"};
  VTxt VTxt1{*this, "VTxt1"};
  Button cmdupdate{*this, "cmdupdate", "&Update"};
  Button cmdcancel{*this, "cmdcancel", "&Cancel"};
  Label lblhint{*this, "lblhint"};
  Button cmdadd{*this, "cmdadd", "&Add Item"};
  Button cmdmodify{*this, "cmdmodify", "&Modify Item"};
  Button cmddelete{*this, "cmddelete", "&Delete Item"};
  Button cmdView{*this, "cmdView", "View Use"};
  Button cmdlink{*this, "cmdlink", "&Link to Other Particulars"};
  Button cmdback{*this, "cmdback", "Bac&k"};

  // --- the list of use
  Frame famC{*this, "famC"};
  Label lblheadC{*this, "lblheadC"};
  Grid vsfC{*this, "vsfC"};
  Button cmdbackC{*this, "cmdbackC", "&Back"};

  void FORM_LOAD();
  void FORM_KEYPRESS(Key& key);
  void FORM_UNLOAD(bool& cancel);
  // Every particular, or one anew. Old data holds ids with several names: such has a row each.
  void LOADGRID(long partId);
  void LOADDATA();
  void CLEARDATA();
  void SETBUTTON(bool edit);
  void SETCOLWIDTH();
  void SETROWSHIDDEN();
  void OPTION1_CLICK();
  void VSF_DBLCLICK();

  // Marks which particulars are in use: all, or one. The search for all can be stopped; until one
  // has come to its end, what is not in use is not deleted.
  void FILLINUSE(long partId);
  // Lists the clients and years that use the particulars, on their page when `show` says so. False
  // when the search did not reach its end.
  bool VIEWLISTOFUSE(const std::vector<long>& ids, bool show);
  void CMDVIEW_CLICK();
  void CMDBACKC_CLICK();

  void CMDADD_CLICK();
  void CMDMODIFY_CLICK();
  void CMDUPDATE_CLICK();
  void CMDCANCEL_CLICK();
  void CMDBACK_CLICK();
  void CMDDELETE_CLICK();

  void CMDLINK_CLICK();
  // The ids of the ticked particulars, the target left out.
  std::vector<long> GETSRNOS();
  void LINKPARTICULARS();
  void REPLACEANDDELETE(long oldId, long newId);

  // What the act had marked may not be so.
  void takenBack() override {
    reread();
    reviewUse();
  }

 protected:
  void load() override { FORM_LOAD(); }
  void unload(bool& cancel) override { FORM_UNLOAD(cancel); }
  void reread() override;
  bool entryBegun() const override { return editing_ || !rows_.ticked().empty(); }
  bool modifying() const override { return editing_ && !adding_; }
  std::vector<std::string> atStake() const override {
    return cellsOf(vsf, adding_ ? 0 : vsf.currentId(), 1);
  }
  void showEntry() override { LOADDATA(); }

 private:
  enum Option { notInUse, inUse, all };

  void attachCommands();
  void readRow(long partId);
  void showCount() { lblcount.setCaption(rows_.count()); }
  void searchFromGrid(Key& key);
  void showPage(Frame& page);
  bool particularSelected() { return rowSelected(vsf, "Please Select a Particulars."); }
  const std::string& selectedName() const {
    return vsf.cell(vsf.current(), LedgerRows::nameColumn);
  }
  std::string listHeading() const;
  void makeShownCurrent(long partId) { makeCurrent(vsf, rows_.shownRow(partId)); }

  // Use.
  void fillAllInUse();
  // Marks anew, with what is listed after it.
  void reviewUse();

  // Saving and deleting.
  void saveParticular(const std::string& name);
  void refuse(const std::string& name, const NamedId& existing);
  void offerExisting(const std::string& name, const NamedId& existing);
  void deleteSelected();
  void deleteUnused();
  // True when the particulars may be deleted; else a person was told why not.
  bool mayDelete(const std::vector<long>& ids, const std::string& refusal);

  // Linking.
  bool linking() const { return rows_.target() != 0; }
  void setLinkView(bool on);
  void nameTarget(const std::string& name);
  void leaveLinkView();
  std::string linkQuestion() const;
  bool targetStands();
  void endEntry();

  LedgerMaster master_{*context_.host};
  LedgerRows rows_{vsf};
  bool adding_ = false;
  bool editing_ = false;
  bool changed_ = false;
  std::string targetName_;
};

}  // namespace quillet
