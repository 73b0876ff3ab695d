// Backups: a data folder as one compressed file. A failure is told, and leaves neither half a file
// nor an older one lost.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "suite/backup/packer.h"
#include "suite/data_folder.h"
#include "suite/database.h"

namespace quillet::suite::backup {

// How the files of backups end.
inline constexpr const char* ending = ".tar.zst";

// Writes a backup of a folder that no server has open; the caller holds its lock. Replaces an older
// backup, and nothing else, of that name. Throws std::runtime_error with a message for the user.
void write(const DataFolder& folder, const std::filesystem::path& file,
           const Progress& progress = {});

// The same while the database runs, between two acts: it is brought to rest and executes nothing
// until this returns. Throws when it is in the middle of a transaction.
void write(Database& database, const DataFolder& folder, const std::filesystem::path& file,
           const Progress& progress = {});

// Throws std::runtime_error when the settings name a database server; `instead` says what to do.
void refuseServer(const std::filesystem::path& settings, const std::string& instead);

// Throws std::runtime_error when a backup cannot be written under this name: it lies in the folder
// itself, or belongs to a file that is no backup.
void checkPlace(const DataFolder& folder, const std::filesystem::path& file);

}  // namespace quillet::suite::backup
