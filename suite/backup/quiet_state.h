// When the files of a running embedded database may be copied. The engine writes by itself, too:
// it removes what statements left behind and brings changed pages to the disk. Brought to rest, it
// writes nothing until the next statement, and its counters prove afterwards that it did not.
#pragma once

#include <string>

#include "suite/database.h"

namespace quillet::suite::backup {

// Lets the engine finish what it has to write. Throws std::runtime_error inside of a transaction,
// which another act is to end first.
void bringToRest(Database& database);

// The counters of the engine's writes, "" when it has something left to write. Files read between
// two equal ones, neither empty, are those of one moment.
std::string restState(Database& database);

}  // namespace quillet::suite::backup
