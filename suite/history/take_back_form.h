// The last acts, newest first, and a command that takes the chosen one back.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/basic_controls.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "ports/ports.h"
#include "suite/history/taking_back.h"

namespace quillet::suite {

class frmTakeBack : public Form {
 public:
  frmTakeBack(OpenForms& openForms, TakingBack& takingBack, Dialogs& dialogs);

  // Opens it on the acts of a client, of all clients for "".
  void openFor(const std::string& client);
  // Runs after acts were taken back and the form is closed.
  std::function<void()> onTakenBack;

  CheckBox chkall{*this, "chkall", "A&ll clients"};
  Grid vsf{*this, "vsf"};
  Label lblwhat{*this, "lblwhat"};
  Button cmdtakeback{*this, "cmdtakeback", "&Take Back"};
  Button cmdclose{*this, "cmdclose", "&Close"};

  LayoutItem layout() override;
  void takenBack() override { showActs(); }

 protected:
  void load() override;

 private:
  void showActs();
  void showChosen();
  void takeBack();
  const LoggedAct* chosen() const;

  TakingBack& takingBack_;
  Dialogs& dialogs_;
  std::string client_;
  std::vector<LoggedAct> acts_;
  bool changed_ = false;
};

}  // namespace quillet::suite
