#include "books/subsidiary.h"

#include <utility>

#include "books/merged_groups.h"

namespace quillet {
namespace {

// A balance stands on the side of its sign.
void place(SubsidiaryFigures& figures, SubsidiaryColumn debitColumn, Money balance) {
  figures[balance > Money() ? debitColumn : debitColumn + 1] = abs(balance);
}

}  // namespace

SubsidiaryFigures figuresOf(const SubsidiaryRow& row) {
  SubsidiaryFigures figures{};
  place(figures, originalDr, row.amt - row.amtDr - row.amtCr);
  figures[subsidiaryDr] = row.amtDr;
  figures[subsidiaryCr] = abs(row.amtCr);
  place(figures, finalDr, row.amt);
  return figures;
}

void addTo(SubsidiaryFigures& total, const SubsidiaryFigures& figures) {
  for (int column = originalDr; column <= finalCr; ++column) total[column] += figures[column];
}

SubsidiaryTrialBalance::SubsidiaryTrialBalance(ServiceObject& host, const ClientTable& books)
    : host_(host), year_(host, books), journal_(host, books), scratch_(host) {}

std::vector<SubsidiaryRow> SubsidiaryTrialBalance::read() {
  scratch_.create(
      "(Part Varchar(100), AllGrp Varchar(100), Amt Double, AmtDr Double, AmtCr Double)");
  collect("sum(Amt),0,0", year_.table(), ".Nid=1");
  collect("-sum(Amt),0,0", year_.table(), ".Nid=2");
  collect("0,sum(Amount),0", journal_.table(), ".Amount>0");
  collect("0,0,sum(Amount)", journal_.table(), ".Amount<0");
  collectMerged();
  scratch_.execute(
      "Insert into Ledger_Temp Select Part,AllGrp,sum(Amt),sum(AmtDr),sum(AmtCr) from "
      "Ledger_Temp1 group by AllGrp,Part");
  scratch_.drop(ScratchTables::collected);
  const auto found = host_.query(
      "select * from Ledger_Temp Where Amt<>0 or AmtDr<>0 or AmtCr<>0 order by allgrp,part");
  std::vector<SubsidiaryRow> rows;
  for (; !found->EOF_(); found->MoveNext()) {
    const auto amount = [&](const char* field) { return Money::rounded(found->number(field)); };
    SubsidiaryRow row{found->text("Part"), found->text("AllGrp"), amount("Amt"), amount("AmtDr"),
                      amount("AmtCr")};
    // What adding in binary leaves over makes no row.
    const bool empty = row.amt.isZero() && row.amtDr.isZero() && row.amtCr.isZero();
    if (!empty) rows.push_back(std::move(row));
  }
  return rows;
}

void SubsidiaryTrialBalance::close() { scratch_.drop(ScratchTables::summed); }

// Selects the names with the given sums of a per-year table's rows.
void SubsidiaryTrialBalance::collect(const Sql& sums, const Sql& table, const Sql& condition) {
  scratch_.execute("Insert into Ledger_Temp1 Select Particular,AllGrp," + sums +
                   ScratchTables::named(table) + ".code_no='" + journal_.client() + "' and " +
                   table + condition + " group by " + table + ".partid," + table + ".allid");
}

// The journal's lines of a group that was merged away, which has no name, go to the group under
// which the trial balance has their ledgers by now.
void SubsidiaryTrialBalance::collectMerged() {
  const Sql& journal = journal_.table();
  const Sql debits = "sum(if(Amount>0,Amount,0))";
  const Sql credits = "sum(if(Amount<0,Amount,0))";
  const MergedGroups groups(host_);
  for (const long id : groups.merged()) {
    const Sql ofGroup = ".allid=" + sqlNumber(id);
    collect("0,-" + debits + ",-" + credits, journal, ofGroup);
    scratch_.execute("Insert into Ledger_Temp1 Select Particular,AllGrp,0," + debits + "," +
                     credits + " from " + journal + " LEFT JOIN mast_part ON " + journal +
                     ".partid=mast_part.partid LEFT JOIN mast_allgrp on mast_allgrp.allid=" +
                     sqlNumber(groups.successor(id)) + " where " + journal + ".code_no='" +
                     journal_.client() + "' and " + journal + ofGroup + " group by " + journal +
                     ".partid");
  }
}

}  // namespace quillet
