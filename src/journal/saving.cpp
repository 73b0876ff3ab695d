// Entering and saving vouchers: the two frames, the checks, and the statements that store a
// voucher, post it into the trial balance and take it out again.
#include <algorithm>
#include <cmath>

#include "books/amount.h"
#include "data/dates.h"
#include "data/sql.h"
#include "data/text.h"
#include "journal/form_parts.h"
#include "journal/frmjrnl.h"

namespace quillet {
namespace {

constexpr const char* noRow = "Please select a Item.";
constexpr const char* sharedNumber =
    "The number of this voucher is also that of another client's voucher, and both would be "
    "deleted. To take it back, please pass a new voucher with its sides exchanged.";

std::string isoDate(const Date& date) {
  const auto two = [](int part) { return (part < 10 ? "0" : "") + std::to_string(part); };
  return std::to_string(date.year) + '-' + two(date.month) + '-' + two(date.day);
}

}  // namespace

// --- the two frames -----------------------------------------------------------------------------

void frmjrnl::showEntry() {
  Frame1.setVisible(false);
  Frame2.setVisible(true);
  focus(txtdt);
}

void frmjrnl::showList() {
  VSF3.setVisible(false);
  VSF4.setVisible(false);
  Frame2.setVisible(false);
  Frame1.setVisible(true);
  focus(vsf);
}

void frmjrnl::CMDADD_CLICK() {
  trap("CMDADD_CLICK", [&] {
    if (!booksAreThere()) return;
    CLEARDATA();
    const std::string today = context_.host->convertdate(
        context_.host->formatgen(isoDate(context_.clock.today()), "DD/MM/YYYY"));
    if (inYear(today)) txtdt.setText(today);
    showEntry();
  });
}

void frmjrnl::VSF_DBLCLICK() {
  trap("VSF_DBLCLICK", [&] {
    const long vid = voucherAt(vsf.current());
    if (vid == 0) {
      tell(noRow);
      return;
    }
    if (!booksAreThere()) return;
    CLEARDATA();
    if (LOADVCH(vid)) {
      showEntry();
    } else {
      LOADGRID();
      lblstatus.setCaption("The voucher could not be read; it may have been deleted meanwhile.");
    }
  });
}

void frmjrnl::CMDCANCEL_CLICK() {
  trap("CMDCANCEL_CLICK", [&] { cancelEntry(); });
}

void frmjrnl::cancelEntry() {
  if (ask("Do you want to Cancel Entry?") != Answer::Yes) return;
  showList();
}

void frmjrnl::COMMAND1_CLICK() {
  trap("COMMAND1_CLICK", [&] {
    const long vid = voucherAt(vsf.current());
    if (vid == 0) {
      tell(noRow);
    } else if (ask("Do you want to Delete the Selected Entry?", Answer::No) == Answer::Yes) {
      const int row = headingOf(vsf.current());
      const Removal removal = DELETEVCH(vid);
      LOADGRID();
      vsf.setCurrent(headingOf(std::min(row, vsf.rows())));
      if (removal == Removal::failed && posting_.settled()) lblstatus.setCaption(notDeleted);
    }
  });
}

void frmjrnl::FORM_UNLOAD(bool& cancel) {
  trap("FORM_UNLOAD", [&] {
    if (!posting_.settled()) leaveSettled();
    cancel = ask("Do you want to Exit?") != Answer::Yes;
  });
}

// Other forms show the table as it stands, so that what is missing is posted before they do.
void frmjrnl::leaveSettled() {
  trap("FORM_UNLOAD", [&] { posting_.settle(); });
  LOADGRID();
  tell(posting_.settled()
           ? "A voucher was half posted. What was missing has been posted now; please check the "
             "voucher."
           : "A voucher is half posted; the error log says why. The trial balance lacks:" +
                 missingAmounts() +
                 "\r\n\r\nIt is posted when the journal of this year is opened again. Please do "
                 "not enter it by hand, and do not end the program before.");
}

// --- checks -------------------------------------------------------------------------------------

void frmjrnl::CMDUPDATE_CLICK() {
  trap("CMDUPDATE_CLICK", [&] {
    if (!dateIsGood("Please specify a Valid Date.")) {
      focus(txtdt);
      return;
    }
    if (!namesAreGood() || !amountsAreGood()) return;
    const Totals sums = totals();
    if (sums.debit != sums.credit) {
      tell("Total Debit Amount should be Equal to Total Credit Amount.");
      return;
    }
    SAVEVCH();
  });
}

// A last line that names nothing is there to be filled and is no part of the voucher.
int frmjrnl::linesToSave() const {
  const int rows = cboside.size();
  return rows > 1 && namesNothing(rows - 1) ? rows - 1 : rows;
}

// Balances and groups that could not be read when the journal was opened are asked for once more.
bool frmjrnl::booksAreThere() {
  if (!booksRead_ && !readBooks()) lblstatus.setCaption(notLoaded);
  return booksRead_;
}

bool frmjrnl::namesAreGood() {
  for (int line = 0; line < linesToSave(); ++line) {
    lookUpNames(line);
    const LedgerGroup pair = ids_[static_cast<std::size_t>(line)].pair;
    const bool ledger = pair.partId != 0 && !trimmed(txtledger[line].text()).empty();
    const bool group = pair.allId != 0 && !trimmed(txtgroup[line].text()).empty();
    if (ledger && group) continue;
    tell(ledger ? "Please select a Group." : "Please select a Particulars.");
    moveToBox(ledger ? txtgroup[line] : txtledger[line]);
    return false;
  }
  return true;
}

// A name may stand in its box without having been looked up: the focus left it for "Cancel".
void frmjrnl::lookUpNames(int line) {
  LedgerGroup& pair = ids_[static_cast<std::size_t>(line)].pair;
  const auto look = [](long& id, const NameList& names, const TextBox& box) {
    const NameList::Entry* entry = id == 0 ? names.find(box.text()) : nullptr;
    if (entry) id = entry->id;
  };
  look(pair.partId, ledgers_, txtledger[line]);
  look(pair.allId, groups_, txtgroup[line]);
}

bool frmjrnl::amountsAreGood() {
  for (int line = 0; line < linesToSave(); ++line) {
    TextBox& box = amountBox(line);
    const auto amount = typedAmount(box.text());
    if (amount && *amount > Money()) continue;
    tell(amount && *amount < Money() ? negativeAmount : "Please specify an Amount.");
    moveToBox(box);
    return false;
  }
  return true;
}

void frmjrnl::moveToBox(TextBox& box) {
  reveal(box.index());
  focus(box);
}

// --- saving -------------------------------------------------------------------------------------

void frmjrnl::SAVEVCH() {
  const std::string period = from_ + to_;
  bool stored = false;
  bool refused = false;
  trap("SAVEVCH", [&] {
    long vid = vid_;
    if (vid != 0) {
      const Removal removal = DELETEVCH(vid);
      refused = removal == Removal::refused;
      // Lines that are still posted must not be joined by the new ones.
      if (removal != Removal::done) return;
    } else {
      posting_.settle();
      vid = context_.query("Select max(VID) from " + journal_)->integer(0) + 1;
    }
    for (int line = 0; line < linesToSave(); ++line) insertLine(vid, line);
    stored = true;
    ADDVCH(vid);
  });
  if (refused) return;
  // Also after a failure: what was sent before it stays.
  LOADGRID();
  if (!stored) {
    hint(incomplete);
    return;
  }
  showList();
  selectVoucher(vid_);
  if (period != from_ + to_ && posting_.settled()) {
    const std::string besides = lblstatus.caption().empty() ? "" : lblstatus.caption() + ' ';
    lblstatus.setCaption(besides + "The period shown was widened to hold the voucher of " +
                         txtdt.text() + ".");
  }
}

void frmjrnl::insertLine(long vid, int line) {
  const LedgerGroup pair = ids_[static_cast<std::size_t>(line)].pair;
  const double amount = rounded(signedAmount(line));
  context_.host->ConQuery(
      "Insert Into " + journal_ + " Values ('" + client_ + "'," + sqlNumber(vid) + "," +
      sqlNumber(line + 1) + ",'" +
      context_.host->escaped(context_.host->formatgen(txtdt.text(), "YYYY-MM-DD")) + "'," +
      sqlNumber(pair.partId) + "," + sqlNumber(pair.allId) + "," + sqlNumber(amount) + ",'" +
      context_.host->escaped(txtnarr.text()) + "')");
  posting_.journalChanged(pair, amount);
  stored_.add(pair, amount);
  // From its first line on there is such a voucher, for the next attempt to replace.
  vid_ = vid;
  widenPeriod(txtdt.text());
  context_.host->ConQuery("Flush Tables");
}

void frmjrnl::widenPeriod(const std::string& date) {
  const bool before = compareDates(date, from_) < 0;
  const bool after = compareDates(date, to_) > 0;
  if (before || after) setPeriod(before ? date : from_, after ? date : to_);
}

void frmjrnl::ADDVCH(long vid) {
  trap("ADDVCH", [&] { post(readVoucher(vid).lines, 1); });
}

frmjrnl::Removal frmjrnl::DELETEVCH(long vid) {
  Removal removal = Removal::failed;
  trap("DELETEVCH", [&] {
    posting_.settle();
    const StoredVoucher voucher = readVoucher(vid);
    if (voucher.shared) {
      tell(sharedNumber);
      removal = Removal::refused;
      return;
    }
    post(voucher.lines, -1);
    context_.host->ConQuery("Delete from " + journal_ + " where VId=" + sqlNumber(vid));
    for (const VoucherLine& line : voucher.lines) posting_.journalChanged(line.pair, -line.amount);
    if (vid == vid_) stored_.clear();
    context_.host->ConQuery("Flush Tables");
    removal = Removal::done;
  });
  return removal;
}

void frmjrnl::post(const std::vector<VoucherLine>& lines, double sign) {
  for (const VoucherLine& line : lines) posting_.post(line.pair, sign * line.amount);
}

frmjrnl::StoredVoucher frmjrnl::readVoucher(long vid) {
  const auto rows = context_.query("Select * from " + journal_ + " where VId=" + sqlNumber(vid));
  const VoucherFields fields(*rows);
  StoredVoucher voucher;
  for (; !rows->EOF_(); rows->MoveNext()) {
    if (!isOwn(rows->text(fields.code))) {
      voucher.shared = true;
      continue;
    }
    voucher.lines.push_back(
        {{rows->integer(fields.partId), rows->integer(fields.allId)}, rows->number(fields.amount)});
  }
  return voucher;
}

void frmjrnl::balanceChanged(LedgerGroup pair, double balance) {
  const auto group = groupNames_.find(pair.allId);
  balances_.set(pair, group == groupNames_.end() ? std::string() : group->second, balance);
}

// The pairs whose balances are not as the journal explains them, a line for each.
std::string frmjrnl::missingAmounts() const {
  std::string lines;
  for (const LedgerGroup pair : posting_.missing()) {
    const double amount = posting_.missing(pair);
    const auto group = groupNames_.find(pair.allId);
    lines += "\r\n" + context_.host->GetPart_MastPartId(pair.partId) +
             (group == groupNames_.end() ? std::string() : " (" + group->second + ')') + ": " +
             shown(std::fabs(amount)) + (amount > 0 ? " Dr" : " Cr");
  }
  return lines;
}

}  // namespace quillet
