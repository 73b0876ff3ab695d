// The journal's printouts: the list of vouchers as it stands, and the subsidiary trial balance.
#include "books/merged_groups.h"
#include "books/scratch_tables.h"
#include "books/subsidiary.h"
#include "data/sql.h"
#include "host/report.h"
#include "journal/form_parts.h"
#include "journal/frmjrnl.h"
#include "ports/busy.h"

namespace quillet {
namespace {

constexpr char columnsOfSums[] =
    "(Part Varchar(100), AllGrp Varchar(100), Amt Double, AmtDr Double, AmtCr Double)";
constexpr const char* absent = "-";

enum Alignment { left = 0, right = 1, center = 2 };

// How a kind of row looks: the four masks that go with its cells.
struct Masks {
  const char* rules;
  const char* emphasis;
  const char* last;
  const char* printed;
  bool heading = false;
  Alignment amounts = right;
};

constexpr Masks listHeading{"1111", "1111", "0001", "1111", true};
constexpr Masks listRow{"0", "0", "0001", "1111"};
constexpr Masks listFirstRow{"1111", "0", "0001", "1111"};
constexpr Masks blockHeading{"0111", "1111", "0001", "1111", true, center};
constexpr Masks columnHeading{"1111111", "0", "0000001", "1111111", true};
constexpr Masks ledgerRow{"0", "0", "0000001", "1111111"};
constexpr Masks groupTotal{"0111111", "0111111", "0000001", "1111111"};
constexpr Masks grandTotal{"1111111", "1111111", "0000001", "1111111"};

// Writes a row: texts in the first `texts` cells, amounts in the others.
void write(Reporter& reporter, std::vector<std::string> cells, std::size_t texts,
           const Masks& masks) {
  ReportRow row;
  row.alignments.assign(cells.size(), masks.amounts);
  for (std::size_t i = 0; i < texts; ++i) row.alignments[i] = left;
  row.widths.assign(cells.size(), 0);
  row.before.assign(cells.size(), "");
  row.after.assign(cells.size(), "");
  row.values = std::move(cells);
  row.heading = masks.heading;
  row.rules = masks.rules;
  row.emphasis = masks.emphasis;
  row.last = masks.last;
  row.printed = masks.printed;
  WriteToReport(reporter, row);
}

// Selects the names with the given sums of a per-year table's rows.
Sql collect(const Sql& sums, const Sql& table, const Sql& client, const Sql& condition) {
  return "Insert into Ledger_Temp1 Select Particular,AllGrp," + sums + ScratchTables::named(table) +
         ".code_no='" + client + "' and " + table + condition + " group by " + table + ".partid," +
         table + ".allid";
}

}  // namespace

void frmjrnl::beginReport(const std::string& heading, int columns) {
  context_.reporter->WinModeReport(true);
  context_.reporter->NewReport();
  context_.reporter->printtext(heading);
  context_.reporter->CreateTable(1, columns);
}

std::string frmjrnl::headingOfPeriod(const std::string& what, const std::string& from,
                                     const std::string& to) const {
  return what + " of " + context_.host->COMPANY_NAME() + " for the Period from " + from + " to " +
         to;
}

// --- the list of vouchers -----------------------------------------------------------------------

void frmjrnl::CMDPRN_CLICK() {
  trap("CMDPRN_CLICK", [&] {
    if (vsf.rows() == 0) {
      tell("No records available.");
      return;
    }
    beginReport(headingOfPeriod("Adjustment Entries Passed", from_, to_), 4);
    write(*context_.reporter, {"Date", "Particulars", "Debit Amount", "Credit Amount"}, 2,
          listHeading);
    for (int row = 1; row <= vsf.rows(); ++row) {
      write(*context_.reporter,
            {vsf.cell(row, dateColumn), vsf.cell(row, particularsColumn),
             vsf.cell(row, debitColumn), vsf.cell(row, creditColumn)},
            2, vsf.rowEmphasised(row) ? listFirstRow : listRow);
    }
    context_.reporter->ShowReport();
  });
}

// --- the subsidiary trial balance ---------------------------------------------------------------

void frmjrnl::CMDTB_CLICK() {
  // What the line at the foot says of the last failure holds no more.
  const bool toldOfFailure = !posting_.settled() || lblstatus.caption() == notPrinted;
  bool done = false;
  trap("CMDTB_CLICK", [&] {
    const Busy busy(*context_.host);
    // What stands in the journal and not in the trial balance would count as original.
    posting_.settle();
    ScratchTables scratch(*context_.host);
    scratch.create(columnsOfSums);
    scratch.execute(collect("sum(Amt),0,0", table_, client_, ".Nid=1"));
    scratch.execute(collect("-sum(Amt),0,0", table_, client_, ".Nid=2"));
    scratch.execute(collect("0,sum(Amount),0", journal_, client_, ".Amount>0"));
    scratch.execute(collect("0,0,sum(Amount)", journal_, client_, ".Amount<0"));
    collectMerged(scratch);
    scratch.execute(
        "Insert into Ledger_Temp Select Part,AllGrp,sum(Amt),sum(AmtDr),sum(AmtCr) from "
        "Ledger_Temp1 group by AllGrp,Part");
    scratch.drop(ScratchTables::collected);
    const std::vector<SubsidiaryRow> rows = readSubsidiary();
    if (rows.empty()) {
      tell("No records available.");
    } else {
      printSubsidiary(rows);
    }
    done = true;
    scratch.drop(ScratchTables::summed);
  });
  if (toldOfFailure) LOADGRID();
  if (!done) lblstatus.setCaption(notPrinted);
}

// The journal's lines of a group that was merged away, which has no name, go to the group under
// which the trial balance has their ledgers by now.
void frmjrnl::collectMerged(ScratchTables& scratch) {
  const Sql debit = "sum(if(Amount>0,Amount,0))";
  const Sql credit = "sum(if(Amount<0,Amount,0))";
  const MergedGroups groups(*context_.host);
  for (const long id : groups.merged()) {
    const Sql ofGroup = ".allid=" + sqlNumber(id);
    scratch.execute(collect("0,-" + debit + ",-" + credit, journal_, client_, ofGroup));
    scratch.execute("Insert into Ledger_Temp1 Select Particular,AllGrp,0," + debit + "," + credit +
                    " from " + journal_ + " LEFT JOIN mast_part ON " + journal_ +
                    ".partid=mast_part.partid LEFT JOIN mast_allgrp on mast_allgrp.allid=" +
                    sqlNumber(groups.successor(id)) + " where " + journal_ + ".code_no='" +
                    client_ + "' and " + journal_ + ofGroup + " group by " + journal_ + ".partid");
  }
}

// Sums of whole paise: what adding in binary leaves over makes no row.
std::vector<SubsidiaryRow> frmjrnl::readSubsidiary() {
  const auto rows = context_.query(
      "select * from Ledger_Temp Where Amt<>0 or AmtDr<>0 or AmtCr<>0 order by allgrp,part");
  std::vector<SubsidiaryRow> all;
  for (; !rows->EOF_(); rows->MoveNext()) {
    SubsidiaryRow row{rows->text("Part"), rows->text("AllGrp"), rounded(rows->number("Amt")),
                      rounded(rows->number("AmtDr")), rounded(rows->number("AmtCr"))};
    if (row.amt != 0 || row.amtDr != 0 || row.amtCr != 0) all.push_back(std::move(row));
  }
  return all;
}

void frmjrnl::printSubsidiary(const std::vector<SubsidiaryRow>& rows) {
  const Rounding round = [&](double amount) { return rounded(amount); };
  const auto writeFigures = [&](const std::string& name, const SubsidiaryFigures& figures,
                                const std::string& zero, const Masks& masks) {
    std::vector<std::string> cells{name};
    for (const double figure : figures) cells.push_back(figure == 0 ? zero : shown(figure));
    write(*context_.reporter, std::move(cells), 1, masks);
  };
  beginReport(headingOfPeriod("Subsidiary Trial Balance", yearFrom(), yearTo()), 7);
  write(*context_.reporter, {"Particular", "Original", "Subsidiary", "Final"}, 1, blockHeading);
  write(*context_.reporter,
        {"", "Amount (Dr.)", "Amount (Cr.)", "Amount (Dr.)", "Amount (Cr.)", "Amount (Dr.)",
         "Amount (Cr.)"},
        1, columnHeading);

  std::optional<std::string> group;
  SubsidiaryFigures ofGroup{};
  SubsidiaryFigures ofAll{};
  for (const SubsidiaryRow& row : rows) {
    if (group != row.group) {
      if (group) writeFigures("Total", ofGroup, absent, groupTotal);
      write(*context_.reporter, {row.group, "", "", "", "", "", ""}, 1, ledgerRow);
      group = row.group;
      ofGroup = {};
    }
    const SubsidiaryFigures figures = figuresOf(row, round);
    addTo(ofGroup, figures, round);
    addTo(ofAll, figures, round);
    writeFigures(row.ledger, figures, absent, ledgerRow);
  }
  writeFigures("Total", ofGroup, absent, groupTotal);
  writeFigures("Grant Total", ofAll, shown(0), grandTotal);
  context_.reporter->ShowReport();
}

}  // namespace quillet
