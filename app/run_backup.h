// quillet backup and quillet restore.
#pragma once

#include <filesystem>
#include <string>

#include "app/options.h"

namespace quillet::app {

// Each returns the exit status and throws std::runtime_error with a message for the user.
int runBackup(const Options& options);
int runRestore(const Options& options);

// Ends this program and starts it anew to bring the backup back and to open the window then.
// Throws std::runtime_error when that fails.
void restartToRestore(const std::filesystem::path& backup, const std::filesystem::path& folder);

// What the program that started this one left to be told, once; "" when there is nothing.
std::string takeFirstMessage();

}  // namespace quillet::app
