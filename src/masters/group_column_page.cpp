// The group master's column page: which columns the list of groups shows.
#include "masters/frmgrpmas.h"

namespace quillet {

void frmgrpmas::LOADSETUP() {
  columns_.showUsual();
  headList_ = {};
  if (!heads_) return;
  logErrors("LOADSETUP", [&] {
    columns_.read(*context_.host);
    if (columns_.showMapping()) headList_ = heads_->read();
  });
}

void frmgrpmas::CMDSHOW_CLICK() {
  lblstatus.setCaption("");
  columns_.list();
  showPage(famCols);
  focus(vsCols);
}

void frmgrpmas::VSCOLS_AFTEREDIT() {
  command("VSCOLS_AFTEREDIT", [&] { columns_.take(*context_.host); });
}

void frmgrpmas::CMDSHOWBACK_CLICK() {
  showPage(famMain);
  if (columns_.showMapping()) {
    headList_ = heads_->read();
    LOADGRID(0);
  }
  focus(vsf);
}

}  // namespace quillet
