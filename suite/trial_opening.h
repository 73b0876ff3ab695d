// Opens a copy of a database folder in a child process and reads every table there: whatever the
// server library does when it meets damage, it does to the copy and to the child.
#pragma once

#include <filesystem>
#include <string>

namespace quillet::suite {

// What is wrong, "" when the folder opens and all tables are sound. The copy stands beside the
// folder while this runs.
std::string faultOnTrial(const std::filesystem::path& folder);

}  // namespace quillet::suite
