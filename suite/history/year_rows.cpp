#include "suite/history/year_rows.h"

#include <algorithm>
#include <cctype>
#include <map>

#include "data/text.h"
#include "data/year.h"
#include "suite/history/written_table.h"
#include "suite/schema_tables.h"

namespace quillet::suite {
namespace {

constexpr Instant day = 24LL * 3600 * 1'000'000;

std::string lower(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

// The columns by which the shared tables tell the year: the second one of their first index.
const std::map<std::string, std::string>& yearColumns() {
  static const std::map<std::string, std::string> columns = [] {
    std::map<std::string, std::string> made;
    for (const TableDefinition& table : sharedTables()) {
      if (!table.versioned || table.indexes.empty()) continue;
      const std::string& index = table.indexes.front();
      const std::string column = lower(index.substr(std::min(index.find(',') + 1, index.size())));
      for (const char* year : {"s_yr", "fyear", "fyr", "yr", "rcount"}) {
        if (column == year) made[lower(table.name)] = column;
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
  explicit YearsOfTable(const std::string& table) : suffix_(yearSuffix(table)) {
    const auto found = yearColumns().find(table);
    if (suffix_.empty() && found != yearColumns().end()) column_ = found->second;
  }

  std::string columns() const { return suffix_.empty() ? "code_no," + column_ : "code_no"; }
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
    return suffix_.empty() ? !column_.empty() : equalIgnoringCase(year.table, "TAB_" + suffix_);
  }
  std::string valueOf(const LockedYear& year) const {
    if (column_ == "s_yr") return year.secondDate;
    return std::to_string(column_ == "rcount" ? year.number : quillet::yearOf(year.secondDate));
  }

  std::string suffix_;
  std::string column_;  // "" where there is none
};

}  // namespace

std::optional<LockedYear> yearChanged(Database& database, const std::string& table, Instant at,
                                      const std::vector<LockedYear>& years) {
  const YearsOfTable ofTable(table);
  const std::string values = ofTable.values(database, years);
  if (values.empty()) return std::nullopt;
  const std::string columns = ofTable.columns();
  const std::string instant = '\'' + instantText(at) + '\'';
  const RecordsetPtr changed =
      database.query("select " + columns + " from `" + table + "` for system_time all where (" +
                     columns + ") in (" + values + ") and (row_from=" + instant +
                     " or row_till=" + instant + ") and row_from<>row_till limit 1");
  return changed->EOF_() ? std::nullopt : ofTable.yearOf(*changed, years);
}

std::optional<LockedYear> yearChangedNow(Database& database, const std::string& table, Instant at,
                                         const std::vector<LockedYear>& years, bool shared) {
  const YearsOfTable ofTable(table);
  const std::string columns = ofTable.columns();
  const std::string values = ofTable.values(database, years);
  if (values.empty()) return std::nullopt;
  const std::string instant = '\'' + instantText(at) + '\'';
  const std::string wanted = " where (" + columns + ") in (" + values + ')';
  const RecordsetPtr ended =
      database.query("select " + columns + " from `" + table + "` for system_time all" + wanted +
                     " and row_till=" + instant + " and row_from<>" + instant + " limit 1");
  if (!ended->EOF_()) return ofTable.yearOf(*ended, years);
  // Where nothing ended, what began was inserted: it has the highest numbers. On a server others
  // may have inserted between, though not since yesterday.
  const std::string older =
      shared ? "row_from<'" + instantText(at - day) + '\'' : "row_from<>" + instant;
  const RecordsetPtr begun = database.query(
      "select " + columns + " from `" + table + '`' + wanted + " and row_from=" + instant +
      " and row_id>(select coalesce((select row_id from `" + table + "` where " + older +
      " order by row_id desc limit 1),0)) limit 1");
  return begun->EOF_() ? std::nullopt : ofTable.yearOf(*begun, years);
}

}  // namespace quillet::suite
