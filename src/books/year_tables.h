// The per-year tables of every client and year that the registry names, behind the masters' in-use
// tests and replacements. One that is missing is passed over and named, since nothing can stand in
// it; any other failure is thrown.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ports/ports.h"

namespace quillet {

struct YearTable {
  std::string trialBalance;  // as the registry names it
  std::string_view prefix;
  std::string name;
  Sql sql() const { return sqlName(name); }
};

using TablePrefixes = std::vector<std::string_view>;
using TableNames = std::vector<std::string>;

// Calls `visit` with each year's tables of these prefixes, year by year, until one returns true;
// then, and only then, the walk does. The host's progress bar moves with it, under the text.
bool walkYearTables(ServiceObject& host, const std::string& text, const TablePrefixes& prefixes,
                    TableNames& missing, const std::function<bool(const YearTable& table)>& visit);

// Runs what works on one table.
void onTable(ServiceObject& host, const std::string& table, TableNames& missing,
             const std::function<void()>& work);

// The tables of these prefixes that there are, found with two statements.
std::vector<YearTable> yearTables(ServiceObject& host, const TablePrefixes& prefixes,
                                  TableNames& missing);

// The rows of all the selects, many selects in one statement.
void queryAll(ServiceObject& host, const std::vector<Sql>& selects,
              const std::function<void(const Recordset& row)>& read);

}  // namespace quillet
