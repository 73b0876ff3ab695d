// Entering and saving vouchers: the two frames, the checks, and the statements that store a
// voucher, post it into the trial balance and take it out again.
#include <algorithm>
#include <cmath>

#include "data/sql.h"
#include "data/text.h"
#include "host/amount.h"
#include "journal/form_parts.h"
#include "journal/frmjrnl.h"

namespace quillet {
namespace {

constexpr const char* noRow = "Please select a Item.";

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
    CLEARDATA();
    LOADVCH(vid);
    if (vid_ == vid) showEntry();
  });
}

void frmjrnl::CMDCANCEL_CLICK() {
  trap("CMDCANCEL_CLICK", [&] { cancelEntry(); });
}

void frmjrnl::cancelEntry() {
  if (ask("Do you want to Cancel Entry?") == Answer::Yes) showList();
}

void frmjrnl::COMMAND1_CLICK() {
  trap("COMMAND1_CLICK", [&] {
    const long vid = voucherAt(vsf.current());
    if (vid == 0) {
      tell(noRow);
    } else if (ask("Do you want to Delete the Selected Entry?", Answer::No) == Answer::Yes) {
      const int row = headingOf(vsf.current());
      const bool done = DELETEVCH(vid);
      LOADGRID();
      vsf.setCurrent(headingOf(std::min(row, vsf.rows())));
      if (!done) lblstatus.setCaption(incomplete);
    }
  });
}

void frmjrnl::FORM_UNLOAD(bool& cancel) {
  trap("FORM_UNLOAD", [&] { cancel = ask("Do you want to Exit?") != Answer::Yes; });
}

// --- checks -------------------------------------------------------------------------------------

void frmjrnl::CMDUPDATE_CLICK() {
  trap("CMDUPDATE_CLICK", [&] {
    if (!dateIsGood("Please specify a Valid Date.") || !namesAreGood() || !amountsAreGood()) return;
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

bool frmjrnl::namesAreGood() {
  for (int line = 0; line < linesToSave(); ++line) {
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

bool frmjrnl::amountsAreGood() {
  for (int line = 0; line < linesToSave(); ++line) {
    TextBox& box = amountBox(line);
    const auto amount = typedAmount(*context_.host, box.text());
    if (amount && *amount > 0) continue;
    tell(amount && *amount < 0 ? negativeAmount : "Please specify an Amount.");
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
  bool stored = false;
  bool posted = false;
  trap("SAVEVCH", [&] {
    long vid = vid_;
    if (vid != 0) {
      // Lines that are still posted must not be joined by the new ones.
      if (!DELETEVCH(vid)) return;
    } else {
      vid = context_.query("Select max(VID) from " + journal_)->integer(0) + 1;
    }
    for (int line = 0; line < linesToSave(); ++line) insertLine(vid, line);
    stored = true;
    posted = ADDVCH(vid);
    LOADGRID();
    showList();
    selectVoucher(vid);
  });
  if (!stored) hint(incomplete);
  if (stored && !posted) lblstatus.setCaption(incomplete);
}

void frmjrnl::insertLine(long vid, int line) {
  const LedgerGroup pair = ids_[static_cast<std::size_t>(line)].pair;
  change("Insert Into " + journal_ + " Values ('" + client_ + "'," + sqlNumber(vid) + "," +
             std::to_string(line + 1) + ",'" +
             context_.host->formatgen(txtdt.text(), "YYYY-MM-DD") + "'," + sqlNumber(pair.partId) +
             "," + sqlNumber(pair.allId) + "," + sqlNumber(rounded(signedAmount(line))) + ",'" +
             context_.host->TruncVarSQL(txtnarr.text()) + "')",
         "Flush Tables");
}

bool frmjrnl::ADDVCH(long vid) {
  bool done = false;
  trap("ADDVCH", [&] {
    post(vid, 1);
    done = true;
  });
  return done;
}

bool frmjrnl::DELETEVCH(long vid) {
  bool done = false;
  trap("DELETEVCH", [&] {
    post(vid, -1);
    change("Delete from " + journal_ + " where VId=" + sqlNumber(vid), "Flush Tables");
    done = true;
  });
  return done;
}

// Adds the voucher's amounts to the trial balance, or takes them out again with the sign -1.
void frmjrnl::post(long vid, double sign) {
  const auto rows = context_.query("Select * from " + journal_ + " where VId=" + sqlNumber(vid));
  const VoucherFields fields(*rows);
  for (; !rows->EOF_(); rows->MoveNext()) {
    const LedgerGroup pair{rows->integer(fields.partId), rows->integer(fields.allId)};
    const std::string ofPair = " where code_no='" + client_ +
                               "' and PartId=" + sqlNumber(pair.partId) +
                               " and allid=" + sqlNumber(pair.allId);
    const double before = storedBalance(ofPair);
    change("Delete from " + table_ + ofPair, flushTables);
    // Whole paise: what adding in binary leaves over is no balance.
    const double balance = rounded(before + sign * rows->number(fields.amount));
    const auto group = groupNames_.find(pair.allId);
    balances_.set(pair, group == groupNames_.end() ? std::string() : group->second, balance);
    if (balance != 0) insertBalance(pair, balance);
  }
}

double frmjrnl::storedBalance(const std::string& ofPair) {
  const auto rows = context_.query("Select * from " + table_ + ofPair);
  double balance = 0;
  for (; !rows->EOF_(); rows->MoveNext()) {
    const double amount = rows->number("Amt");
    balance += rows->integer("nid") == 1 ? amount : -amount;
  }
  return balance;
}

void frmjrnl::insertBalance(LedgerGroup pair, double balance) {
  const long last =
      context_
          .query("select max(srno) as maxsr from " + table_ + " where code_no = '" + client_ + "'")
          ->integer("maxsr");
  change("insert into " + table_ + " values(" + sqlNumber(last + 1) + ",'" + client_ + "'," +
             sqlNumber(pair.partId) + "," + sqlNumber(pair.allId) + "," +
             sqlNumber(std::fabs(balance)) + "," + (balance > 0 ? "1" : "2") + ")",
         flushTables);
}

void frmjrnl::change(const std::string& sql, const char* flush) {
  context_.host->ConQuery(sql);
  context_.host->ConQuery(flush);
}

}  // namespace quillet
