#include "suite/history/year_tables.h"

#include <algorithm>
#include <utility>

#include "suite/history/written_table.h"

namespace quillet::suite {

std::vector<YearTables> tablesOver(UnitOfWork& unit, const ClientYear& year) {
  const RecordsetPtr rows = unit.query(versionsOf("tbl_nm,%f,%t from master") + " and code_no='" +
                                       unit.escape(year.client) + "' and s_yr='" +
                                       unit.escape(year.secondDate) + "' order by row_from");
  std::vector<YearTables> over;
  for (; !rows->EOF_(); rows->MoveNext()) {
    std::string suffix = yearSuffix(rows->text(0));
    if (suffix.empty()) continue;
    const YearTables tables{std::move(suffix), rows->integer(1), rows->integer(2)};
    // The row itself may have changed while the year stayed where it was.
    if (!over.empty() && over.back().suffix == tables.suffix && tables.from <= over.back().till) {
      over.back().till = std::max(over.back().till, tables.till);
    } else {
      over.push_back(tables);
    }
  }
  return over;
}

std::optional<std::string> tablesAt(const std::vector<YearTables>& over, Instant at) {
  for (const YearTables& tables : over) {
    if (tables.from <= at && at < tables.till) return tables.suffix;
  }
  return std::nullopt;
}

std::vector<YearEver> yearsEver(UnitOfWork& unit, const std::string& client) {
  const RecordsetPtr rows = unit.query(
      "select f_yr,s_yr,max(row_till>now(6)) from master for system_time all where"
      " code_no='" +
      unit.escape(client) + "' group by f_yr,s_yr order by substr(s_yr,5)");
  std::vector<YearEver> years;
  for (; !rows->EOF_(); rows->MoveNext()) {
    years.push_back({rows->text(0), rows->text(1), rows->integer(2) != 0});
  }
  return years;
}

Instant historyBegins(UnitOfWork& unit) {
  const RecordsetPtr first = unit.query("select min(At) from SuiteAct");
  return instantFrom(first->text(0));
}

}  // namespace quillet::suite
