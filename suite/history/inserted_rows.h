// The rows that an act has inserted, found without reading the whole table.
#pragma once

#include <string>

#include "suite/history/instant.h"

namespace quillet::suite {

// The condition for them, by their numbers: those are the highest of the table, and on a server,
// where other stations insert between, none of them stood there a day before.
std::string insertedAt(const std::string& table, Instant at, bool shared);

}  // namespace quillet::suite
