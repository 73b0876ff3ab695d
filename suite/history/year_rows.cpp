#include "suite/history/year_rows.h"

#include <algorithm>
#include <map>

#include "data/text.h"
#include "data/year.h"
#include "suite/history/inserted_rows.h"
#include "suite/history/written_table.h"
#include "suite/schema_tables.h"

namespace quillet::suite {
namespace {

// The columns by which the shared tables tell the year: the second one of their first index.
const std::map<std::string, std::string>& yearColumns() {
  static const std::map<std::string, std::string> columns = [] {
    std::map<std::string, std::string> made;
    for (const TableDefinition& table : sharedTables()) {
      if (!table.versioned || table.indexes.empty()) continue;
      const std::string& index = table.indexes.front();
      const std::string column = lowered(index.substr(std::min(index.find(',') + 1, index.size())));
      for (const char* year : {"s_yr", "fyear", "fyr", "yr", "rcount"}) {
        if (column == year) made[lowered(table.name)] = column;
      }
    }
    made.erase("suiteyearlock");
    return made;
  }();
  return columns;
}

// How the table tells a year: by its suffix, or in a column beside the client.
class YearsOfTable {
 public:
  explicit YearsOfTable(const std::string& table)
      : suffix_(yearSuffix(table)), trialBalance_("TAB_" + suffix_) {
    const auto found = yearColumns().find(table);
    if (suffix_.empty() && found != yearColumns().end()) column_ = found->second;
  }

  std::string columns() const { return suffix_.empty() ? "code_no," + column_ : "code_no"; }
  bool holdsAny(const std::vector<LockedYear>& years) const {
    return std::ranges::any_of(years, [this](const LockedYear& year) { return holds(year); });
  }
  // Those of the years that it holds, as such columns; "" for none.
  std::string values(const Database& database, const std::vector<LockedYear>& years) const {
    std::string list;
    for (const LockedYear& year : years) {
      if (!holds(year)) continue;
      const std::string client = '\'' + database.escape(year.client) + '\'';
      list += (list.empty() ? "" : ",") +
              (suffix_.empty() ? '(' + client + ",'" + valueOf(year) + "')" : client);
    }
    return list;
  }
  std::optional<LockedYear> yearOf(const Recordset& row,
                                   const std::vector<LockedYear>& years) const {
    const auto found = std::ranges::find_if(years, [&](const LockedYear& year) {
      return holds(year) && equalIgnoringCase(year.client, row.text(0)) &&
             (!suffix_.empty() || row.text(1) == valueOf(year));
    });
    return found == years.end() ? std::nullopt : std::optional(*found);
  }

 private:
  bool holds(const LockedYear& year) const {
    return suffix_.empty() ? !column_.empty() : equalIgnoringCase(year.table, trialBalance_);
  }
  std::string valueOf(const LockedYear& year) const {
    if (column_ == "s_yr") return year.secondDate;
    return std::to_string(column_ == "rcount" ? year.number : quillet::yearOf(year.secondDate));
  }

  std::string suffix_;
  std::string trialBalance_;
  std::string column_;  // "" where there is none
};

// The first of the years with a row, standing or former, that meets the condition.
std::optional<LockedYear> yearWhere(Database& database, const std::string& table,
                                    const std::vector<LockedYear>& years,
                                    const std::string& condition) {
  const YearsOfTable ofTable(table);
  const std::string values = ofTable.values(database, years);
  if (values.empty()) return std::nullopt;
  const std::string columns = ofTable.columns();
  const RecordsetPtr rows =
      database.query("select " + columns + " from `" + table + "` for system_time all where (" +
                     columns + ") in (" + values + ") and " + condition + " limit 1");
  return rows->EOF_() ? std::nullopt : ofTable.yearOf(*rows, years);
}

}  // namespace

std::optional<LockedYear> yearChanged(Database& database, const std::string& table, Instant at,
                                      const std::vector<LockedYear>& years) {
  const std::string instant = '\'' + instantText(at) + '\'';
  return yearWhere(database, table, years,
                   "(row_from=" + instant + " or row_till=" + instant + ") and row_from<>row_till");
}

std::optional<LockedYear> yearEnded(Database& database, const std::string& table, Instant at,
                                    const std::vector<LockedYear>& years) {
  const std::string instant = '\'' + instantText(at) + '\'';
  return yearWhere(database, table, years, "row_till=" + instant + " and row_from<>" + instant);
}

// The rows are found by their numbers alone: a list of hundreds of clients costs more than the rest
// of a commit.
std::optional<LockedYear> yearBegun(Database& database, const std::string& table, Instant at,
                                    const std::vector<LockedYear>& years, bool shared) {
  const YearsOfTable ofTable(table);
  if (!ofTable.holdsAny(years)) return std::nullopt;
  const RecordsetPtr begun =
      database.query("select distinct " + ofTable.columns() + " from `" + table +
                     "` force index(primary) where " + insertedAt(table, at, shared));
  for (; !begun->EOF_(); begun->MoveNext()) {
    if (auto year = ofTable.yearOf(*begun, years)) return year;
  }
  return std::nullopt;
}

// --- groups -------------------------------------------------------------------------------------

std::optional<LockedYear> yearRegrouped(Database& database, Instant at,
                                        const std::vector<LockedYear>& years) {
  const std::string instant = '\'' + instantText(at) + '\'';
  const RecordsetPtr groups = database.query(
      "select distinct b.ALLID from Mast_AllGrp for system_time all b join Mast_AllGrp for "
      "system_time all e on e.ALLID=b.ALLID and e.GID<>b.GID and e.row_till=" +
      instant + " and e.row_from<" + instant + " where b.row_from=" + instant);
  std::string ids;
  for (; !groups->EOF_(); groups->MoveNext()) ids += (ids.empty() ? "" : ",") + groups->text(0);
  if (ids.empty()) return std::nullopt;
  const std::string in = " in (" + ids + ')';
  for (const LockedYear& year : years) {
    const std::string suffix = yearSuffix(year.table);
    if (suffix.empty()) continue;
    const std::string whose = " where code_no='" + database.escape(year.client) + "' and (";
    std::string carrying = "select 1 from RMGRP_" + suffix + whose;
    for (const char* column : {"OsGrpId", "PurGrpId", "SalGrpId"}) carrying += column + in + " or ";
    carrying += "CsGrpId" + in + ')';
    for (const char* prefix : {"TAB_", "JRNL_", "TRADE_"}) {
      carrying += " union all select 1 from " + (prefix + suffix) + whose + "AllId" + in + ')';
    }
    if (!database.query(carrying + " limit 1")->EOF_()) return year;
  }
  return std::nullopt;
}

}  // namespace quillet::suite
