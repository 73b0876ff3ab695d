// The page of the settings that says on which database server the books are.
#pragma once

#include "controls/text_box.h"
#include "suite/plain_dialog.h"
#include "suite/server_address.h"
#include "suite/settings.h"

namespace quillet::suite {

class frmServer : public PlainDialog {
 public:
  frmServer(OpenForms& openForms, Settings& settings, Dialogs& dialogs);

  TextBox txthosts{*this, "txthosts"};
  TextBox txtsocket{*this, "txtsocket"};
  TextBox txtuser{*this, "txtuser"};
  TextBox txtdatabase{*this, "txtdatabase"};
  TextBox txtauthority{*this, "txtauthority"};
  TextBox txtpasswordfile{*this, "txtpasswordfile"};
  Button cmdok{*this, "cmdok", "&OK"};
  Button cmdcancel{*this, "cmdcancel", "Cancel"};

  LayoutItem layout() override;

 protected:
  void load() override;
  void keep() override;

 private:
  ServerAddress typed(ServerAddress kept) const;
  bool mayKeep(const ServerAddress& server);

  Settings& settings_;
};

}  // namespace quillet::suite
