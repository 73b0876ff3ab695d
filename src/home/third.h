// The home form: what to do, then for which client, then for which year. Its list of years, the
// entry of a new year and the list of trial balances to merge are parts of their own.
#pragma once

#include <string>

#include "controls/basic_controls.h"
#include "controls/grid.h"
#include "controls/mask_box.h"
#include "home/cl_grd.h"
#include "home/merge_list.h"
#include "home/year_end_commands.h"
#include "home/year_entry.h"
#include "home/year_list.h"
#include "home/year_lock_commands.h"
#include "home/year_removal.h"
#include "host/context.h"
#include "masters/frmgrpmas.h"
#include "masters/frmtbledmas.h"

namespace quillet {

class third : public Form {
 public:
  explicit third(Context& context);

  // Of the year that is chosen.
  std::string fileSubject() const override;
  LayoutItem layout() override;
  void takenBack() override;
  void booksMoved(bool masters) override;

  MenuEntry mnubooks{*this, "mnubooks", "Boo&ks"};
  MenuEntry mnubringfwd{*this, "mnubringfwd", "&Bring Forward...", &mnubooks};
  MenuEntry mnuopening{*this, "mnuopening", "&Opening Agrees with Last Closing...", &mnubooks};
  MenuEntry mnulockyear{*this, "mnulockyear", "&Lock Year...", &mnubooks};
  MenuEntry mnuunlockyear{*this, "mnuunlockyear", "&Unlock Year...", &mnubooks};
  Button mnucreate{*this, "mnucreate", "&Create Trial Balance"};
  Button mnualter{*this, "mnualter", "&Alter/View Trial Balance"};
  Button mnudelete{*this, "mnudelete", "&Delete Trial Balance"};
  Button mnumerge{*this, "mnumerge", "&Merge Trial Balances"};
  Button mnualpha{*this, "mnualpha", "Al&phabetically"};
  Button mnusumm{*this, "mnusumm", "&Summarized (Group wise)"};
  Button mnudet{*this, "mnudet", "D&etailed (Group wise)"};
  Button cmdgrpmas{*this, "cmdgrpmas", "&Group Master"};
  Button cmdledmas{*this, "cmdledmas", "&Ledger Master"};
  Button mnurefresh{*this, "mnurefresh", "&Refresh Data"};
  Button mnuhelp{*this, "mnuhelp", "&Help"};
  Button mnuexit{*this, "mnuexit", "&Back"};
  Label lblprint{*this, "lblprint", "Print"};

  Frame Frame3{*this, "Frame3"};  // first step: the client
  ClGrd ClGrd1;
  Frame Frame1{*this, "Frame1"};  // second step: the year
  Label Label1{*this, "Label1"};
  Frame famyears{*this, "famyears"};  // the year is chosen there, or typed in the other
  Grid flexgrid2{*this, "flexgrid2"};
  Button cmdmerge{*this, "cmdmerge", "Merge No&w"};  // what Enter does in the list of a merge
  Button cmdchanges{*this, "cmdchanges", "Cha&nges..."};
  Button cmdasof{*this, "cmdasof", "As It St&ood..."};
  Frame famdates{*this, "famdates"};
  MaskBox MaskEdBox1{*this, "MaskEdBox1", "", -1, '#'};
  MaskBox MaskEdBox2{*this, "MaskEdBox2", "", -1, '#'};
  Button cmdyear{*this, "cmdyear"};  // what Enter does in the second date
  Button cmdyearimport{*this, "cmdyearimport", "Create a&nd Import..."};
  Label lblproposal{*this, "lblproposal"};
  Grid grdyears{*this, "grdyears"};  // the years that there are
  Label lblstatus{*this, "lblstatus"};

  YearList years;
  YearEntry newYear;
  MergeList mergeList;
  YearRemoval removal;
  YearEndCommands yearEnd;
  YearLockCommands yearLock;

  void FORM_LOAD();
  void FORM_ACTIVATE();
  void FORM_UNLOAD();
  void FORM_KEYDOWN(Key& key);
  void CLGRD1_DBLCLICK();
  void FLEXGRID2_DBLCLICK();
  void FLEXGRID2_KEYPRESS(Key& key);
  void CMDGRPMAS_CLICK();
  void CMDLEDMAS_CLICK();
  void MNUREFRESH_CLICK();
  void MNUHELP_CLICK();
  void MNUEXIT_CLICK();

  // "create", "merge", "alter", "delete", "alphabetical", "group_summarized" or "group_detail".
  const std::string& mode() const { return mode_; }
  // The client chosen last. The context may have gone on to another one by the time a year is.
  const std::string& clientCode() const { return clientCode_; }
  const std::string& clientName() const { return clientName_; }

  // --- for the parts

  // Shows the list or the dates in place of the clients, headed by what is to be done.
  void showSecondStep(Frame& with, const std::string& task);
  void status(const std::string& text) { lblstatus.setCaption(text); }
  // Before what stands there already.
  void statusFirst(const std::string& text) {
    status(lblstatus.caption().empty() ? text : text + ' ' + lblstatus.caption());
  }
  // Runs the body; a failure is said in the status line and goes on its way.
  template <class Body>
  void statusOnFailure(const std::string& failure, Body&& body) {
    try {
      body();
    } catch (...) {
      status(failure);
      throw;
    }
  }
  // The client that a command of the suite is about: the one chosen, or the one that the cursor is
  // on in the list. "" when there is none.
  std::string clientInView() const;
  // The register of clients was changed: shows the list anew with that client current, and tells
  // what was done. A client that is not there any more is forgotten.
  void registerChanged(const std::string& current, const std::string& told);

  void tellYearIsGone(const std::string& clientName, const YearKeys& year);

 protected:
  void activated() override { FORM_ACTIVATE(); }
  void load() override { FORM_LOAD(); }
  void unload(bool& /*cancel*/) override { FORM_UNLOAD(); }

 private:
  struct Command {
    Button* button;
    const char* mode;
  };

  void attachCommands();
  void choose(const Command& command);
  void showFirstStep();
  void showClients();
  void refreshClients();
  void showAnew();
  bool clientIsGone();
  void leaveGoneClient();
  void focusList();
  void takeClient(const std::string& code, const std::string& name);

  Context& context_;
  frmgrpmas groupMaster_;
  frmtbledmas ledgerMaster_;
  std::string mode_;
  std::string clientCode_;
  std::string clientName_;
  bool justLoaded_ = false;  // the form became active by being loaded
};

// The module's single home form, made on first use.
third& theHome(Context& context);

}  // namespace quillet
