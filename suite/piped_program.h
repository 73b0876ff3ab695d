// A small program that is run to its end, without a shell: what it reads and what it writes is
// text.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillet::suite {

// What it wrote; nothing when it is not installed, failed, or took longer than a minute. The words
// are its name and arguments.
std::optional<std::string> outputOf(const std::vector<std::string>& words,
                                    const std::string& input);

}  // namespace quillet::suite
