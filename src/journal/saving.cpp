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
  if (ask("Do you want to Cancel Entry?") != Answer::Yes) return;
  // A save that failed in the middle has changed what is listed.
  if (standing_.contains(vid_)) LOADGRID();
  showList();
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
  context_.host->ConQuery(
      "Insert Into " + journal_ + " Values ('" + client_ + "'," + sqlNumber(vid) + "," +
      sqlNumber(line + 1) + ",'" +
      context_.host->escaped(context_.host->formatgen(txtdt.text(), "YYYY-MM-DD")) + "'," +
      sqlNumber(pair.partId) + "," + sqlNumber(pair.allId) + "," +
      sqlNumber(rounded(signedAmount(line))) + ",'" + context_.host->escaped(txtnarr.text()) +
      "')");
  // From its first line on there is such a voucher, for the next attempt to replace.
  vid_ = vid;
  standing_.try_emplace(vid);
  context_.host->ConQuery("Flush Tables");
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
    context_.host->ConQuery("Delete from " + journal_ + " where VId=" + sqlNumber(vid));
    standing_.erase(vid);
    context_.host->ConQuery("Flush Tables");
    done = true;
  });
  return done;
}

// Adds the voucher's amounts to the trial balance, or takes them out again with the sign -1. Lines
// that an attempt before this one has dealt with are left alone.
void frmjrnl::post(long vid, double sign) {
  const bool adds = sign > 0;
  const std::vector<VoucherLine> lines = readVoucher(vid);
  const auto [found, begins] = standing_.try_emplace(vid);
  std::set<long>& standing = found->second;
  if (begins && !adds) {
    for (const VoucherLine& line : lines) standing.insert(line.number);
  }
  for (const VoucherLine& line : lines) {
    if (standing.contains(line.number) == adds) continue;
    const bool written = changeBalance(line.pair, sign * line.amount);
    if (adds) {
      standing.insert(line.number);
    } else {
      standing.erase(line.number);
    }
    if (vid == vid_) posted_.add(line.pair, sign * line.amount);
    if (written) context_.host->ConQuery(flushTables);
  }
  if (adds) standing_.erase(vid);
}

std::vector<frmjrnl::VoucherLine> frmjrnl::readVoucher(long vid) {
  const auto rows = context_.query("Select * from " + journal_ + " where VId=" + sqlNumber(vid));
  const VoucherFields fields(*rows);
  std::vector<VoucherLine> lines;
  for (; !rows->EOF_(); rows->MoveNext()) {
    lines.push_back({rows->integer(fields.line),
                     {rows->integer(fields.partId), rows->integer(fields.allId)},
                     rows->number(fields.amount)});
  }
  return lines;
}

// Returns whether a row was written, whose flush is left to the caller: the line counts as posted
// from the moment its row stands.
bool frmjrnl::changeBalance(LedgerGroup pair, double amount) {
  const Sql ofPair = " where code_no='" + client_ + "' and PartId=" + sqlNumber(pair.partId) +
                     " and allid=" + sqlNumber(pair.allId);
  const double before = storedBalance(ofPair) + owed_.of(pair);
  context_.host->ConQuery("Delete from " + table_ + ofPair);
  owed_.set(pair, before);
  context_.host->ConQuery(flushTables);
  // Whole paise: what adding in binary leaves over is no balance.
  const double balance = rounded(before + amount);
  if (balance != 0) insertBalance(pair, balance);
  owed_.set(pair, 0);
  const auto group = groupNames_.find(pair.allId);
  balances_.set(pair, group == groupNames_.end() ? std::string() : group->second, balance);
  return balance != 0;
}

double frmjrnl::storedBalance(const Sql& ofPair) {
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
  context_.host->ConQuery("insert into " + table_ + " values(" + sqlNumber(last + 1) + ",'" +
                          client_ + "'," + sqlNumber(pair.partId) + "," + sqlNumber(pair.allId) +
                          "," + sqlNumber(std::fabs(balance)) + "," + (balance > 0 ? "1" : "2") +
                          ")");
}

}  // namespace quillet
