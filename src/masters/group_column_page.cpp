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

void frmgrpmas::VSCOLS_AFTEREDIT(int row) {
  const bool shown = vsCols.ticked(row);
  command("VSCOLS_AFTEREDIT", [&] {
    // Another station's choice may have taken the place of what was listed.
    vsCols.tick(row, shown);
    columns_.take(*context_.host);
  });
}

void frmgrpmas::booksMoved(bool masters) {
  if (masters && heads_) {
    LOADSETUP();
    if (famCols.visible()) columns_.list();
  }
  MasterForm::booksMoved(masters);
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
