#include "editor/import_command.h"

#include "editor/frmcrtb.h"
#include "review/frmimport.h"
#include "review/frmvchimport.h"

namespace quillet {

ImportCommand::ImportCommand(frmcrtb& form, OpenBooks& books, LineSaver& saver)
    : form_(form), books_(books), saver_(saver) {
  frmcrtb::on(form.mnuimport.Click, "MNUIMPORT_CLICK", [this] { MNUIMPORT_CLICK(); });
  for (Control* control : std::initializer_list<Control*>{&form.vsfm, &form.txtpart, &form.txtgroup,
                                                          &form.txtamount, &form.txtdrcr}) {
    control->PasteCells = [this](const std::string& text) { pasteCells(text); };
  }
}

ImportCommand::~ImportCommand() = default;

void ImportCommand::setButton() {
  form_.mnuimport.setVisible(books_.context.environment.sourceReader() != nullptr);
  form_.mnuimport.setEnabled(books_.years.hasTable() && form_.famLines.visible());
}

void ImportCommand::MNUIMPORT_CLICK() {
  if (!mayImport()) return;
  if (auto file = askForSource(books_.context)) openFile(std::move(*file));
}

void ImportCommand::importFile(SourceFile file) {
  if (mayImport()) openFile(std::move(file));
}

void ImportCommand::openFile(SourceFile file) {
  review([&](frmimport& form) {
    form.OPENFILE(std::move(file));
    return true;
  });
}

void ImportCommand::pasteCells(const std::string& text) {
  if (mayImport()) review([&](frmimport& form) { return form.OPENCELLS(text); });
}

bool ImportCommand::mayImport() {
  if (!books_.years.hasTable()) return false;
  if (books_.years.view() == TwoYears::View::previous) {
    books_.context.MsgBox(
        "Lines are imported into the current year. Please choose it in the menu \"Years\" first.",
        Buttons::OK, Icon::information);
    return false;
  }
  form_.leaveEntry();
  return saver_.mayChangeLines() && !books_.refusesChange(TwoYears::current);
}

void ImportCommand::review(const std::function<bool(frmimport& form)>& open) {
  const TwoYears& years = books_.years;
  const std::string previous =
      years.has(TwoYears::previous) ? years.table(TwoYears::previous) : std::string();
  auto form = std::make_unique<frmimport>(books_.context);
  form->INITDATA({years.books(TwoYears::current), years.clientName(), years.keys(TwoYears::current),
                  previous});
  if (!open(*form)) return;
  review_ = std::move(form);
  review_->showModal([this] {
    if (review_->leadsToVouchers()) {
      reviewVouchers();
    } else {
      showImported(*review_);
    }
  });
}

void ImportCommand::reviewVouchers() {
  auto form = std::make_unique<frmvchimport>(books_.context);
  form->takeSource(*review_);
  vouchers_ = std::move(form);
  vouchers_->showModal([this] { showImported(*vouchers_); });
}

void ImportCommand::showImported(const SourceForm& review) {
  if (!review.imported()) return;
  form_.LOADPARTICULARS();
  form_.showStored();
}

}  // namespace quillet
