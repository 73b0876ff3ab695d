// The journal's loading: balances and lists of names, the outline of vouchers, one voucher into the
// entry frame.
#include <cmath>

#include "books/scratch_tables.h"
#include "data/sql.h"
#include "data/table_names.h"
#include "data/text.h"
#include "data/year.h"
#include "journal/form_parts.h"
#include "journal/frmjrnl.h"
#include "journal/proper_case.h"
#include "ports/busy.h"

namespace quillet {
namespace {

constexpr char columnsOfPairs[] =
    "(PartId Int(11), AllId Int(11), Part Varchar(100), AllGrp Varchar(100), Amt Double)";

}  // namespace

void frmjrnl::INITDATA(const std::string& table, bool previousYear) {
  INITDATA(table, previousYear, {context_.clientCode, {}, context_.firstDate});
}

void frmjrnl::INITDATA(const std::string& table, bool previousYear, const Books& books) {
  bool named = false;
  trap("INITDATA", [&] {
    forgetBooks();
    table_ = journal_ = Sql();
    books_ = books;
    client_ = context_.host->escaped(books.clientCode);
    table_ = sqlName(table);
    journal_ = sqlName(siblingTable(table, "JRNL_"));
    firstYear_ = yearOf(books.firstDate) - (previousYear ? 1 : 0);
    setPeriod(yearFrom(), yearTo());
    setCaption("Adjustement Entries Passed of " + context_.host->COMPANY_NAME() +
               " for the Period from " + from_ + " to " + to_);
    posting_.open({table, books.clientCode});
    named = true;
  });
  if (!named) return;
  // A voucher that was left half posted.
  trap("INITDATA", [&] { posting_.settle(); });
  readBooks();
}

bool frmjrnl::readBooks() {
  forgetBooks();
  trap("INITDATA", [&] {
    const Busy busy(*context_.host);
    ScratchTables scratch(*context_.host);
    scratch.create(columnsOfPairs);
    readBalances(scratch);
    readLists();
    scratch.drop(ScratchTables::summed);
    booksRead_ = true;
  });
  if (!booksRead_) forgetBooks();
  return booksRead_;
}

void frmjrnl::forgetBooks() {
  booksRead_ = false;
  ledgers_.clear();
  groups_.clear();
  groupNames_.clear();
  balances_.clear();
  for (Grid* list : {&VSF3, &VSF4}) list->clearRows();
}

void frmjrnl::readBalances(ScratchTables& scratch) {
  const Sql into = "Insert into Ledger_Temp1 Select ";
  const auto pairs = [&](const Sql& from, const Sql& amount) {
    return into + from + ".partid," + from + ".allid,Particular,AllGrp," + amount +
           ScratchTables::named(from) + ".code_no='" + client_ + "'";
  };
  scratch.execute(into + "partid,0,Particular,'',0 from mast_part");
  scratch.execute(pairs(table_, "sum(Amt)") + " and " + table_ + ".Nid=1 group by partid,allid");
  scratch.execute(pairs(table_, "-sum(Amt)") + " and " + table_ + ".Nid=2 group by partid,allid");
  scratch.execute(pairs(journal_, "0"));
  scratch.execute(
      "Insert into Ledger_Temp Select partid, allid,Part,AllGrp,sum(Amt) from Ledger_Temp1 "
      "group by partid,allid");
  scratch.drop(ScratchTables::collected);
}

void frmjrnl::readLists() {
  const auto ledgers =
      context_.query("Select distinct(PartId),Part from Ledger_Temp order by Part");
  ledgers_.reserve(static_cast<std::size_t>(ledgers->RecordCount()));
  for (; !ledgers->EOF_(); ledgers->MoveNext()) {
    // A line may stand on a ledger that the master does not have any more.
    if (!ledgers->field(1)) continue;
    ledgers_.append(ledgers->text(1), ledgers->integer(0));
  }
  ledgers_.sort();
  fillNames(VSF3, ledgers_.matching(""));

  const auto groups = context_.query("select * from mast_allgrp order by allgrp");
  for (; !groups->EOF_(); groups->MoveNext()) {
    groups_.append(groups->text("ALLGRP"), groups->integer("AllId"));
    groupNames_.emplace(groups->integer("AllId"), groups->text("ALLGRP"));
  }
  groups_.sort();
  fillNames(VSF4, groups_.matching(""));

  const auto pairs = context_.query("Select * from Ledger_Temp order by Part,AllGrp");
  const int partId = pairs->column("PartId");
  const int allId = pairs->column("AllId");
  const int group = pairs->column("ALLGRP");
  const int amount = pairs->column("Amt");
  for (; !pairs->EOF_(); pairs->MoveNext()) {
    balances_.set({pairs->integer(partId), pairs->integer(allId)}, pairs->text(group),
                  rounded(pairs->number(amount)));
  }
}

void frmjrnl::FORM_LOAD() {
  trap("FORM_LOAD", [&] {
    context_.host->resize_for_resolution(*this);
    Check1.setChecked(true);
    CLEARDATA();
    vsf.setCurrent(0);
    LOADGRID();
    showList();
  });
}

void frmjrnl::setPeriod(const std::string& from, const std::string& to) {
  from_ = from;
  to_ = to;
  lblperiod.setCaption("Period: " + from + " - " + to);
  txtdt1[0].setText(from);
  txtdt1[1].setText(to);
}

void frmjrnl::CMDOK_CLICK() {
  trap("CMDOK_CLICK", [&] {
    setPeriod(txtdt1[0].text(), txtdt1[1].text());
    LOADGRID();
  });
}

// --- the outline --------------------------------------------------------------------------------

void frmjrnl::LOADGRID() {
  std::string status = "The vouchers could not be loaded; the error log says why.";
  const long selected = voucherAt(vsf.current());
  bool loaded = false;
  vsf.clearRows();
  trap("LOADGRID", [&] {
    const Busy busy(*context_.host);
    const std::string unbalanced = listVouchers();
    if (!Check1.checked()) CHECK1_CLICK();
    selectVoucher(selected);
    GETROWS();
    status = !booksRead_           ? notLoaded
             : !posting_.settled() ? halfPosted
             : !unbalanced.empty() ? "Debit and credit of the voucher of " + unbalanced +
                                         " differ; please complete or delete it."
             : vsf.rows() == 0 ? "No vouchers in this period."
                               : "";
    loaded = true;
  });
  if (!loaded) vsf.clearRows();
  lblstatus.setCaption(status);
}

// Returns the date of the first voucher that is not complete, "" when all are.
std::string frmjrnl::listVouchers() {
  const auto iso = [&](const std::string& date) {
    return context_.host->escaped(context_.host->formatgen(date, "YYYY-MM-DD"));
  };
  const auto rows =
      context_.query("Select *  from " + journal_ + " LEFT JOIN mast_allgrp on " + journal_ +
                     ".allid=mast_allgrp.allid where " + journal_ + ".code_no='" + client_ +
                     "' and " + journal_ + ".VDate>='" + iso(from_) + "' and " + journal_ +
                     ".VDate<='" + iso(to_) + "' Order by Vdate, VID, Amount Desc");
  const VoucherFields fields(*rows);
  std::unordered_map<long, std::string> names;
  long vid = 0;
  std::string narration;
  std::string unbalanced;
  int heading = 0;
  double sum = 0;
  const auto endVoucher = [&] {
    if (heading == 0) return;
    addNarration(narration, vid);
    if (unbalanced.empty() && rounded(sum) != 0) unbalanced = vsf.cell(heading, dateColumn);
    sum = 0;
  };
  for (; !rows->EOF_(); rows->MoveNext()) {
    const bool first = heading == 0 || rows->integer(fields.vid) != vid;
    if (first) {
      endVoucher();
      heading = vsf.rows() + 1;
    }
    vid = rows->integer(fields.vid);
    narration = rows->text(fields.narration);
    sum += rows->number(fields.amount);
    addVoucherRow(*rows, fields, first, names);
  }
  endVoucher();
  return unbalanced;
}

bool frmjrnl::isOwn(const std::string& code) const {
  return equalIgnoringCase(trimmed(code), trimmed(books_.clientCode));
}

void frmjrnl::addVoucherRow(Recordset& row, const VoucherFields& fields, bool first,
                            std::unordered_map<long, std::string>& names) {
  const long partId = row.integer(fields.partId);
  const auto [name, isNew] = names.try_emplace(partId);
  if (isNew) name->second = properCase(context_.host->GetPart_MastPartId(partId));
  const double amount = row.number(fields.amount);
  const std::string figure = shown(std::fabs(amount));
  const int added = vsf.addRow(
      {first ? context_.host->formatgen(row.text(fields.date), "d-m-yyyy") : std::string(),
       (amount > 0 ? "By " : "To ") + name->second, amount > 0 ? figure : std::string(),
       amount < 0 ? figure : std::string(), row.text(fields.vid)});
  if (first) vsf.setRowEmphasised(added, true);
}

void frmjrnl::addNarration(const std::string& narration, long vid) {
  if (narration.empty()) return;
  vsf.addRow({"", "    " + narration, "", "", std::to_string(vid)});
}

void frmjrnl::CHECK1_CLICK() {
  trap("CHECK1_CLICK", [&] {
    for (int row = 1; row <= vsf.rows(); ++row) {
      if (vsf.rowEmphasised(row)) foldVoucher(row, !Check1.checked());
    }
  });
}

// `heading` is the voucher's first row.
void frmjrnl::foldVoucher(int heading, bool folded) {
  if (headingOf(vsf.current()) == heading && folded) vsf.setCurrent(heading);
  for (int row = heading + 1; row <= vsf.rows() && !vsf.rowEmphasised(row); ++row) {
    vsf.setRowHidden(row, folded);
  }
}

int frmjrnl::headingOf(int row) const {
  while (row > 0 && !vsf.rowEmphasised(row)) --row;
  return row;
}

long frmjrnl::voucherAt(int row) const {
  return row == 0 ? 0 : std::stol(vsf.cell(row, vidColumn));
}

void frmjrnl::selectVoucher(long vid) {
  if (vid != 0) vsf.setCurrent(vsf.find(vidColumn, std::to_string(vid)));
}

// --- one voucher --------------------------------------------------------------------------------

bool frmjrnl::LOADVCH(long vid) {
  bool loaded = false;
  trap("LOADVCH", [&] {
    const auto rows = context_.query("Select * from " + journal_ + " where VID=" + sqlNumber(vid) +
                                     " Order by LSrNo");
    {
      const Filling filling(filling_);
      loaded = fillVoucher(*rows);
    }
    if (!loaded) return;
    vid_ = vid;
    SETTOP();
    GETCURBALS();
  });
  return loaded;
}

// False when no line is the client's own.
bool frmjrnl::fillVoucher(Recordset& rows) {
  const VoucherFields fields(rows);
  int line = 0;
  for (; !rows.EOF_(); rows.MoveNext()) {
    if (!isOwn(rows.text(fields.code))) continue;
    if (line == 0) {
      txtdt.setText(context_.host->convertdate(
          context_.host->formatgen(rows.text(fields.date), "DD/MM/YYYY")));
      txtnarr.setText(rows.text(fields.narration));
    } else {
      LOADCONTROLS();
    }
    fillLine(line++, rows, fields);
  }
  return line > 0;
}

void frmjrnl::fillLine(int line, Recordset& row, const VoucherFields& fields) {
  const LedgerGroup pair =
      posting_.standing({row.integer(fields.partId), row.integer(fields.allId)});
  const double amount = row.number(fields.amount);
  const auto group = groupNames_.find(pair.allId);
  ids_[static_cast<std::size_t>(line)] = {pair, pair.partId};
  putName(txtledger[line], context_.host->GetPart_MastPartId(pair.partId));
  putName(txtgroup[line], group == groupNames_.end() ? std::string() : group->second);
  setSide(line, amount > 0);
  amountBox(line).setText(shown(std::fabs(amount)));
  stored_.add(pair, amount);
}

}  // namespace quillet
