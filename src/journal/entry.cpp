// The journal's entry frame: a new voucher or a stored one on it, its lines, balances and totals.
#include <algorithm>
#include <initializer_list>

#include "books/amount.h"
#include "data/dates.h"
#include "journal/frmjrnl.h"
#include "journal/messages.h"

namespace quillet {
namespace {

std::string isoDate(const Date& date) {
  const auto two = [](int part) { return (part < 10 ? "0" : "") + std::to_string(part); };
  return std::to_string(date.year) + '-' + two(date.month) + '-' + two(date.day);
}

// Views redraw what was written, so what stays the same is left alone.
void put(TextBox& box, const std::string& text) {
  if (box.text() != text) box.setText(text);
}

}  // namespace

// --- the two frames -----------------------------------------------------------------------------

void frmjrnl::showEntry() {
  Frame1.setVisible(false);
  Frame2.setVisible(true);
  import_.setEntry();
  lockEntry();
  if (isOnlyRead()) {
    focus(txtledger[0]);
  } else {
    focus(txtdt);
  }
}

// Whoever is typing when the year is lost goes on in a box that takes nothing.
void frmjrnl::lockEntry() {
  const bool read = isOnlyRead();
  lines_.setLocked(read);
  txtnarr.setLocked(read);
  for (Control* control : std::initializer_list<Control*>{&txtdt, &cmdremove}) {
    control->setEnabled(!read);
  }
  // It says why what was typed cannot be stored; "Cancel" in its place would throw that away.
  cmdupdate.setEnabled(!lock.locked() || typed());
  if (read) lookups_.hide();
  if (active() && !active()->focusable()) focus(txtledger[0]);
}

void frmjrnl::showList() {
  lookups_.hide();
  Frame2.setVisible(false);
  Frame1.setVisible(true);
  import_.setEntry();
  focus(vsf);
}

void frmjrnl::CMDADD_CLICK() {
  if (lock.refuses() || !listsAreRead()) return;
  CLEARDATA();
  txtdt.setText(proposedDate());
  opened_ = entryTexts();
  showEntry();
}

// Today; outside the year, where it would be refused, the date used last or the closing date.
std::string frmjrnl::proposedDate() const {
  const auto shown = [&](const Date& date) {
    return context_.host->convertdate(context_.host->formatgen(isoDate(date), "DD/MM/YYYY"));
  };
  for (const auto& date : {std::optional(context_.clock.today()), readDate(list_.lastDate())}) {
    if (date && year_.holds(shown(*date))) return shown(*date);
  }
  return year_.to();
}

void frmjrnl::VSF_DBLCLICK() {
  enterSelected([this](long vid) { return LOADVCH(vid); });
}

void frmjrnl::enterSelected(const std::function<bool(long vid)>& fill) {
  const long vid = vsf.currentId();
  if (vid == 0) {
    tell(context_, noRow);
    return;
  }
  if (!listsAreRead()) return;
  CLEARDATA();
  if (fill(vid)) {
    // A voucher that is made from another one is stored nowhere yet.
    if (book().id() != 0) opened_ = entryTexts();
    showEntry();
  } else {
    LOADGRID();
    lblstatus.setCaption("The voucher could not be read; it may have been deleted meanwhile.");
  }
}

bool frmjrnl::LOADVCH(long vid) {
  bool loaded = false;
  logErrors("LOADVCH", [&] {
    const Voucher voucher = book().open(vid);
    if (voucher.lines.empty()) return;
    seen_ = voucher;
    {
      const ScopedFlag ignoring = lines_.ignoreChanges();
      txtdt.setText(voucher.date);
      txtnarr.setText(voucher.narration);
      int line = 0;
      for (const VoucherLine& stored : voucher.lines) {
        if (line > 0) LOADCONTROLS();
        lines_.show(line++, stored, context_.host->GetPart_MastPartId(stored.pair.partId),
                    lookups_.groupName(stored.pair.allId));
      }
    }
    loaded = true;
    SETTOP();
    GETCURBALS();
  });
  // A voucher that is not shown is not the one in work.
  if (!loaded && book_) book_->begin();
  return loaded;
}

void frmjrnl::CMDCANCEL_CLICK() { cancelEntry(); }

void frmjrnl::cancelEntry() {
  if ((lock.locked() && !typed()) || confirmed(context_, "Do you want to Cancel Entry?"))
    showList();
}

void frmjrnl::CLEARDATA() {
  logErrors("CLEARDATA", [&] {
    txtdt.clear();
    txtnarr.setText("");
    lines_.clear();
    opened_.clear();
    seen_ = {};
    outdated_ = false;
    if (book_) book_->begin();
    hint("");
    SETTOP();
    GETCURBALS();
  });
}

// --- lines --------------------------------------------------------------------------------------

void frmjrnl::LOADCONTROLS() {
  logErrors("LOADCONTROLS", [&] {
    lines_.add();
    lookups_.attach(lines_.last());
    if (lines_.ignoringChanges()) return;
    const VoucherTotals totals = totalsOf(lines_.lines());
    lines_.setSide(lines_.last(), totals.debit <= totals.credit);
    SETTOP();
  });
}

void frmjrnl::CMDREMOVE_CLICK() {
  const int removed = std::min(lines_.lastFocused(), lines_.last());
  lines_.remove(removed);
  SETTOP();
  lines_.moveTo(std::min(removed, lines_.last()));
  GETCURBALS();
}

int frmjrnl::GETROWS() {
  const int rows = lines_.count();
  logErrors("GETROWS",
            [&] { lblrows.setCaption(std::to_string(rows) + (rows == 1 ? " line" : " lines")); });
  return rows;
}

void frmjrnl::SETTOP() {
  logErrors("SETTOP", [&] {
    GETROWS();
    lines_.placeView();
  });
}

// --- balances and totals ------------------------------------------------------------------------

void frmjrnl::GETCURBALS() {
  if (lines_.ignoringChanges()) return;
  logErrors("GETCURBALS", [&] {
    const std::vector<VoucherLine> lines = lines_.lines();
    PairAmounts typed;
    for (const VoucherLine& line : lines) typed.add(line.pair, line.balance());
    for (int line = 0; line < lines_.count(); ++line) {
      const Money balance = book_ ? book_->balanceWith(typed, lines[line].pair) : Money();
      const char* side = balance.isZero() ? "" : balance > Money() ? "Dr" : "Cr";
      put(txtcurbal[line], groupedAmount(*context_.host, abs(balance)) + side);
    }
    CHECKTOTALS();
  });
}

void frmjrnl::CHECKTOTALS() {
  logErrors("CHECKTOTALS", [&] {
    const VoucherTotals totals = totalsOf(lines_.lines());
    if (vsf1.rows() == 0) vsf1.addRow({"Total"});
    vsf1.setCell(1, 1, groupedAmount(*context_.host, totals.debit));
    vsf1.setCell(1, 2, groupedAmount(*context_.host, totals.credit));
    const Money difference = totals.debit - totals.credit;
    lbldiff.setCaption(difference.isZero()
                           ? ""
                           : "Difference " + groupedAmount(*context_.host, abs(difference)) +
                                 (difference > Money() ? " Dr" : " Cr"));
  });
}

}  // namespace quillet
