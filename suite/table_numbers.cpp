#include "suite/table_numbers.h"

#include <algorithm>

#include "data/errors.h"

namespace quillet::suite {
namespace {

constexpr long mostTables = 999;
constexpr long usualTables = 40;
constexpr long noSuchTable = 1146;

long highestRegistered(Database& database) {
  try {
    return database.query("select max(count) from master")->integer(0);
  } catch (const RunTimeError& error) {
    if (error.number() != noSuchTable) throw;
    return 0;  // a database that has no tables yet
  }
}

long highestMade(Database& database) {
  return database
      .query(
          "select max(cast(substr(table_name,5) as unsigned)) from information_schema.tables"
          " where table_schema=database() and table_name regexp '^tab_[0-9]+$'")
      ->integer(0);
}

}  // namespace

long tableNumbers(const Settings& settings, Database& database) {
  const auto set = settings.tableCount();
  const long wanted = set ? *set : std::max(usualTables, highestMade(database));
  return std::clamp(std::max(wanted, highestRegistered(database)), 1L, mostTables);
}

}  // namespace quillet::suite
