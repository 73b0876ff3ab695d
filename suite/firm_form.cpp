#include "suite/firm_form.h"

#include "suite/firm_name.h"

namespace quillet::suite {

frmFirm::frmFirm(OpenForms& openForms, Settings& settings, Dialogs& dialogs)
    : Form(openForms, "frmFirm"), settings_(settings), dialogs_(dialogs) {
  setCaption("Your Firm");
  lblhint.setQuiet(true);
  cmdok.Click = [this] { keep(); };
  cmdlater.Click = [this] { close(); };
  KeyPress = [this](Key& key) {
    if (key == keys::Escape) {
      key = keys::none;
      close();
    } else if (key == keys::Enter && active() == &txtfirm) {
      key = keys::none;
      keep();
    }
  };
}

void frmFirm::load() {
  size = {0.4, 0.15, size.font};
  txtfirm.setText(settings_.companyName());
  focus(txtfirm);
}

// Without a name the question comes again at the next start.
void frmFirm::keep() {
  if (keepFirmName(settings_, dialogs_, txtfirm)) close();
}

LayoutItem frmFirm::layout() {
  return column({item(lblwhy), field("&Name of the firm", txtfirm, 40, 1), item(lblhint), gap(),
                 row({gap(), item(cmdok), item(cmdlater)})});
}

}  // namespace quillet::suite
