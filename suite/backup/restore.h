// Brings a backup back as a data folder. It is unpacked and examined beside the folder and takes
// its place in one step; the folder that was there before is kept under another name.
#pragma once

#include <filesystem>

namespace quillet::suite::backup {

enum class Present {
  refuse,   // only a new or an empty folder
  setAside  // a practice that is there, damaged or not, is kept beside
};

// Returns where the folder that was there before is kept, nothing when there was none. Throws
// std::runtime_error that tells what is wrong; the folder is as it was then. Killed at any point,
// the folder is the old one or the new one. The database is started in a child process.
std::filesystem::path restore(const std::filesystem::path& archive,
                              const std::filesystem::path& folder, Present present);

// Completes a restoring that was killed between its last steps, on a file system that cannot
// exchange two folders at once. Does nothing otherwise.
void finishRestore(const std::filesystem::path& folder);

}  // namespace quillet::suite::backup
