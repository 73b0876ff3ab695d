// The statements that remove one client's trial balance of one year and what hangs on it, in the
// order in which they are sent.
//
// In a pattern {S} stands for the suffix of the year's tables, {c} for the client code as it stands
// between quotes, {Y} for the year's number in the tables kept by year, {R} for its number in the
// registry.
#pragma once

#include <span>

#include "data/sql.h"

namespace quillet::deletion {

struct Keys {
  Sql suffix;
  Sql client;
  int year = 0;
  long count = 0;
};

struct Statement {
  SqlPattern pattern;
  SqlPattern flush;  // sent right after it
};

Sql filled(const SqlPattern& pattern, const Keys& keys);

// A depreciation chart exists when one of these selects has rows.
std::span<const SqlPattern> chartSelects();

std::span<const Statement> trialBalance();
// Schedules and other data: what comes before and what comes after the depreciation chart.
std::span<const Statement> schedulesBeforeChart();
std::span<const Statement> depreciationChart();
std::span<const Statement> schedulesAfterChart();
// Miscellaneous: the annexures' tables, and the annexure's name in the registry.
std::span<const Statement> annexures();
std::span<const Statement> annexureName();
// The year's row in the registry.
std::span<const Statement> registry();

}  // namespace quillet::deletion
