// Asks for the name of the firm when a new practice is first opened.
#pragma once

#include "controls/basic_controls.h"
#include "controls/form.h"
#include "controls/text_box.h"
#include "ports/ports.h"
#include "suite/settings.h"

namespace quillet::suite {

class frmFirm : public Form {
 public:
  frmFirm(OpenForms& openForms, Settings& settings, Dialogs& dialogs);

  Label lblwhy{*this, "lblwhy", "It stands at the head of every printed report."};
  TextBox txtfirm{*this, "txtfirm"};
  Label lblhint{*this, "lblhint", "It can be changed later: Practice, Settings."};
  Button cmdok{*this, "cmdok", "&OK"};
  Button cmdlater{*this, "cmdlater", "&Later"};

  LayoutItem layout() override;

 protected:
  void load() override;

 private:
  void keep();

  Settings& settings_;
  Dialogs& dialogs_;
};

}  // namespace quillet::suite
