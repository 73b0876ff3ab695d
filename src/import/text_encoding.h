// Text files say seldom how their letters are written.
#pragma once

#include <string>
#include <string_view>

namespace quillet {

// As SourceOptions names it: told by a byte-order mark, by zero bytes in every other place, by
// being UTF-8 throughout; else "windows-1252".
std::string encodingOf(std::string_view bytes);

// In UTF-8, without a byte-order mark; what is no character in this encoding becomes U+FFFD.
// Throws SourceError for an encoding that nobody knows.
std::string decoded(std::string_view bytes, std::string_view encoding);

// Whether there are more control characters than a text has.
bool isBinary(std::string_view text);

}  // namespace quillet
