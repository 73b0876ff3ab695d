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

void frmSettings::load() {
  size = {0.4, 0.2, size.font};
  txtfirm.setText(settings_.companyName());
  cbotheme.clearItems();
  const std::string kept = preferences::theme.in(settings_);
  for (const Preference::Value& value : preferences::theme.values) {
    cbotheme.addItem(value.shown);
    if (value.kept == kept) cbotheme.setChosen(cbotheme.size());
  }
  focus(txtfirm);
}

void frmSettings::keep() {
  if (!keepFirmName(settings_, dialogs_, txtfirm)) return;
  const auto& themes = preferences::theme.values;
  preferences::theme.keep(settings_, themes[static_cast<std::size_t>(cbotheme.chosen() - 1)].kept);
  close();
  if (onKept) onKept();
}

LayoutItem frmSettings::layout() {
  return column({field("&Name of the firm", txtfirm, 40, 1), field("&Colours", cbotheme, 30), gap(),
                 row({gap(), item(cmdok), item(cmdcancel)})});
}

}  // namespace quillet::suite
