// How many trial-balance tables there are: a client's years take the numbers from 1 to that one.
#pragma once

#include "suite/database.h"
#include "suite/settings.h"

namespace quillet::suite {

// As many as are set, and never fewer than the highest number that a year is registered under:
// a loop over all tables must not miss a year. When no number is set, because the settings were
// lost for instance, as many as the database has.
long tableNumbers(const Settings& settings, Database& database);

}  // namespace quillet::suite
