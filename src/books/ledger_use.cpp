#include "books/ledger_use.h"

#include "books/client_years.h"
#include "books/linked_ledgers.h"
#include "books/posting.h"

namespace quillet {
namespace {

constexpr const char* searching = "Searching Ledgers in Use....";

// The tables of a year in which a ledger can stand.
const TablePrefixes& placesOfUse() {
  static const TablePrefixes prefixes{"TAB_", "JRNL_", "TRADE_"};
  return prefixes;
}

const char* kindOf(const YearTable& table) {
  return table.prefix == "TAB_"    ? "Trial Balance"
         : table.prefix == "JRNL_" ? "Adj. Entries"
                                   : "Closing Stock";
}

void replaceInAllYears(ServiceObject& host, UnpostedChanges& unposted, const std::vector<long>& ids,
                       const Sql& condition, long by, TableNames& missing) {
  postAllMissing(host, unposted);
  LinkedLedgers(host).keep(ids, by);
  const Sql change = " Set PartId=" + sqlNumber(by) + " Where PartId" + condition;
  walkYearTables(host, "Replacing Ledgers....", placesOfUse(), missing,
                 [&](const YearTable& table) {
                   host.ConQuery("Update " + table.sql() + change);
                   return false;
                 });
}

}  // namespace

bool findLedgersInUse(ServiceObject& host, TableNames& missing,
                      const std::function<void(long id)>& found) {
  IdList known;
  return !walkYearTables(host, searching, placesOfUse(), missing, [&](const YearTable& table) {
    Sql sql = "Select Distinct PartId From " + table.sql();
    if (!known.empty()) sql += " Where PartId Not In (" + known.sql() + ")";
    for (const auto rows = host.query(sql); !rows->EOF_(); rows->MoveNext()) {
      if (!rows->field(0)) continue;
      const long id = rows->integer(0);
      known.add(id);
      found(id);
    }
    return host.objProgress().stopped();
  });
}

bool ledgerInUse(ServiceObject& host, long id, TableNames& missing) {
  return walkYearTables(host, searching, placesOfUse(), missing, [&](const YearTable& table) {
    const Sql sql = "Select PartId From " + table.sql() + " Where PartId=" + sqlNumber(id);
    return !host.query(sql)->EOF_();
  });
}

std::vector<LedgerUse> usesOf(ServiceObject& host, const std::vector<long>& ids,
                              TableNames& missing) {
  const Sql condition = " Where PartId in (" + IdList(ids).sql() + ")";
  std::vector<LedgerUse> uses;
  ClientYears names(host);
  walkYearTables(host, searching, placesOfUse(), missing, [&](const YearTable& table) {
    const Sql fields =
        table.prefix == "TAB_" ? Sql("Distinct(Code_No),PartId") : Sql("Distinct(Code_No)");
    const auto rows = host.query("Select " + fields + " From " + table.sql() + condition);
    for (; !rows->EOF_(); rows->MoveNext()) {
      const std::string code = rows->text(0);
      const std::string& client = names.client(code);
      const YearKeys& year = names.year(code, table.trialBalance);
      uses.push_back(
          {client, year.first.empty() ? "" : year.first + "-" + year.second, kindOf(table)});
    }
    return false;
  });
  return uses;
}

void replaceLedger(ServiceObject& host, UnpostedChanges& unposted, long id, long by,
                   TableNames& missing) {
  replaceInAllYears(host, unposted, {id}, "=" + sqlNumber(id), by, missing);
}

void replaceLedgers(ServiceObject& host, UnpostedChanges& unposted, const std::vector<long>& ids,
                    long by, TableNames& missing) {
  replaceInAllYears(host, unposted, ids, " In (" + IdList(ids).sql() + ")", by, missing);
}

}  // namespace quillet
