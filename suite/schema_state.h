// Whether the tables were found complete before and nobody has changed one since. Asking the server
// for every column of hundreds of tables makes it open the definition file of each; here their
// sizes and times are enough.
#pragma once

#include <string>

#include "suite/database.h"

namespace quillet::suite::schema_state {

// A text that changes with the definitions wanted and with those present. On a server, whose files
// we cannot see, the names of the tables must do for those present.
std::string current(Database& database, const std::string& wanted);

// The text stored at the last start, "" when there is none.
std::string stored(Database& database);
void store(Database& database, const std::string& state);

}  // namespace quillet::suite::schema_state
