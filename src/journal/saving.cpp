// The journal's saving and deleting: the checks, and the closing that leaves no voucher half
// posted.
#include <algorithm>

#include "books/amount.h"
#include "data/dates.h"
#include "host/saved_text.h"
#include "journal/frmjrnl.h"
#include "journal/messages.h"

namespace quillet {

// Whether all that the journal holds is posted.
bool frmjrnl::complete() const { return !book_ || book_->posting().complete(); }

// --- checks -------------------------------------------------------------------------------------

void frmjrnl::CMDUPDATE_CLICK() {
  // Given up as the procedure began.
  if (!Frame2.visible()) return tell(context_, staleVoucher);
  if (lock.refuses()) return;
  if (outdated_) return tell(context_, staleTyped);
  if (!dateIsGood("Please specify a Valid Date.")) {
    focus(txtdt);
    return;
  }
  for (int line = 0; line < lines_.count(); ++line) lookups_.lookUpNames(line);
  if (const auto fault = faultOf(lines_.toSave())) {
    tellFault(*fault);
  } else {
    SAVEVCH();
  }
}

void frmjrnl::tellFault(const VoucherFault& fault) {
  using Kind = VoucherFault::Kind;
  const auto refuse = [&](const char* text, TextBox& box) {
    tell(context_, text);
    lines_.reveal(fault.line);
    focus(box);
  };
  switch (fault.kind) {
    case Kind::noLedger:
      return refuse("Please select a Particulars.", txtledger[fault.line]);
    case Kind::noGroup:
      return refuse("Please select a Group.", txtgroup[fault.line]);
    case Kind::noAmount:
      return refuse("Please specify an Amount.", lines_.amountBox(fault.line));
    case Kind::belowZero:
      return refuse(negativeAmount, lines_.amountBox(fault.line));
    case Kind::totalsDiffer:
      return tell(context_, "Total Debit Amount should be Equal to Total Credit Amount.");
  }
}

// --- saving and deleting ------------------------------------------------------------------------

void frmjrnl::SAVEVCH() {
  lastSave_ = {openForms().acts.number(), book_ ? book_->id() : 0};
  const std::string period = from_ + to_;
  const Voucher voucher{txtdt.text(), txtnarr.text(), lines_.toSave()};
  Removal removal = Removal::done;
  bool stored = false;
  logErrors("SAVEVCH", [&] {
    if (book().id() != 0) removal = DELETEVCH(book().id());
    // Lines that are still posted must not be joined by the new ones.
    if (removal != Removal::done) return;
    book().store(voucher);
    stored = true;
    ADDVCH(book().id());
  });
  if (removal == Removal::refused) return;
  if (removal == Removal::done && book_ && book_->isStored()) widenPeriod(voucher.date);
  // Also after a failure: what was sent before it stays.
  LOADGRID();
  if (!stored) {
    hint(incomplete);
    return;
  }
  showList();
  list_.select(book().id());
  if (complete() && lblstatus.caption().empty()) lblstatus.setCaption(savedText(context_.clock));
  if (period != from_ + to_ && complete()) {
    const std::string besides = lblstatus.caption().empty() ? "" : lblstatus.caption() + ' ';
    lblstatus.setCaption(besides + "The period shown was widened to hold the voucher of " +
                         voucher.date + ".");
  }
}

void frmjrnl::widenPeriod(const std::string& date) {
  const bool before = compareDates(date, from_) < 0;
  const bool after = compareDates(date, to_) > 0;
  if (before || after) setPeriod(before ? date : from_, after ? date : to_);
}

void frmjrnl::ADDVCH(long vid) {
  logErrors("ADDVCH", [&] { book().post(vid); });
}

frmjrnl::Removal frmjrnl::DELETEVCH(long vid) {
  Removal removal = Removal::failed;
  logErrors("DELETEVCH", [&] {
    removal = book().remove(vid) ? Removal::done : Removal::refused;
    if (removal == Removal::refused) tell(context_, sharedNumber);
  });
  return removal;
}

void frmjrnl::COMMAND1_CLICK() {
  const long vid = vsf.currentId();
  if (vid == 0) {
    tell(context_, noRow);
  } else if (!lock.refuses() &&
             confirmed(context_, "Do you want to Delete the Selected Entry?", Answer::No)) {
    const int row = list_.headingOf(vsf.current());
    const Removal removal = DELETEVCH(vid);
    LOADGRID();
    vsf.setCurrent(list_.headingOf(std::min(row, vsf.rows())));
    if (removal == Removal::failed && complete()) lblstatus.setCaption(notDeleted);
  }
}

// --- closing ------------------------------------------------------------------------------------

void frmjrnl::FORM_UNLOAD(bool& cancel) {
  // An error on the way keeps the journal open.
  cancel = true;
  if (!complete()) postMissingOnLeaving();
  cancel = !confirmed(context_, "Do you want to Exit?");
  if (!cancel) lock.close();
}

// Other forms show the table as it stands, so that what is missing is posted before they do.
void frmjrnl::postMissingOnLeaving() {
  logErrors("FORM_UNLOAD", [&] { book().posting().postMissing(); });
  LOADGRID();
  tell(context_, complete()
                     ? "A voucher was half posted. What was missing has been posted now; please "
                       "check the voucher."
                     : "A voucher is half posted; the error log says why. The trial balance "
                       "lacks:" +
                           missingAmounts() +
                           "\r\n\r\nIt is posted when the journal of this year is opened again. "
                           "Please do not enter it by hand, and do not end the program before.");
}

// The pairs whose balances are not as the journal explains them, a line for each.
std::string frmjrnl::missingAmounts() {
  std::string lines;
  for (const LedgerGroup pair : book().posting().missing()) {
    const Money amount = book().posting().missing(pair);
    const std::string group = lookups_.groupName(pair.allId);
    lines += "\r\n" + context_.host->GetPart_MastPartId(pair.partId) +
             (group.empty() ? std::string() : " (" + group + ')') + ": " +
             groupedAmount(*context_.host, abs(amount)) + (amount > Money() ? " Dr" : " Cr");
  }
  return lines;
}

}  // namespace quillet
