#include "suite/settings_form.h"

#include "suite/firm_name.h"

namespace quillet::suite {

frmSettings::frmSettings(OpenForms& openForms, Settings& settings, Dialogs& dialogs)
    : Form(openForms, "frmSettings"), settings_(settings), dialogs_(dialogs) {
  setCaption("Settings");
  cmdok.Click = [this] { keep(); };
  cmdcancel.Click = [this] { close(); };
  KeyPress = [this](Key& key) {
    if (key == keys::Escape) {
      key = keys::none;
      close();
    } else if (key == keys::Enter && active() != &cmdok && active() != &cmdcancel) {
      key = keys::none;
      focusNext();
    }
  };
}

std::array<frmSettings::Choice, 3> frmSettings::choices() {
  return {{{cbogrouping, preferences::grouping},
           {cbotheme, preferences::theme},
           {cboorientation, preferences::orientation}}};
}

void frmSettings::load() {
  size = {0.4, 0.2, size.font};
  txtfirm.setText(settings_.companyName());
  for (const auto& [box, preference] : choices()) {
    box.clearItems();
    const std::string kept = preference.in(settings_);
    for (const Preference::Value& value : preference.values) {
      box.addItem(value.shown);
      if (value.kept == kept) box.setChosen(box.size());
    }
  }
  focus(txtfirm);
}

void frmSettings::keep() {
  if (!keepFirmName(settings_, dialogs_, txtfirm)) return;
  for (const auto& [box, preference] : choices()) {
    preference.keep(settings_, preference.values[static_cast<std::size_t>(box.chosen() - 1)].kept);
  }
  close();
  if (onKept) onKept();
}

LayoutItem frmSettings::layout() {
  return column({field("&Name of the firm", txtfirm, 40, 1), field("&Grouping", cbogrouping, 30),
                 field("&Colours", cbotheme, 30), field("Printed &sheets", cboorientation, 30),
                 gap(), row({gap(), item(cmdok), item(cmdcancel)})});
}

}  // namespace quillet::suite
