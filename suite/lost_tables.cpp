#include "suite/lost_tables.h"

#include <set>

#include "data/text.h"

namespace quillet::suite {
namespace {

constexpr const char* masters[] = {"MASTER", "MAST_PART", "MAST_ALLGRP", "MAST_GUNDER"};
constexpr const char* prefixes[] = {"TAB_", "JRNL_", "TRADE_", "RMGRP_"};

std::vector<std::string> firstColumn(Database& database, const std::string& sql) {
  std::vector<std::string> cells;
  const RecordsetPtr rows = database.query(sql);
  for (; !rows->EOF_(); rows->MoveNext()) cells.push_back(upperCase(rows->text(0)));
  return cells;
}

void addMissing(std::vector<std::string>& lost, const std::set<std::string>& present,
                const std::string& table) {
  if (!present.contains(table)) lost.push_back(table);
}

}  // namespace

std::vector<std::string> lostTables(Database& database) {
  const auto tables = firstColumn(
      database, "select table_name from information_schema.tables where table_schema=database()");
  const std::set<std::string> present(tables.begin(), tables.end());
  std::vector<std::string> lost;
  if (present.empty()) return lost;
  for (const char* table : masters) addMissing(lost, present, table);
  if (!lost.empty()) return lost;
  for (const std::string& table :
       firstColumn(database, "select distinct tbl_nm from master where tbl_nm like 'TAB\\_%'")) {
    for (const char* prefix : prefixes) addMissing(lost, present, prefix + table.substr(4));
  }
  return lost;
}

}  // namespace quillet::suite
