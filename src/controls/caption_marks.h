// The marks of a caption: "&" stands before its access key, "&&" for the character itself.
#pragma once

#include <string>
#include <string_view>

namespace quillet {

// The access key of a caption, a capital where there is one; 0 for none.
char32_t accessKey(std::string_view caption);
// The caption as it is read: without marks.
std::string withoutMarks(std::string_view caption);

}  // namespace quillet
