#include "suite/schema.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "suite/schema_state.h"
#include "suite/schema_tables.h"

namespace quillet::suite {
namespace {

std::string lower(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return result;
}

// What is there: the columns and indexes of each table, in small letters.
struct Present {
  std::set<std::string> columns;
  std::map<std::string, std::string> indexes;  // name to "column,column"
};
constexpr const char* primaryIndex = "PRIMARY";
using PresentTables = std::map<std::string, Present>;

PresentTables readPresent(Database& database) {
  PresentTables all;
  const RecordsetPtr columns = database.query(
      "select table_name, column_name from information_schema.columns"
      " where table_schema = database()");
  for (; !columns->EOF_(); columns->MoveNext()) {
    all[lower(columns->text(0))].columns.insert(lower(columns->text(1)));
  }
  const RecordsetPtr indexes = database.query(
      "select table_name, index_name, column_name from information_schema.statistics"
      " where table_schema = database() order by table_name, index_name, seq_in_index");
  for (; !indexes->EOF_(); indexes->MoveNext()) {
    std::string& listed = all[lower(indexes->text(0))].indexes[indexes->text(1)];
    listed += (listed.empty() ? "" : ",") + lower(indexes->text(2));
  }
  return all;
}

bool hasIndex(const Present& present, const std::string& columns) {
  return std::ranges::any_of(present.indexes, [&](const auto& index) {
    return index.first != primaryIndex && index.second == lower(columns);
  });
}

std::string columnText(const ColumnDefinition& column) {
  return '`' + column.name + "` " + column.type;
}

const std::string rowId = std::string(rowIdColumn) + " bigint not null auto_increment invisible";

constexpr const char* rowFrom = "row_from timestamp(6) generated always as row start invisible";
constexpr const char* rowTill = "row_till timestamp(6) generated always as row end invisible";
constexpr const char* period = "period for system_time(row_from,row_till)";

// Rows that lie by their end: those that stand are together, in the order in which they came, and
// reading them passes no former version.
bool byEnd(const TableDefinition& table) { return table.versioned && table.byEnd; }

std::string primaryKey(const TableDefinition& table) {
  return byEnd(table) ? std::string("row_till,") + rowIdColumn : rowIdColumn;
}

constexpr std::string_view endFirst = "row_till,";

// The columns of an index but the rows' end.
std::string withoutEnd(std::string index) {
  if (index.starts_with(endFirst)) return index.substr(endFirst.size());
  const std::size_t end = index.find(",row_till");
  return end == std::string::npos ? index : index.erase(end, endFirst.size());
}

// A counted column must be the first of an index.
std::string countingIndex() { return std::string("index (") + rowIdColumn + ')'; }

// Each index of a versioned table holds the rows' end, behind its first column where the definition
// does not say another place: what stands is then found as quickly however often it was changed.
std::string indexed(const TableDefinition& table, const std::string& index) {
  if (!table.versioned) return withoutEnd(index);
  if (index.starts_with(endFirst)) return index;
  const std::size_t first = std::min(index.find(','), index.size());
  return index.substr(0, first) + ",row_till" + index.substr(first);
}

std::string creation(const TableDefinition& table) {
  std::string sql = "create table if not exists `" + table.name + "` (";
  for (const ColumnDefinition& column : table.columns) sql += columnText(column) + ", ";
  sql += rowId + ", primary key (" + primaryKey(table) + ')';
  if (table.versioned) sql += std::string(", ") + rowFrom + ", " + rowTill + ", " + period;
  if (byEnd(table)) sql += ", " + countingIndex();
  for (const std::string& index : table.indexes) sql += ", index (" + indexed(table, index) + ')';
  sql += ") engine=InnoDB";
  return table.versioned ? sql + " with system versioning" : sql;
}

// Indexes of books of an earlier time, without the rows' end or with it in another place.
void dropOutdatedIndexes(const TableDefinition& table, const Present& present,
                         std::vector<std::string>& changes) {
  for (const auto& [name, columns] : present.indexes) {
    const bool wanted = std::ranges::any_of(table.indexes, [&](const std::string& index) {
      return lower(indexed(table, index)) == columns;
    });
    const bool ours = std::ranges::any_of(table.indexes, [&](const std::string& index) {
      return lower(withoutEnd(index)) == withoutEnd(columns);
    });
    if (ours && !wanted) changes.push_back("drop index `" + name + '`');
  }
}

// Books that were kept without a history.
void addHistory(std::vector<std::string>& changes) {
  const std::string column = "add column ";
  changes.insert(changes.end(), {column + rowFrom, column + rowTill, std::string("add ") + period,
                                 "add system versioning"});
}

// Books of an earlier time have their rows by the counter alone.
void setPrimaryKey(const TableDefinition& table, const Present& present,
                   std::vector<std::string>& changes) {
  const auto key = present.indexes.find(primaryIndex);
  if (key != present.indexes.end()) {
    if (!byEnd(table) || key->second == primaryKey(table)) return;
    changes.emplace_back("drop primary key");
  }
  changes.push_back("add primary key (" + primaryKey(table) + ')');
  if (byEnd(table) && !hasIndex(present, rowIdColumn)) {
    changes.push_back("add " + countingIndex());
  }
}

// "" when nothing is missing.
std::string repair(const TableDefinition& table, const Present& present) {
  std::vector<std::string> changes;
  std::string place = "first";
  for (const ColumnDefinition& column : table.columns) {
    if (!present.columns.contains(lower(column.name))) {
      changes.push_back("add column " + columnText(column) + ' ' + place);
    }
    place = "after `" + column.name + '`';
  }
  if (!present.columns.contains(rowIdColumn)) changes.push_back("add column " + rowId);
  if (table.versioned && !present.columns.contains("row_from")) addHistory(changes);
  if (table.versioned) dropOutdatedIndexes(table, present, changes);
  setPrimaryKey(table, present, changes);
  for (const std::string& index : table.indexes) {
    const std::string columns = indexed(table, index);
    if (!hasIndex(present, columns)) changes.push_back("add index (" + columns + ')');
  }
  std::string sql;
  for (const std::string& change : changes) sql += (sql.empty() ? "" : ", ") + change;
  return sql.empty() ? sql : "alter table `" + table.name + "` " + sql;
}

std::vector<TableDefinition> allTables(long tableCount, bool versioned) {
  std::vector<TableDefinition> tables = sharedTables();
  for (long n = 1; n <= tableCount; ++n) {
    std::vector<TableDefinition> year = yearTables(tableSuffix(n));
    std::move(year.begin(), year.end(), std::back_inserter(tables));
  }
  for (TableDefinition& table : tables) table.versioned = table.versioned && versioned;
  return tables;
}

std::string wantedText(const std::vector<TableDefinition>& tables) {
  std::string text;
  for (const TableDefinition& table : tables) text += creation(table) + '\n';
  return text;
}

std::vector<std::string> missingStatements(const std::vector<TableDefinition>& tables,
                                           const PresentTables& present) {
  std::vector<std::string> statements;
  for (const TableDefinition& table : tables) {
    const auto found = present.find(lower(table.name));
    std::string sql = found == present.end() ? creation(table) : repair(table, found->second);
    if (!sql.empty()) statements.push_back(std::move(sql));
  }
  return statements;
}

}  // namespace

long completeSchema(Database& database, long tableCount,
                    const std::function<void(long done, long total)>& progress) {
  const std::vector<TableDefinition> tables = allTables(tableCount, database.keepsHistory());
  const std::string wanted = wantedText(tables);
  const std::string state = schema_state::current(database, wanted);
  if (state == schema_state::stored(database)) return 0;

  const PresentTables present = readPresent(database);
  const std::vector<std::string> statements = missingStatements(tables, present);
  const long total = static_cast<long>(statements.size());
  const auto run = [&] {
    long done = 0;
    for (const std::string& sql : statements) {
      database.execute(sql);
      if (progress) progress(++done, total);
    }
  };
  if (present.empty()) {
    database.bulkLoad(run);
  } else {
    run();
  }
  schema_state::store(database, schema_state::current(database, wanted));
  return total;
}

std::string tableSuffix(long number) { return number < 1 ? std::string() : std::to_string(number); }

}  // namespace quillet::suite
