#include "journal/line_keys.h"

#include <algorithm>

#include "journal/frmjrnl.h"

namespace quillet {

void LineKeys::enter(int line) {
  const Control* const active = form_.active();
  if (active == &form_.cboside[line]) {
    form_.focus(form_.txtledger[line]);
  } else if (active == &form_.txtledger[line]) {
    if (lookups_.enterLedger(line)) form_.focus(form_.txtgroup[line]);
  } else if (active == &form_.txtgroup[line]) {
    lookups_.enterGroup(line);
  } else {
    enterInAmount(line);
  }
}

void LineKeys::enterInAmount(int line) {
  if (line == lines_.last() && lines_.isBlank(line)) {
    form_.focus(form_.txtnarr);
  } else if (!endsVoucher(line)) {
    goBelow(line);
  } else if (amountIsGood(line) && form_.focus(form_.txtnarr)) {
    form_.lblhint.setCaption("Debit and credit agree. Down in the last amount adds a line.");
  }
}

bool LineKeys::amountIsGood(int line) {
  bool cancel = false;
  lines_.amountBox(line).Validate(cancel);
  return !cancel;
}

void LineKeys::goBelow(int line) {
  if (!amountIsGood(line)) return;
  if (line == lines_.last()) form_.LOADCONTROLS();
  form_.focus(form_.cboside[line + 1]);
}

bool LineKeys::endsVoucher(int line) const {
  const bool nothingBelow =
      line == lines_.last() || (line + 1 == lines_.last() && lines_.isBlank(line + 1));
  const VoucherTotals totals = totalsOf(lines_.lines());
  return nothingBelow && totals.debit == totals.credit && !totals.debit.isZero();
}

void LineKeys::tab(int line, Key& key) {
  const bool leavesLast = line > 0 && line == lines_.last() && lines_.isBlank(line);
  if (leavesLast || (line == lines_.last() && form_.active() == &lines_.amountBox(line))) {
    key = keys::none;
    form_.focus(form_.txtnarr);
  } else if (form_.active() == &form_.txtledger[line] && !lookups_.takeLedger(line)) {
    key = keys::none;
  }
}

void LineKeys::step(int line, Key& key) {
  const bool amount = form_.active() == &lines_.amountBox(line);
  const bool listOpen = lookups_.listOpen();
  int step = 0;
  if (amount && key == keys::Up) step = -1;
  if (amount && key == keys::Down) step = 1;
  if (!listOpen && key == keys::PageUp) step = -VoucherLines::inView;
  if (!listOpen && key == keys::PageDown) step = VoucherLines::inView;
  if (step == 0) return;
  const bool addsLine =
      key == keys::Down && line == lines_.last() && !lines_.isBlank(line) && !form_.isOnlyRead();
  key = keys::none;
  if (addsLine) {
    goBelow(line);
  } else {
    lines_.moveTo(std::clamp(line + step, 0, lines_.last()));
  }
}

}  // namespace quillet
