// The seal on a database folder: after a clean end the sizes and times of all its files are written
// down. A folder that still agrees with its seal has not been touched since and is opened at once;
// any other is examined first.
#pragma once

#include <filesystem>

namespace quillet::suite::folder_seal {

inline constexpr const char* fileName = "sealed";

void write(const std::filesystem::path& folder);
bool intact(const std::filesystem::path& folder);
void remove(const std::filesystem::path& folder);

}  // namespace quillet::suite::folder_seal
