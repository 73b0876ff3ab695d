// Asks for the name of the firm when a new practice is first opened.
#pragma once

#include "controls/text_box.h"
#include "suite/firm_name.h"
#include "suite/plain_dialog.h"

namespace quillet::suite {

class frmFirm : public PlainDialog {
 public:
  frmFirm(OpenForms& openForms, const FirmName& name, Dialogs& dialogs);

  Label lblwhy{*this, "lblwhy", "It stands at the head of every printed report."};
  TextBox txtfirm{*this, "txtfirm"};
  Label lblhint{*this, "lblhint", "It can be changed later: Practice, Settings."};
  Button cmdok{*this, "cmdok", "&OK"};
  Button cmdlater{*this, "cmdlater", "&Later"};

  LayoutItem layout() override;

 protected:
  void load() override;
  void keep() override;
  void entered() override { keep(); }

 private:
  FirmName name_;
};

}  // namespace quillet::suite
