#include "suite/check/registered_years.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "data/table_names.h"
#include "data/text.h"
#include "data/year.h"
#include "suite/schema_tables.h"

namespace quillet::suite::check {
namespace {

constexpr const char* registry = "master";

// The client and the registry's own table: what is wrong with the entry itself.
Place entryOf(const Place& place) { return {place.client, place.year, registry}; }

bool isName(const std::string& table) {
  return !table.empty() && std::ranges::all_of(table, [](unsigned char c) {
    return std::isalnum(c) || c == '_' || c == '$';
  });
}

}  // namespace

bool areKeys(const YearKeys& keys) {
  const int first = yearOf(keys.first);
  return first > 0 && keys.first == firstDateKey(first) && keys.second == secondDateKey(first + 1);
}

RegisteredYears::RegisteredYears(Database& database, ServiceObject& host) : host_(host) {
  const RecordsetPtr rows = database.query(std::string("select m.") + rowIdColumn +
                                           ",m.* from master m order by m." + rowIdColumn);
  for (; !rows->EOF_(); rows->MoveNext()) {
    Row row{.place = {rows->text("code_no"),
                      {rows->text("f_yr"), rows->text("s_yr")},
                      upperCase(rows->text("tbl_nm"))},
            .rowId = rows->integer(0),
            .number = rows->integer("count"),
            .fields = {}};
    for (int column = 1; column < rows->fieldCount(); ++column) {
      row.fields.push_back(rows->text(column));
    }
    rows_.push_back(std::move(row));
  }
  const RecordsetPtr strangers = database.query(
      "select code_no,group_concat(distinct concat(right(f_yr,4),'-',right(s_yr,4)) order by "
      "right(s_yr,4) separator ', ') from master m where not exists(select 1 from Main_Info1 c "
      "where c.code_no=m.code_no) group by code_no");
  for (; !strangers->EOF_(); strangers->MoveNext()) {
    strangers_.push_back({strangers->text(0), '\'' + database.escape(strangers->text(0)) + '\'',
                          strangers->text(1)});
  }
  const RecordsetPtr tables = database.query("show tables");
  for (; !tables->EOF_(); tables->MoveNext()) tables_.insert(upperCase(tables->text(0)));
}

bool RegisteredYears::hasTable(const std::string& name) const {
  return tables_.contains(upperCase(name));
}

std::vector<std::string> RegisteredYears::trialBalances() const {
  std::vector<std::string> names;
  const auto add = [&](const std::string& name) {
    if (isName(name) && hasTable(name)) names.push_back(name);
  };
  for (const Row& row : rows_) add(row.place.table);
  for (long number = 1; number <= host_.GetTbCount(); ++number) {
    add(trialBalanceTable(host_.GETTBNAME(number)));
  }
  std::ranges::sort(names);
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

Place RegisteredYears::placeOf(long rowId, const std::string& table) const {
  // They were read in the order of their ids.
  const auto found = std::ranges::lower_bound(rows_, rowId, {}, &Row::rowId);
  if (found == rows_.end() || found->rowId != rowId) return {"", {}, table};
  return {found->place.client, found->place.year, table};
}

Place RegisteredYears::placeIn(const std::string& table, const std::string& client) const {
  const auto found = std::ranges::find_if(rows_, [&](const Row& row) {
    return equalIgnoringCase(row.place.table, table) && equalIgnoringCase(row.place.client, client);
  });
  return found == rows_.end() ? Place{client, {}, table} : found->place;
}

std::size_t RegisteredYears::clients() const {
  std::set<std::string> codes;
  for (const Row& row : rows_) codes.insert(upperCase(row.place.client));
  return codes.size();
}

void RegisteredYears::examine(Examined& examined) const {
  for (const Row& row : rows_) examineRow(row, examined);
  examineTwins(examined);
  for (const Stranger& stranger : strangers_) examineStranger(stranger, examined);
}

// Its years are in no list, so they can be neither opened nor deleted.
void RegisteredYears::examineStranger(const Stranger& stranger, Examined& examined) {
  const Place entry{stranger.client, {}, registry};
  const std::string what = "The registry has " + stranger.years + " of a client who is not there.";
  if (stranger.client.empty()) {
    examined.add(entry, "client", what, "A backup from before may tell whose it was.");
    return;
  }
  examined.addMendable(entry, "client", what,
                       "Mending registers a client of that code and name, who can be renamed, and "
                       "deleted after those years.");
  examined.changes.push_back("delete from TempClTbl where CodeNo=" + stranger.quoted);
  for (const char* into : {"Main_Info1(code_no,nm)", "TempClTbl(CodeNo,Name)"}) {
    examined.changes.push_back(std::string("insert into ") + into + " values(" + stranger.quoted +
                               ',' + stranger.quoted + ')');
  }
}

void RegisteredYears::examineRow(const Row& row, Examined& examined) const {
  const Place entry = entryOf(row.place);
  if (!areKeys(row.place.year)) {
    examined.add(entry, "year",
                 "A year is registered from \"" + row.place.year.first + "\" to \"" +
                     row.place.year.second + "\", which is no financial year.",
                 "A backup from before may tell which year it was.");
  }
  if (!isName(row.place.table)) {
    examined.add(entry, "table", "The year is registered without a table.",
                 "Create it anew over the existing one.");
    return;
  }
  const std::string suffix = host_.GETTBNAME(row.number);
  if (row.place.table != trialBalanceTable(suffix)) {
    examined.add(entry, "table number",
                 "The year is registered with the table " + row.place.table +
                     ", which does not belong to its number " + std::to_string(row.number) + '.',
                 "A backup from before may tell which is right.");
  }
  std::string missing;
  for (const TableDefinition& table : yearTables("")) {
    const std::string name = siblingTable(row.place.table, table.name);
    if (!hasTable(name)) missing += (missing.empty() ? "" : ", ") + name;
  }
  if (missing.empty()) return;
  examined.add(entry, "missing table", "Tables of the year are missing: " + missing + '.',
               "The next start makes them anew and empty; a backup may hold what stood in them.");
}

// A year that is entered twice over in the same words is one; which of two different entries holds
// cannot be told.
void RegisteredYears::examineTwins(Examined& examined) const {
  using Key = std::pair<std::string, std::string>;  // the client's code in capitals, and what of it
  std::map<Key, const Row*> years;
  std::map<Key, const Row*> tables;
  for (const Row& row : rows_) {
    const std::string client = upperCase(row.place.client);
    const auto [year, isNew] = years.try_emplace({client, row.place.year.second}, &row);
    if (!isNew) {
      examineTwin(row, *year->second, examined);
      continue;
    }
    const auto [table, isFree] = tables.try_emplace({client, row.place.table}, &row);
    if (isFree || row.place.table.empty()) continue;
    examined.add(entryOf(row.place), "shared table",
                 "The year is registered with the table " + row.place.table +
                     ", which is also that of " + table->second->place.year.text() + '.',
                 "A backup from before may tell which is right.");
  }
}

void RegisteredYears::examineTwin(const Row& row, const Row& first, Examined& examined) {
  if (row.fields != first.fields) {
    examined.add(entryOf(row.place), "registered twice",
                 "The year is registered twice, in two tables or with different dates.",
                 "Print both, then delete the one that is not meant.");
    return;
  }
  examined.addMendable(entryOf(row.place), "registered twice", "The year is registered twice over.",
                       "Mending keeps one entry.");
  examined.changes.push_back(std::string("delete from master where ") + rowIdColumn + '=' +
                             std::to_string(row.rowId));
}

}  // namespace quillet::suite::check
