#include "journal/import_command.h"

#include "data/year.h"
#include "host/take_back.h"
#include "journal/frmjrnl.h"
#include "review/frmvchimport.h"

namespace quillet {

VoucherImportCommand::VoucherImportCommand(frmjrnl& form) : form_(form) {
  frmjrnl::on(form.mnuimport.Click, "MNUIMPORT_CLICK", [this] { MNUIMPORT_CLICK(); });
  frmjrnl::on(form.mnutakeback.Click, "MNUTAKEBACK_CLICK", [this] { takeBack(); });
  frmjrnl::on(form.vsf.PasteCells, "PASTECELLS", [this](const std::string& text) {
    if (form_.lock.refuses()) return;
    review([&](frmvchimport& review) { return review.OPENCELLS(text); });
  });
}

VoucherImportCommand::~VoucherImportCommand() = default;

void VoucherImportCommand::setEntry() {
  const bool reads = form_.context().environment.sourceReader() != nullptr;
  const bool takesBack = form_.context().environment.history() != nullptr;
  form_.mnuvouchers.setVisible(reads || takesBack);
  form_.mnuimport.setVisible(reads);
  form_.mnuimport.setEnabled(form_.Frame1.visible());
  form_.mnutakeback.setVisible(takesBack);
  form_.mnutakeback.setEnabled(form_.Frame1.visible());
}

void VoucherImportCommand::MNUIMPORT_CLICK() {
  if (form_.lock.refuses()) return;
  auto file = askForSource(form_.context());
  if (!file) return;
  review([&](frmvchimport& review) {
    review.OPENFILE(std::move(*file));
    return true;
  });
}

void VoucherImportCommand::takeBack() {
  const ReviewedYear year = form_.reviewedYear();
  const auto told = takeBackLast(
      form_.context(), {year.books.client, year.clientName, year.keys.first, year.keys.second});
  if (told) form_.lblstatus.setCaption(*told);
}

void VoucherImportCommand::review(const std::function<bool(frmvchimport& form)>& open) {
  auto review = std::make_unique<frmvchimport>(form_.context());
  review->INITDATA(form_.reviewedYear());
  if (!open(*review)) return;
  review_ = std::move(review);
  review_->showModal([this] { form_.showReviewed(review_->imported()); });
}

// --- what the journal hands over, and shows afterwards ------------------------------------------

ReviewedYear frmjrnl::reviewedYear() {
  return {book().books(),
          books_.clientName,
          YearKeys{firstDateKey(year_.first), secondDateKey(year_.first + 1)},
          {}};
}

// What was half posted before the review is posted by now.
void frmjrnl::showReviewed(bool imported) {
  if (!imported) return LOADGRID();
  const bool widened = from_ != year_.from() || to_ != year_.to();
  setPeriod(year_.from(), year_.to());
  readLists();
  LOADGRID();
  if (widened && lblstatus.caption().empty()) {
    lblstatus.setCaption("The period shown was widened to the whole year.");
  }
}

}  // namespace quillet
