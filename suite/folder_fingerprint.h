// The fingerprint of a database folder: the sizes and times of all its files, written down when the
// database has ended properly. A folder that still matches its fingerprint has not been touched
// since and is opened at once; any other is examined first.
#pragma once

#include <filesystem>

namespace quillet::suite::folder_fingerprint {

inline constexpr const char* fileName = "sealed";

void write(const std::filesystem::path& folder);
bool matches(const std::filesystem::path& folder);
void remove(const std::filesystem::path& folder);

}  // namespace quillet::suite::folder_fingerprint
