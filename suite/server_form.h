// The page of the settings that says on which database server the books are.
#pragma once

#include "controls/basic_controls.h"
#include "controls/form.h"
#include "controls/text_box.h"
#include "ports/ports.h"
#include "suite/settings.h"

namespace quillet::suite {

class frmServer : public Form {
 public:
  frmServer(OpenForms& openForms, Settings& settings, Dialogs& dialogs);

  TextBox txthosts{*this, "txthosts"};
  TextBox txtuser{*this, "txtuser"};
  TextBox txtdatabase{*this, "txtdatabase"};
  TextBox txtauthority{*this, "txtauthority"};
  TextBox txtpasswordfile{*this, "txtpasswordfile"};
  Button cmdok{*this, "cmdok", "&OK"};
  Button cmdcancel{*this, "cmdcancel", "Cancel"};

  LayoutItem layout() override;

 protected:
  void load() override;

 private:
  void keep();

  Settings& settings_;
  Dialogs& dialogs_;
};

}  // namespace quillet::suite
