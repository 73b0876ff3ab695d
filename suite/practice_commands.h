// What the suite adds to the home form: a menu for the practice as a whole, with its clients,
// their statements and its settings, and the words of a list without clients.
#pragma once

#include <string>

#include "controls/basic_controls.h"
#include "home/third.h"
#include "statements/frmstatements.h"
#include "suite/client_form.h"
#include "suite/firm_form.h"
#include "suite/history/take_back_form.h"
#include "suite/settings_form.h"

namespace quillet::suite {

class Practice;

class PracticeCommands {
 public:
  // The practice, whose module has started, outlives this object.
  explicit PracticeCommands(Practice& practice);

  // Asks for the firm's name while there is none; for the start of a window with a person before
  // it.
  void askForFirm();

 private:
  void newClient();
  void alterClient();
  void deleteClient();
  void changed(const std::string& code, const std::string& told);
  // The client in view, once its password was given. Nothing when there is none.
  std::optional<Client> clientToChange();
  // Of the year chosen in the list of years, or else of the client's last one.
  void showStatements();
  void showSettings();
  void showTakeBack();
  void tookBack();

  Practice& practice_;
  third& home_;
  MenuEntry mnupractice_;
  MenuEntry mnunewclient_;
  MenuEntry mnualterclient_;
  MenuEntry mnudeleteclient_;
  MenuEntry mnuline_;
  MenuEntry mnustatements_;
  MenuEntry mnutakeback_;
  MenuEntry mnusettings_;
  frmClient client_;
  frmSettings settings_;
  frmFirm firm_;
  frmstatements statements_;
  frmTakeBack takeBack_;
};

}  // namespace quillet::suite
