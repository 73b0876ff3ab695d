#include "suite/settings_form.h"

#include <utility>

#include "host/rights.h"
#include "suite/passwords.h"

namespace quillet::suite {

frmSettings::frmSettings(OpenForms& openForms, Settings& settings, Dialogs& dialogs,
                         UnitOfWork& unit, std::function<bool()> mayUnlock)
    : PlainDialog(openForms, "frmSettings", "Settings", dialogs),
      settings_(settings),
      unit_(unit),
      firm_(settings, unit),
      mayUnlock_(std::move(mayUnlock)),
      server_(openForms, settings, dialogs) {
  cmdserver.Click = [this] { server_.showModal(); };
  for (TextBox* box : {&txtunlock, &txtagain}) box->setSecret(true);
  chkunlock.Click = [this] { showPasswordFields(); };
  attach(cmdok, cmdcancel);
}

std::array<frmSettings::Choice, 3> frmSettings::choices() {
  return {{{cbogrouping, preferences::grouping},
           {cbotheme, preferences::theme},
           {cboorientation, preferences::orientation}}};
}

void frmSettings::load() {
  size = {0.4, 0.2, size.font};
  txtfirm.setText(firm_.get());
  for (const auto& [box, preference] : choices()) {
    box.clearItems();
    const std::string kept = preference.in(settings_);
    for (const Preference::Value& value : preference.values) {
      box.addItem(value.shown);
      if (value.kept == kept) box.setChosen(box.size());
    }
  }
  hadPassword_ = Passwords::isSet(unit_, PasswordKind::right, right::unlockYear);
  chkunlock.setChecked(hadPassword_);
  showPasswordFields();
  focus(txtfirm);
}

void frmSettings::keep() {
  if (!keepPassword() || !firm_.keep(dialogs_, txtfirm)) return;
  for (const auto& [box, preference] : choices()) {
    preference.keep(settings_, preference.values[static_cast<std::size_t>(box.chosen() - 1)].kept);
  }
  close();
  if (onKept) onKept();
}

void frmSettings::showPasswordFields() {
  for (TextBox* box : {&txtunlock, &txtagain}) {
    box->setText("");
    box->setEnabled(chkunlock.checked());
  }
  chkunlock.setToolTip(hadPassword_ ? "The password stays while no other one is typed." : "");
}

bool frmSettings::refuse(const std::string& text) {
  tell(text);
  focus(txtunlock);
  return false;
}

// Whoever changes the password or takes it away must know it.
bool frmSettings::keepPassword() {
  const bool wanted = chkunlock.checked();
  const std::string password = txtunlock.text();
  if (password != txtagain.text()) {
    return refuse("The two passwords differ. Please type the same one in both boxes.");
  }
  if (wanted ? hadPassword_ && password.empty() : !hadPassword_) return true;
  if (wanted && password.empty()) {
    return refuse(
        "Please type a password twice, or take the tick off \"Unlock years with a"
        " password\".");
  }
  if (!mayUnlock_()) return false;
  Passwords::set(unit_, PasswordKind::right, right::unlockYear, password);
  return true;
}

LayoutItem frmSettings::layout() {
  return column({field("&Name of the firm", txtfirm, 40, 1), field("&Grouping", cbogrouping, 30),
                 field("&Colours", cbotheme, 30), field("Printed &sheets", cboorientation, 30),
                 row({item(chkunlock), named("Password that unlocks years", item(txtunlock, 1, 14)),
                      named("Password again", field("Aga&in", txtagain, 14, 1))}),
                 gap(), row({item(cmdserver), gap(), item(cmdok), item(cmdcancel)})});
}

}  // namespace quillet::suite
