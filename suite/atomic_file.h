// Writes a file completely or not at all: after a crash it holds its old content or the new one.
#pragma once

#include <filesystem>
#include <string_view>

namespace quillet::suite {

// Throws std::runtime_error that names the file when it cannot be written; the old one stays.
void writeAtomically(const std::filesystem::path& file, std::string_view content);

// Makes durable which files are in the folder under which names; false when that fails.
bool synchroniseFolder(const std::filesystem::path& folder);

}  // namespace quillet::suite
