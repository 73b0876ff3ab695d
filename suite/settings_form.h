// The settings of the practice: the firm's name, and what a person prefers to see.
#pragma once

#include <array>
#include <functional>
#include <string>

#include "controls/choice.h"
#include "controls/text_box.h"
#include "suite/firm_name.h"
#include "suite/plain_dialog.h"
#include "suite/preferences.h"
#include "suite/server_form.h"
#include "suite/settings.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

class frmSettings : public PlainDialog {
 public:
  // `mayUnlock` asks a person for the password that unlocks years.
  frmSettings(OpenForms& openForms, Settings& settings, Dialogs& dialogs, UnitOfWork& unit,
              std::function<bool()> mayUnlock);

  TextBox txtfirm{*this, "txtfirm"};
  ComboBox cbogrouping{*this, "cbogrouping"};
  ComboBox cbotheme{*this, "cbotheme"};
  ComboBox cboorientation{*this, "cboorientation"};
  CheckBox chkunlock{*this, "chkunlock", "Unlock years with a pass&word"};
  TextBox txtunlock{*this, "txtunlock"};
  TextBox txtagain{*this, "txtagain"};
  Button cmdserver{*this, "cmdserver", "&Database Server..."};
  Button cmdok{*this, "cmdok", "&OK"};
  Button cmdcancel{*this, "cmdcancel", "Cancel"};

  // The settings are others than before.
  std::function<void()> onKept;

  // Opened from here.
  Form& serverForm() { return server_; }

  LayoutItem layout() override;

 protected:
  void load() override;
  void keep() override;

 private:
  struct Choice {
    ComboBox& box;
    const Preference& preference;
  };
  std::array<Choice, 3> choices();
  void showPasswordFields();
  bool keepPassword();
  bool refuse(const std::string& text);

  Settings& settings_;
  UnitOfWork& unit_;
  FirmName firm_;
  std::function<bool()> mayUnlock_;
  frmServer server_;
  bool hadPassword_ = false;
};

}  // namespace quillet::suite
