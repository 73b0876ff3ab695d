// The tables of the database: made at the first start, checked and completed at every later one.
// Rows are never touched, and nothing is dropped but indexes that have a better form now.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "suite/database.h"

namespace quillet::suite {

// Makes what is missing: tables, columns, keys, indexes. There is one set of per-year tables for
// each number from 1 to `tableCount`. `progress` is told the steps done of all, when there is
// anything to do. Returns how many statements it needed, 0 when all was there.
long completeSchema(Database& database, long tableCount,
                    const std::function<void(long done, long total)>& progress = {});

// A ledger's name may be so many characters long.
inline constexpr std::size_t ledgerNameLength = 100;

// The suffix that per-year tables of that number carry: "1", "2"; "" below 1.
std::string tableSuffix(long number);

}  // namespace quillet::suite
