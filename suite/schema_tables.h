// What the tables of the database look like.
#pragma once

#include <string>
#include <vector>

namespace quillet::suite {

struct ColumnDefinition {
  std::string name;
  std::string type;
};

struct TableDefinition {
  std::string name;
  std::vector<ColumnDefinition> columns;
  std::vector<std::string> indexes;  // the columns of each: "code_no,srno"
  bool versioned = true;             // the server keeps the rows that were changed or deleted
  bool byEnd = false;                // whole years of it are read, past however many versions
};

// Every table counts its rows in it; designed inserts and `select *` do not see it. It is the
// primary key, in tables `byEnd` behind the row's end.
inline constexpr const char* rowIdColumn = "row_id";

// The tables that all clients and years share.
std::vector<TableDefinition> sharedTables();
// The set of tables that belongs to one table number.
std::vector<TableDefinition> yearTables(const std::string& suffix);

}  // namespace quillet::suite
