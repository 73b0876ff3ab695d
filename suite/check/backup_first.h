// The backup without which nothing is mended.
#pragma once

#include <string>

#include "suite/standalone_environment.h"

namespace quillet::suite::check {

// The books are on a database server, where whoever keeps it makes the backups.
bool isBackedUpThere(Practice& practice);

// Writes it where backups are kept and returns its file. Of books on a server nothing is written: a
// person has said whether there is one (`madeThere`). Throws std::runtime_error with a message for
// the user when there is none.
std::string backUpFirst(Practice& practice, bool madeThere);

}  // namespace quillet::suite::check
