// The settings of the practice: the firm's name, and what a person prefers to see.
#pragma once

#include <array>
#include <functional>

#include "controls/basic_controls.h"
#include "controls/choice.h"
#include "controls/form.h"
#include "controls/text_box.h"
#include "ports/ports.h"
#include "suite/preferences.h"
#include "suite/settings.h"

namespace quillet::suite {

class frmSettings : public Form {
 public:
  frmSettings(OpenForms& openForms, Settings& settings, Dialogs& dialogs);

  TextBox txtfirm{*this, "txtfirm"};
  ComboBox cbogrouping{*this, "cbogrouping"};
  ComboBox cbotheme{*this, "cbotheme"};
  ComboBox cboorientation{*this, "cboorientation"};
  Button cmdok{*this, "cmdok", "&OK"};
  Button cmdcancel{*this, "cmdcancel", "Cancel"};

  // The settings are others than before.
  std::function<void()> onKept;

  LayoutItem layout() override;

 protected:
  void load() override;

 private:
  struct Choice {
    ComboBox& box;
    const Preference& preference;
  };
  std::array<Choice, 3> choices();
  void keep();

  Settings& settings_;
  Dialogs& dialogs_;
};

}  // namespace quillet::suite
