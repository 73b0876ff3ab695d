#include "suite/history/pruning.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "data/year.h"
#include "suite/backup/part_file.h"
#include "suite/stations/sole_use.h"

namespace quillet::suite {
namespace {

std::string textOf(Date day) {
  const auto two = [](int number) { return std::to_string(100 + number).substr(1); };
  return std::to_string(day.year) + '-' + two(day.month) + '-' + two(day.day);
}

// A field on one line.
std::string field(std::string_view text) {
  std::string made;
  for (const char c : text) {
    if (c == '\\') {
      made += "\\\\";
    } else if (c == '\t' || c == '\n' || c == '\r') {
      made += c == '\t' ? "\\t" : c == '\n' ? "\\n" : "\\r";
    } else {
      made += c;
    }
  }
  return made;
}

long writeRows(const backup::PartFile& file, const std::string& name, Recordset& rows) {
  std::string line = '#' + name;
  for (int column = 0; column < rows.fieldCount(); ++column) {
    line += '\t' + field(rows.fieldName(column));
  }
  if (!rows.EOF_()) file.write(line + '\n');
  long count = 0;
  for (; !rows.EOF_(); rows.MoveNext(), ++count) {
    line = name;
    for (int column = 0; column < rows.fieldCount(); ++column) {
      line += '\t' + (rows.field(column) ? field(*rows.field(column)) : "\\N");
    }
    file.write(line + '\n');
  }
  return count;
}

std::vector<std::string> versionedTables(Database& database) {
  std::vector<std::string> names;
  const RecordsetPtr rows = database.query(
      "select table_name from information_schema.tables where table_schema=database() and"
      " table_type='SYSTEM VERSIONED' order by table_name");
  for (; !rows->EOF_(); rows->MoveNext()) names.push_back(rows->text(0));
  return names;
}

void refuseYoung(Date today, Date before) {
  const auto order = [](Date day) { return std::tuple(day.year, day.month, day.day); };
  const Date latest{today.year - yearsKept, today.month, today.day};
  if (order(before) <= order(latest)) return;
  throw std::runtime_error("The history of the last " + std::to_string(yearsKept) +
                           " years is never removed: name " + textOf(latest) +
                           " or an earlier day. Nothing was removed.");
}

}  // namespace

Pruned pruneHistory(Database& database, ActLog& log, Date today, Date before,
                    const std::filesystem::path& file) {
  if (!log.keeps()) throw std::runtime_error("This server keeps no history.");
  refuseYoung(today, before);
  if (std::filesystem::exists(file)) {
    throw std::runtime_error(file.string() +
                             " exists already. Name another file for what is removed.");
  }
  SoleUse alone(database, "Pruning");
  const std::string instant = "timestamp'" + instantText(localInstant(before)) + '\'';
  const std::vector<std::string> tables = versionedTables(database);
  Pruned pruned;
  backup::PartFile part(file);
  for (const std::string& table : tables) {
    const RecordsetPtr rows = database.query("select t.*,t.row_id,t.row_from,t.row_till from " +
                                             table + " for system_time all t where t.row_till<" +
                                             instant + " order by t.row_till");
    pruned.rows += writeRows(part, table, *rows);
  }
  const RecordsetPtr acts =
      database.query("select * from SuiteAct where At<" + instant + " order by At");
  pruned.acts = writeRows(part, "SuiteAct", *acts);
  part.synchronise();
  part.finish();
  log.note({.reason = std::to_string(pruned.rows) + " rows and " + std::to_string(pruned.acts) +
                      " acts before " + shownMoment(textOf(before)) + " went to " +
                      file.filename().string()});
  log.alone(pruningCommand, [&] {
    for (const std::string& table : tables) {
      database.execute("delete history from " + table + " before system_time " + instant);
    }
    database.execute("delete from SuiteAct where At<" + instant);
  });
  alone.commit();
  return pruned;
}

}  // namespace quillet::suite
