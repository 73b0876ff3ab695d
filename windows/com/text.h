// Between the module's texts (UTF-8) and those of Windows (UTF-16).
#pragma once

#include <ole2.h>

#include <string>
#include <string_view>

namespace quillet::windows {

std::wstring wide(std::string_view text);
std::string utf8(std::wstring_view text);
// A null BSTR is the empty text.
std::string fromBstr(BSTR text);
// The caller frees it.
BSTR newBstr(std::string_view text);

}  // namespace quillet::windows
