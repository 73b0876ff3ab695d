#include "suite/copy/copy_practice.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "data/text.h"
#include "suite/private_files.h"
#include "suite/stations/sole_use.h"

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;

constexpr const char* marker = "suitecopy";
constexpr std::size_t batchSize = 512'000;

struct Table {
  std::string name;
  bool versioned = false;
  std::vector<std::string> columns{};
};

// Who has which year open is of no meaning elsewhere.
bool hasRowsToCopy(const Table& table) { return !equalIgnoringCase(table.name, "SuitePresence"); }

std::vector<Table> tablesOf(Database& database) {
  std::vector<Table> tables;
  const RecordsetPtr rows = database.query(
      "select t.table_name,t.table_type='SYSTEM VERSIONED',c.column_name from"
      " information_schema.tables t join information_schema.columns c on"
      " c.table_schema=t.table_schema and c.table_name=t.table_name where"
      " t.table_schema=database() and t.table_type in ('BASE TABLE','SYSTEM VERSIONED') order by"
      " t.table_name,c.ordinal_position");
  for (; !rows->EOF_(); rows->MoveNext()) {
    if (tables.empty() || tables.back().name != rows->text(0)) {
      tables.push_back({rows->text(0), rows->integer(1) == 1});
    }
    tables.back().columns.push_back('`' + rows->text(2) + '`');
  }
  return tables;
}

std::string joined(const std::vector<std::string>& texts) {
  std::string text;
  for (const std::string& each : texts) text += (text.empty() ? "" : ",") + each;
  return text;
}

std::string allOf(const Table& table) {
  return " from `" + table.name + '`' + (table.versioned ? " for system_time all" : "");
}

// The same for the same rows in whatever order.
std::string digest(Database& database, const Table& table) {
  std::string row;
  for (const std::string& column : table.columns) {
    row += (row.empty() ? "quote(" : ",quote(") + column + ')';
  }
  row = "concat_ws(','," + row + ')';
  const RecordsetPtr sums = database.query("select count(*),coalesce(sum(crc32(" + row +
                                           ")),0),coalesce(bit_xor(cast(conv(left(md5(" + row +
                                           "),15),16,10) as unsigned)),0)" + allOf(table));
  return sums->text(0) + ' ' + sums->text(1) + ' ' + sums->text(2);
}

std::string values(const Recordset& row, Database& to) {
  std::string text;
  for (int column = 0; column < row.fieldCount(); ++column) {
    const auto cell = row.field(column);
    text += column == 0 ? "(" : ",";
    text += cell ? '\'' + to.escape(std::string(*cell)) + '\'' : std::string("null");
  }
  return text + ')';
}

long copyRows(Database& from, Database& to, const Table& table) {
  const std::string columns = joined(table.columns);
  const RecordsetPtr rows = from.query("select " + columns + allOf(table));
  const std::string insert = "insert into `" + table.name + "` (" + columns + ") values ";
  std::string batch;
  const auto send = [&] {
    if (!batch.empty()) to.execute(insert + batch);
    batch.clear();
  };
  for (; !rows->EOF_(); rows->MoveNext()) {
    batch += (batch.empty() ? "" : ",") + values(*rows, to);
    if (batch.size() > batchSize) send();
  }
  send();
  return rows->RecordCount();
}

void makeTable(Database& from, Database& to, const Table& table) {
  to.execute(from.query("show create table `" + table.name + '`')->text(1));
}

void compare(Database& from, Database& to, const std::vector<Table>& tables) {
  for (const Table& table : tables) {
    if (!hasRowsToCopy(table) || digest(from, table) == digest(to, table)) continue;
    throw std::runtime_error("The copy of the table " + table.name +
                             " is not what was copied. Nothing was lost where it came from; remove"
                             " the copy and try again.");
  }
}

Copied copyTables(Database& from, Database& to, const std::vector<Table>& tables,
                  const std::function<void(long done, long total)>& progress) {
  const long total = static_cast<long>(tables.size());
  Copied copied;
  for (const Table& table : tables) {
    makeTable(from, to, table);
    to.execute("start transaction");
    if (hasRowsToCopy(table)) copied.rows += copyRows(from, to, table);
    to.execute("commit");
    ++copied.tables;
    if (progress) progress(copied.tables, total);
  }
  return copied;
}

}  // namespace

Copied copyBooks(Database& from, Database& to,
                 const std::function<void(long done, long total)>& progress) {
  if (!tablesOf(to).empty()) {
    throw std::runtime_error(
        "There are tables where the books are to be copied to. Nothing was"
        " changed.");
  }
  from.execute("set session tx_isolation='REPEATABLE-READ'");
  // Each waits for the other.
  for (Database* each : {&from, &to}) {
    each->execute("set session idle_transaction_timeout=0,idle_write_transaction_timeout=0");
  }
  SoleUse alone(from, "Copying");
  if (!alone.begun()) from.execute("start transaction with consistent snapshot");
  const std::vector<Table> tables = tablesOf(from);
  Copied copied;
  to.bulkLoad([&] {
    to.execute(std::string("create table ") + marker + " (Id int primary key)");
    to.execute("set session system_versioning_insert_history=1, foreign_key_checks=0");
    copied = copyTables(from, to, tables, progress);
    to.execute("set session system_versioning_insert_history=0");
    compare(from, to, tables);
    to.execute(std::string("drop table ") + marker);
  });
  if (!alone.begun()) from.execute("commit");
  return copied;
}

void refuseHalfCopied(Database& database) {
  const std::string found =
      "select 1 from information_schema.tables where table_schema=database() and table_name='";
  if (database.query(found + marker + '\'')->EOF_()) return;
  throw std::runtime_error(
      "A copy of a practice to this database was begun and has not come to its end. Drop the"
      " database and copy again; where it came from nothing is lost.");
}

void copyFiles(const DataFolder& from, const DataFolder& to) {
  const auto copy = [](const fs::path& source, const fs::path& target) {
    if (!fs::is_directory(source)) return;
    fs::copy(source, target,
             fs::copy_options::recursive | fs::copy_options::skip_existing |
                 fs::copy_options::copy_symlinks);
    makeAllPrivate(target);
  };
  copy(from.documents(), to.documents());
  copy(from.program(), to.program());
}

}  // namespace quillet::suite
