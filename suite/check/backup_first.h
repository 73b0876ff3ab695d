// The backup without which nothing is mended.
#pragma once

#include <string>

#include "suite/standalone_environment.h"

namespace quillet::suite::check {

// Writes it where backups are kept and returns its file. Throws std::runtime_error with a message
// for the user when it cannot be made.
std::string backUpFirst(Practice& practice);

}  // namespace quillet::suite::check
