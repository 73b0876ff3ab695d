// A new voucher made from one that stands: a copy, or the reversal that takes it back. Nothing is
// stored before "Update".
#include "books/amount.h"
#include "data/text.h"
#include "journal/frmjrnl.h"

namespace quillet {
namespace {

// Vouchers are known by what the list shows of them, not by their numbers.
std::string reversalOf(const std::string& date, const std::string& amount,
                       const std::string& narration) {
  std::string text = "Reversal of the voucher of " + date + " for " + amount;
  if (!narration.empty()) text += ": " + narration;
  text.resize(offsetOf(text, frmjrnl::narrationLength));
  return text;
}

}  // namespace

void frmjrnl::CMDCOPY_CLICK() {
  if (lock.refuses()) return;
  enterSelected([this](long vid) { return fillAsNew(vid, {}); });
}

void frmjrnl::CMDREVERSE_CLICK() {
  if (lock.refuses()) return;
  enterSelected([this](long vid) {
    return fillAsNew(vid, [this] {
      const Money total = totalsOf(lines_.lines()).debit;
      txtnarr.setText(
          reversalOf(txtdt.text(), groupedAmount(*context_.host, total), txtnarr.text()));
      lines_.exchangeSides();
    });
  });
}

// The voucher that was read stays as it is: the lines are those of one without a number, and its
// own posting counts in the balances beside them.
bool frmjrnl::fillAsNew(long vid, const std::function<void()>& change) {
  if (!LOADVCH(vid)) return false;
  book().begin();
  if (change) change();
  txtdt.setText(proposedDate());
  GETCURBALS();
  return true;
}

}  // namespace quillet
