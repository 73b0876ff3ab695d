// Tables that hold books and are not there any more.
#pragma once

#include <string>
#include <vector>

#include "suite/database.h"

namespace quillet::suite {

// The masters and the tables of registered years that the database does not have, in capitals. A
// database without any tables has lost none.
std::vector<std::string> lostTables(Database& database);

}  // namespace quillet::suite
