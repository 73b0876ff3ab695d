#include "books/trial_balance.h"

#include <algorithm>

namespace quillet {

TrialBalance::TrialBalance(ServiceObject& host, const ClientTable& books)
    : host_(host),
      books_(books),
      table_(sqlName(books.table)),
      client_(host.escaped(books.client)) {}

// --- reading ------------------------------------------------------------------------------------

std::vector<Line> TrialBalance::lines() {
  return readLines(*host_.query("Select * From " + table_ + " where code_no='" + client_ + "'"));
}

std::vector<Line> TrialBalance::linesOf(LedgerGroup pair, Spelling spelling) {
  return readLines(*host_.query(spelling == Spelling::editor
                                    ? "select * from " + table_ + " where code_no='" + client_ +
                                          "' and partid = " + sqlNumber(pair.partId) +
                                          " and allid = " + sqlNumber(pair.allId)
                                    : "Select * from " + ofPair(pair)));
}

// "{table} where ..." as the journal spells it.
Sql TrialBalance::ofPair(LedgerGroup pair) const {
  return table_ + " where code_no='" + client_ + "' and PartId=" + sqlNumber(pair.partId) +
         " and allid=" + sqlNumber(pair.allId);
}

std::vector<Line> TrialBalance::linesOfGroup(long allId, long side) {
  return readLines(*host_.query("Select " + table_ + ".* from " + table_ +
                                " LEFT JOIN mast_allgrp on " + table_ +
                                ".allid=mast_allgrp.allid where " + table_ + ".code_no='" +
                                client_ + "' and mast_allgrp.allid=" + sqlNumber(allId) + " and " +
                                table_ + ".nid=" + sqlNumber(side)));
}

long TrialBalance::groupOf(long partId) {
  const auto rows = host_.query("Select AllId From " + table_ + " Where code_no='" + client_ +
                                "' and PartId=" + sqlNumber(partId) + " Order By srno Limit 1");
  return rows->EOF_() ? 0 : rows->integer(0);
}

std::vector<NamedId> TrialBalance::groups() {
  const auto rows =
      host_.query("Select distinct mast_allgrp.allid, mast_allgrp.allgrp from " + table_ +
                  " INNER JOIN mast_allgrp on " + table_ + ".allid=mast_allgrp.allid and " +
                  table_ + ".code_no = '" + client_ + "' order by allgrp");
  std::vector<NamedId> groups;
  for (; !rows->EOF_(); rows->MoveNext()) groups.push_back({rows->integer(0), rows->text(1)});
  return groups;
}

long TrialBalance::nextSerial() {
  return host_
             .query("select max(srno) as maxsr from " + table_ + " where code_no = '" + client_ +
                    "'")
             ->integer("maxsr") +
         1;
}

// --- changes ------------------------------------------------------------------------------------

void TrialBalance::removePair(LedgerGroup pair) { host_.ConQuery("Delete from " + ofPair(pair)); }

void TrialBalance::insert(const Line& line) {
  host_.ConQuery("insert into " + table_ + " values(" + sqlNumber(line.srno) + ",'" + client_ +
                 "'," + sqlNumber(line.partId) + "," + sqlNumber(line.allId) + "," +
                 sqlNumber(line.amount) + "," + sqlNumber(line.nid) + ")");
}

void TrialBalance::takeOut(const Line& line, const std::vector<Line>& lines) {
  host_.ConQuery("Delete from " + table_ + rowOf(line, lines));
}

void TrialBalance::remove(const Line& line, const std::vector<Line>& lines) {
  host_.change("delete from " + table_ + rowOf(line, lines));
}

void TrialBalance::moveTo(long allId, const Line& line, const std::vector<Line>& lines) {
  host_.change("Update " + table_ + " set allid=" + sqlNumber(allId) + rowOf(line, lines),
               "Flush Tables");
}

void TrialBalance::copyFrom(const TrialBalance& other) {
  host_.change("Insert into " + table_ + " select * from " + other.table_ + " where code_no='" +
                   client_ + "'",
               "Flush Tables");
}

// What picks the line's row: its serial number, and all that it holds where it has none, shares it,
// or may share it since it is not among the lines.
Sql TrialBalance::rowOf(const Line& line, const std::vector<Line>& lines) const {
  const Sql ofClient = " where code_no='" + client_ + "' and ";
  const auto sharing = std::count_if(lines.begin(), lines.end(),
                                     [&](const Line& other) { return other.srno == line.srno; });
  if (line.srno != 0 && sharing == 1) return ofClient + "srno=" + sqlNumber(line.srno);
  return ofClient + "ifnull(srno,0)=" + sqlNumber(line.srno) +
         " and ifnull(partid,0)=" + sqlNumber(line.partId) +
         " and ifnull(allid,0)=" + sqlNumber(line.allId) +
         " and ifnull(amt,0)=" + sqlNumber(line.amount) +
         " and ifnull(nid,0)=" + sqlNumber(line.nid) + " limit 1";
}

PairBalances balancesOf(const std::vector<Line>& lines) {
  PairBalances balances;
  for (const Line& line : lines) {
    balances[{line.partId, line.allId}] += Money::rounded(line.balance());
  }
  std::erase_if(balances, [](const auto& each) { return each.second.isZero(); });
  return balances;
}

Sql lineInsert(const Sql& table, const Sql& client, const Line& line) {
  return "insert into " + table + "(srno,code_no,partid,allid,amt,nid) values(" +
         sqlNumber(line.srno) + "," + client + "," + sqlNumber(line.partId) + "," +
         sqlNumber(line.allId) + "," + sqlNumber(line.amount) + "," + sqlNumber(line.nid) + ")";
}

}  // namespace quillet
