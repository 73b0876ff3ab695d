// Paths are texts of UTF-8 everywhere but at the file system, whatever the platform calls its own.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quillet {

std::filesystem::path pathOf(std::string_view utf8);
std::string textOf(const std::filesystem::path& path);

// A path below a folder of the suite, written with backslashes as the design writes it.
std::filesystem::path below(std::string_view folder, const std::string& path);

// The text with a hyphen for each character that cannot stand in a file name.
std::string asFileName(std::string_view text);

}  // namespace quillet
