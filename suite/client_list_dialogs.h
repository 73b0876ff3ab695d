// The two dialogs that arrange the client list. One of them is open at a time.
#pragma once

#include <memory>
#include <string>

#include "suite/database.h"
#include "suite/settings.h"

namespace quillet {
class OpenForms;
class Form;
}  // namespace quillet

namespace quillet::suite {

class ClientListDialogs {
 public:
  ClientListDialogs(Database& database, Settings& settings);
  ~ClientListDialogs();

  // Where they open; nothing is shown before.
  void useOpenForms(OpenForms& openForms) { openForms_ = &openForms; }
  void showSelection(const std::string& status);
  void showSetup();

 private:
  void show(std::unique_ptr<Form> form);
  OpenForms& openForms();

  Database& database_;
  Settings& settings_;
  OpenForms* openForms_ = nullptr;
  std::unique_ptr<Form> shown_;  // the one shown last
};

}  // namespace quillet::suite
