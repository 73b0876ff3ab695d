// Which clients the client list shows: all, or those of one status, of one group.
#pragma once

#include <string>

#include "controls/basic_controls.h"
#include "controls/choice.h"
#include "controls/form.h"
#include "suite/database.h"
#include "suite/settings.h"

namespace quillet::suite {

class frmClSelection : public Form {
 public:
  // Starts with the status given, or with the one kept when that is empty.
  frmClSelection(OpenForms& openForms, Database& database, Settings& settings, std::string status);

  ComboBox cbostatus{*this, "cbostatus"};
  ComboBox cbogroup{*this, "cbogroup"};
  Button cmdok{*this, "cmdok", "&OK"};
  Button cmdall{*this, "cmdall", "Show &All"};
  Button cmdcancel{*this, "cmdcancel", "&Cancel"};

  LayoutItem layout() override;

 protected:
  void load() override;

 private:
  void fill(ComboBox& box, const std::string& column, const std::string& chosen);
  void save(const std::string& status, const std::string& group);

  Database& database_;
  Settings& settings_;
  std::string status_;
};

}  // namespace quillet::suite
