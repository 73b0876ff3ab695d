// The home form: what to do, then for which client, then for which year.
#pragma once

#include <string>

#include "controls/grid.h"
#include "controls/mask_box.h"
#include "controls/simple.h"
#include "home/cl_grd.h"
#include "host/context.h"

namespace quillet {

class third : public Form {
 public:
  explicit third(Context& context);

  Node layout() override;
  void activated() override { FORM_ACTIVATE(); }

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
  Grid flexgrid2{*this, "flexgrid2"};
  MaskBox MaskEdBox1{*this, "MaskEdBox1", "", -1, '#'};
  MaskBox MaskEdBox2{*this, "MaskEdBox2", "", -1, '#'};
  Label lblstatus{*this, "lblstatus"};

  void FORM_LOAD();
  void FORM_ACTIVATE();
  void FORM_RESIZE();
  void FORM_UNLOAD();
  void FORM_KEYDOWN(Key& key);
  void CLGRD1_DBLCLICK();
  void FLEXGRID2_DBLCLICK();
  void FLEXGRID2_KEYPRESS(Key& key);
  void MNUREFRESH_CLICK();
  void MNUHELP_CLICK();
  void MNUEXIT_CLICK();

  // "create", "merge", "alter", "delete", "alphabetical", "group_summarized" or "group_detail".
  const std::string& mode() const { return mode_; }

 protected:
  void load() override { FORM_LOAD(); }
  void resize() override { FORM_RESIZE(); }
  void unload(bool& /*cancel*/) override { FORM_UNLOAD(); }

 private:
  struct ModeButton {
    Button* button;
    const char* mode;
    const char* procedure;
  };

  void attachModes();
  void setMode(const ModeButton& chosen);
  void showClients();
  void showYears();
  void loadYears();
  void beginDates();
  void openEditor();
  bool rightToOpen(Recordset& year);
  void status(const std::string& text) { lblstatus.setCaption(text); }

  Context& context_;
  std::string mode_;
  std::string clientName_;
};

// The module's single home form, made on first use.
third& theHome(Context& context);

}  // namespace quillet
