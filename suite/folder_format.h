// How the books of a practice are laid out, as a number that rises when a program that knows only
// the number before could do them harm. It stands in the settings, where it is read before the
// database is opened, and in the database. It has nothing to do with the program's version.
#pragma once

#include <filesystem>

#include "suite/data_folder.h"
#include "suite/database.h"
#include "suite/settings.h"

namespace quillet::suite::folder_format {

inline constexpr long current = 2;

// Throw std::runtime_error when a newer program has made the books. `place` is told.
void refuseNewer(const Settings& settings, const std::filesystem::path& place);
void refuseNewer(Database& database, const DataFolder& folder);

// Whether there are books that an earlier program has made.
bool isOlder(Database& database);

void write(Database& database, Settings& settings);

}  // namespace quillet::suite::folder_format
