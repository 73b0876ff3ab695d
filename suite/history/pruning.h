// Ends the history before a day: what was changed and deleted until then is written to a file and
// removed. What stands, and the history since, stays.
#pragma once

#include <filesystem>

#include "data/dates.h"
#include "suite/database.h"
#include "suite/history/act_log.h"

namespace quillet::suite {

// Accounts are kept for so many years, and so is who changed them.
inline constexpr int yearsKept = 8;

inline constexpr const char* pruningCommand = "Prune the history";

struct Pruned {
  long rows = 0;
  long acts = 0;
};

// Of UTC, at the beginning of the day. `file` must not exist; it gets a line for each row that
// goes, with its table, its columns and when it began and ended, and one for each act. Throws
// std::runtime_error, and nothing is removed, when the day is younger than that, when there is no
// history, or when the file cannot be written. It is logged itself.
Pruned pruneHistory(Database& database, ActLog& log, Date today, Date before,
                    const std::filesystem::path& file);

}  // namespace quillet::suite
