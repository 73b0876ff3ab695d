#include "books/group_use.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "books/client_years.h"
#include "books/merged_groups.h"
#include "data/year.h"

namespace quillet {
namespace {

const TablePrefixes& placesOfGroups() {
  static const TablePrefixes prefixes{"TAB_", "JRNL_", "TRADE_", "RMGRP_"};
  return prefixes;
}

Sql withMerged(ServiceObject& host, long groupId) {
  const auto merged = MergedGroups(host).predecessors(groupId);
  if (merged.empty()) return "AllId=" + sqlNumber(groupId);
  IdList ids;
  ids.add(groupId);
  for (const long id : merged) ids.add(id);
  return "AllId in (" + ids.sql() + ")";
}

bool standsIn(ServiceObject& host, const Sql& table, const Sql& condition) {
  return !host.query("Select * from " + table + " Where " + condition)->EOF_();
}

}  // namespace

long highestGroupInUse(ServiceObject& host, TableNames& missing) {
  std::vector<Sql> selects{"Select Max(AllId) from AllGrp_Map"};
  for (const YearTable& table : yearTables(host, placesOfGroups(), missing)) {
    selects.push_back((table.prefix == "RMGRP_"
                           ? Sql("Select Max(Greatest(IfNull(OsGrpId,0),IfNull(PurGrpId,0),"
                                 "IfNull(SalGrpId,0),IfNull(CsGrpId,0))) from ")
                           : Sql("Select Max(AllId) from ")) +
                      table.sql());
  }
  long highest = MergedGroups(host).highest();
  queryAll(host, selects,
           [&](const Recordset& row) { highest = std::max(highest, row.integer(0)); });
  return highest;
}

std::string yearTableWithGroup(ServiceObject& host, long groupId, TableNames& missing) {
  const Sql carries = withMerged(host, groupId);
  const Sql binds = sqlNumber(groupId) + " in (OsGrpId,PurGrpId,SalGrpId,CsGrpId)";
  std::string found;
  walkYearTables(host, "Searching for the Group....", placesOfGroups(), missing,
                 [&](const YearTable& table) {
                   if (standsIn(host, table.sql(), table.prefix == "RMGRP_" ? binds : carries)) {
                     found = table.name;
                   }
                   return !found.empty();
                 });
  return found;
}

std::vector<std::string> carriersOf(ServiceObject& host, const std::vector<long>& groupIds,
                                    TableNames& missing) {
  IdList ids(groupIds);
  const MergedGroups earlier(host);
  for (const long id : groupIds) {
    for (const long merged : earlier.predecessors(id)) ids.add(merged);
  }
  std::vector<Sql> selects;
  for (const YearTable& table : yearTables(host, {"JRNL_", "TRADE_"}, missing)) {
    const bool journal = table.prefix == "JRNL_";
    selects.push_back("Select Distinct Code_No," + host.quoted(table.trialBalance) +
                      (journal ? Sql(",'Adj. Entries'") : Sql(",'Closing Stock'")) + " from " +
                      table.sql() + " Where AllId in (" + ids.sql() + ")");
  }
  ClientYears names(host);
  std::map<std::pair<std::string, std::string>, std::set<std::string>> found;
  queryAll(host, selects, [&](const Recordset& row) {
    const YearKeys& year = names.year(row.text(0), row.text(1));
    const std::string period =
        year.first.empty() ? "" : ", " + shownDate(year.first) + " - " + shownDate(year.second);
    found[{names.client(row.text(0)), period}].insert(row.text(2));
  });
  std::vector<std::string> lines;
  for (const auto& [who, kinds] : found) {
    std::string line = who.first + who.second;
    for (const std::string& kind : kinds) line += (kind == *kinds.begin() ? ": " : ", ") + kind;
    lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace quillet
