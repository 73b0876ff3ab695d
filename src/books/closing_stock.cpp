#include "books/closing_stock.h"

#include "books/all_or_nothing.h"
#include "books/ledger_list.h"
#include "books/primary_groups.h"
#include "data/sql.h"
#include "data/table_names.h"

namespace quillet {

std::string stockTable(const std::string& trialBalanceTable) {
  return siblingTable(trialBalanceTable, "TRADE_");
}

Sql stockInsert(const Sql& table, const Sql& client, LedgerGroup pair, Money amount) {
  return "insert into " + table + "(code_no,partid,allid,amt) values(" + client + "," +
         sqlNumber(pair.partId) + "," + sqlNumber(pair.allId) + "," + sqlNumber(amount.rupees()) +
         ")";
}

ClosingStock::ClosingStock(ServiceObject& host, const ClientTable& books)
    : host_(host), table_(sqlName(books.table)), client_(host.escaped(books.client)) {}

std::vector<ClosingStock::Line> ClosingStock::lines() const {
  const auto rows = host_.query(
      "select ifnull(partid,0),ifnull(allid,0),sum(amt),(select min(g.allgrp) from "
      "mast_allgrp g where g.allid=t.allid) from " +
      table_ + " t where code_no='" + client_ + "' group by 1,2 order by 1,2");
  std::vector<Line> lines;
  for (; !rows->EOF_(); rows->MoveNext()) {
    lines.push_back({{rows->integer(0), rows->integer(1)}, rows->text(3), rows->number(2)});
  }
  return lines;
}

double ClosingStock::total() const {
  const auto row =
      host_.query("Select sum(amt) from " + table_ + " Where Code_No='" + client_ + "'");
  return row->EOF_() ? 0 : row->number(0);
}

void ClosingStock::save(LedgerGroup pair, Money amount, const std::optional<LedgerGroup>& altered) {
  std::vector<Sql> statements;
  if (altered && *altered != pair) statements.push_back("delete from " + table_ + rowsOf(*altered));
  statements.push_back("delete from " + table_ + rowsOf(pair));
  if (altered != pair) {
    const auto stored = host_.query("select sum(amt) from " + table_ + rowsOf(pair));
    amount = Money::rounded(amount.rupees() + stored->number(0));
  }
  statements.push_back(stockInsert(table_, "'" + client_ + "'", pair, amount));
  change(statements);
}

void ClosingStock::remove(LedgerGroup pair) { change({"delete from " + table_ + rowsOf(pair)}); }

Sql ClosingStock::rowsOf(LedgerGroup pair) const {
  return " where code_no='" + client_ + "' and ifnull(partid,0)=" + sqlNumber(pair.partId) +
         " and ifnull(allid,0)=" + sqlNumber(pair.allId);
}

void ClosingStock::change(const std::vector<Sql>& statements) {
  AllOrNothing part(host_);
  for (const Sql& statement : statements) host_.ConQuery(statement);
  part.keep();
}

NameList stockGroups(ServiceObject& host) {
  return namesIn(*host.query("select allgrp from mast_allgrp where gid=" +
                             sqlNumber(static_cast<int>(PrimaryGroup::closingStock)) +
                             " order by allgrp"));
}

NameList stockLedgers(ServiceObject& host) {
  return namesIn(*host.query("select distinct particular from mast_part order by particular"));
}

}  // namespace quillet
