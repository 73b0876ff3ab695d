// The server's log of the tables that are being made, altered or dropped: after a crash the next
// start completes that or takes it back. It names files by their whole path, so a copy of a folder
// must not be started with the log of the other: the server would delete files there.
#pragma once

#include <filesystem>
#include <set>
#include <string>

namespace quillet::suite::definition_log {

inline constexpr const char* fileName = "ddl_recovery.log";

// The tables of our schema that it names.
std::set<std::string> tables(const std::filesystem::path& folder);

// Removes a log that names files of another folder: this one was copied while it was open.
void removeForeign(const std::filesystem::path& folder);

}  // namespace quillet::suite::definition_log
