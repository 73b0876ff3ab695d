// The lines of a trial balance in memory: one year's, or those of two years side by side.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "books/account_groups.h"
#include "ports/ports.h"

namespace quillet {

inline constexpr long debit = 1;
inline constexpr long credit = 2;

// One row of a year's table.
struct Line {
  long srno = 0;  // 0 for a row that has no serial number
  long partId = 0;
  long allId = 0;
  double amount = 0;  // never negative
  long nid = debit;

  bool isCredit() const { return nid == credit; }
  // Only 2 is credit, whatever else a row may hold.
  const char* side() const { return isCredit() ? "CR" : "DR"; }
  double balance() const { return isCredit() ? -amount : amount; }
  bool operator==(const Line&) const = default;
};

// Whether that is still the line: its group, amount and side may have changed.
bool isSame(const Line& a, const Line& b);

// The lines of a particular and group: of the year in view, or of both years.
struct Entry {
  std::optional<Line> line[2];  // 0 current year, 1 previous year
  std::string particular;
  std::string group;

  const Line& any() const { return line[0] ? *line[0] : *line[1]; }
};

// The setting "TBSort".
enum class SortOption { entered = 1, particular = 2, group = 3, amount = 4 };

struct Totals {
  double debit = 0;
  double credit = 0;
};

// The client's lines in the table, in the order of their serial numbers.
std::vector<Line> readLines(Recordset& rows);

// Lines of the same particular and group stand in one entry; several of the same pair are matched
// in their order. The current year's come first, then what only the previous year has.
std::vector<Entry> pairLines(const std::vector<Line>& current, const std::vector<Line>& previous);

void fillNames(std::vector<Entry>& entries, ServiceObject& host, const AccountGroups& groups);

// Orders the entries, whose names must be filled in; equal ones keep their order.
void sortEntries(std::vector<Entry>& entries, SortOption option);

// Plain sums in the order of the lines.
Totals totalsOf(const std::vector<Line>& lines);

}  // namespace quillet
