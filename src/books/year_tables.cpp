#include "books/year_tables.h"

#include <algorithm>
#include <unordered_set>

#include "books/registry.h"
#include "data/errors.h"
#include "data/table_names.h"
#include "data/text.h"
#include "ports/busy.h"

namespace quillet {
namespace {

// So many selects go into one statement: few statements, none of which opens thousands of tables.
constexpr std::size_t selectsAtOnce = 200;

std::unordered_set<std::string> tablesThere(ServiceObject& host) {
  std::unordered_set<std::string> names;
  const auto rows = host.query("Show Tables");
  for (; !rows->EOF_(); rows->MoveNext()) names.insert(upperCase(rows->text(0)));
  return names;
}

// Asked after a failure, whose number is the database's own or that of what stands in between.
bool isMissing(ServiceObject& host, const std::string& table) {
  try {
    return !tablesThere(host).contains(upperCase(table));
  } catch (const RunTimeError&) {
    return false;
  }
}

YearTable tableOf(const std::string& trialBalance, std::string_view prefix) {
  const bool itself = prefix == trialBalancePrefix;
  return {trialBalance, prefix, itself ? trialBalance : siblingTable(trialBalance, prefix)};
}

}  // namespace

void onTable(ServiceObject& host, const std::string& table, TableNames& missing,
             const std::function<void()>& work) {
  try {
    work();
  } catch (const RunTimeError&) {
    // The work may ask other tables too.
    if (!isMissing(host, table)) throw;
    missing.push_back(upperCase(table));
  }
}

bool walkYearTables(ServiceObject& host, const std::string& text, const TablePrefixes& prefixes,
                    TableNames& missing, const std::function<bool(const YearTable& table)>& visit) {
  const Busy busy(host, text);
  const std::vector<std::string> trialBalances = Registry(host).tables();
  Progress& progress = host.objProgress();
  progress.Max(static_cast<long>(trialBalances.size()));
  for (const std::string& trialBalance : trialBalances) {
    for (const std::string_view prefix : prefixes) {
      if (trialBalance.empty()) break;
      const YearTable table = tableOf(trialBalance, prefix);
      bool found = false;
      onTable(host, table.name, missing, [&] { found = visit(table); });
      if (found) return true;
    }
    progress.update_pg();
  }
  return false;
}

std::vector<YearTable> yearTables(ServiceObject& host, const TablePrefixes& prefixes,
                                  TableNames& missing) {
  const auto there = tablesThere(host);
  std::vector<YearTable> tables;
  for (const std::string& trialBalance : Registry(host).tables()) {
    for (const std::string_view prefix : prefixes) {
      if (trialBalance.empty()) break;
      YearTable table = tableOf(trialBalance, prefix);
      if (there.contains(upperCase(table.name))) {
        tables.push_back(std::move(table));
      } else {
        missing.push_back(upperCase(table.name));
      }
    }
  }
  return tables;
}

void queryAll(ServiceObject& host, const std::vector<Sql>& selects,
              const std::function<void(const Recordset& row)>& read) {
  for (std::size_t from = 0; from < selects.size(); from += selectsAtOnce) {
    Sql sql = selects[from];
    const std::size_t end = std::min(selects.size(), from + selectsAtOnce);
    for (std::size_t i = from + 1; i < end; ++i) sql += " Union All " + selects[i];
    for (const auto rows = host.query(sql); !rows->EOF_(); rows->MoveNext()) read(*rows);
  }
}

}  // namespace quillet
