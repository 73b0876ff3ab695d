#include "suite/firm_form.h"

namespace quillet::suite {

frmFirm::frmFirm(OpenForms& openForms, const FirmName& name, Dialogs& dialogs)
    : PlainDialog(openForms, "frmFirm", "Your Firm", dialogs), name_(name) {
  lblhint.setQuiet(true);
  attach(cmdok, cmdlater);
}

void frmFirm::load() {
  size = {0.4, 0.15, size.font};
  txtfirm.setText(name_.get());
  focus(txtfirm);
}

// Without a name the question comes again at the next start.
void frmFirm::keep() {
  if (name_.keep(dialogs_, txtfirm)) close();
}

LayoutItem frmFirm::layout() {
  return column({item(lblwhy), field("&Name of the firm", txtfirm, 40, 1), item(lblhint), gap(),
                 row({gap(), item(cmdok), item(cmdlater)})});
}

}  // namespace quillet::suite
