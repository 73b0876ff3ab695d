// The files of suite/data, which the build compiles in: the program needs no folder of its own.
#pragma once

#include <string_view>

namespace quillet::suite {

// The file's text. Throws std::logic_error when there is no such file.
std::string_view dataFile(std::string_view name);

}  // namespace quillet::suite
