// What the journal does when an act was taken back, and when another station took its year or gave
// it back: it shows what is stored, and what was typed stays.
#include "journal/frmjrnl.h"
#include "journal/messages.h"

namespace quillet {

// --- what was typed -----------------------------------------------------------------------------

std::vector<std::string> frmjrnl::entryTexts() const {
  std::vector<std::string> texts = lines_.texts();
  texts.push_back(txtdt.text());
  texts.push_back(txtnarr.text());
  return texts;
}

bool frmjrnl::typed() const { return Frame2.visible() && entryTexts() != opened_; }

// The voucher of that number is in work again. Another station may have changed it, if the year was
// lost since it was opened: then what was typed over it is not stored.
void frmjrnl::resume(long vid, bool lost) {
  book_.emplace(*context_.host, context_.unposted, ClientTable(book_->books()));
  if (vid == 0) return;
  const Voucher stored = book_->resume(vid);
  outdated_ = outdated_ || (lost && stored != seen_);
}

// --- an act that was taken back -----------------------------------------------------------------

// Of the voucher in work the journal holds what it held before the act; what was typed is shown
// again, to be saved once more.
void frmjrnl::takenBack() {
  if (!book_) return;
  const bool saving = lastSave_.act == openForms().acts.number();
  const long vid = saving ? lastSave_.vid : book_->id();
  logErrors("TAKENBACK", [&] { lock.read(); });
  logErrors("TAKENBACK", [&] { resume(vid, lock.regained()); });
  readLists();
  lookups_.forgetUnknown();
  LOADGRID();
  if (saving) showEntry();
  if (!Frame2.visible()) return;
  lockEntry();
  if (saving) hint(outdated_ ? staleTyped : lock.locked() ? notSavedRead : notSaved);
}

// --- another station ----------------------------------------------------------------------------

void frmjrnl::booksMoved(bool masters) {
  if (!book_) return;
  const bool reading = lock.locked();
  logErrors("BOOKSMOVED", [&] { lock.read(); });
  const bool lost = !reading && lock.locked();
  const bool found = lock.regained() || (reading && !lock.locked());
  if (found) logErrors("BOOKSMOVED", [&] { resume(book_->id(), true); });
  if (masters || found || lock.gone()) {
    readLists();
    lookups_.forgetUnknown();
  }
  if (masters || reading || lost || found || Frame1.visible()) LOADGRID();
  if (!Frame2.visible()) return;
  if (typed()) {
    goOnTyping(lost, found);
  } else if (lock.gone() || (found && (reading || book_->id() != 0))) {
    // The voucher that is shown may not be the stored one.
    showList();
    if (!reading && !lock.gone()) lblstatus.setCaption(staleVoucher);
  } else {
    lockEntry();
  }
}

void frmjrnl::goOnTyping(bool lost, bool found) {
  lockEntry();
  GETCURBALS();
  if (lost) hint(typedStays);
  if (found) hint(outdated_ ? staleTyped : typedAgain);
}

}  // namespace quillet
