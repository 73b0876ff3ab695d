// Which of some client's years an act has changed in a table.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ports/year_locks.h"
#include "suite/database.h"
#include "suite/history/instant.h"

namespace quillet::suite {

// The first of the years of which rows of the table begin or end at the instant of an act. Tables
// by year and number, and those that tell the year in a column.
std::optional<LockedYear> yearChanged(Database& database, const std::string& table, Instant at,
                                      const std::vector<LockedYear>& years);
// The two halves of that for an act that is about to be committed, quickly: rows that it ended, and
// rows that it inserted, which have new ids. `shared`: other stations write at the same time.
std::optional<LockedYear> yearEnded(Database& database, const std::string& table, Instant at,
                                    const std::vector<LockedYear>& years);
std::optional<LockedYear> yearBegun(Database& database, const std::string& table, Instant at,
                                    const std::vector<LockedYear>& years, bool shared);
// The first of the years that carries a group to which an act gave another primary group.
std::optional<LockedYear> yearRegrouped(Database& database, Instant at,
                                        const std::vector<LockedYear>& years);

}  // namespace quillet::suite
