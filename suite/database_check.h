// Checks a database folder by opening a copy of it in a child process and reading every table
// there: whatever the server library does when it meets damage, it does to the copy and to the
// child.
#pragma once

#include <filesystem>
#include <string>

namespace quillet::suite {

// What is damaged, "" when the folder opens and all tables are sound. The copy lies beside the
// folder while this runs.
std::string findDamage(const std::filesystem::path& folder);

}  // namespace quillet::suite
