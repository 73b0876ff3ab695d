// Examines a database folder before the server library uses it. The library may end the process
// or write into the folder when it meets damaged files, so a folder that does not match its
// fingerprint is checked on a copy, in a process of its own.
#pragma once

#include <filesystem>

namespace quillet::suite {

enum class FolderState {
  isNew,     // holds nothing yet
  isIntact,  // holds a database that opens
};

// Makes the folder when it is missing. Throws std::runtime_error when it cannot be made or when it
// holds something that is not a database of ours; nothing is written then.
void prepareFolder(const std::filesystem::path& folder);

// The folder's state; the caller holds its lock. Throws std::runtime_error that names the folder
// when it is damaged. What an interrupted first start left behind is removed.
FolderState examine(const std::filesystem::path& folder);

// Between these two the folder holds a database that never was complete.
void markIncomplete(const std::filesystem::path& folder);
void markComplete(const std::filesystem::path& folder);

}  // namespace quillet::suite
