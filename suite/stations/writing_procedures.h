// The procedures of the forms that write: on a server a station takes its turn before they read
// anything. What begins with a question is not among them, and neither is what opens a form; they
// take it with their first change.
#pragma once

#include <string_view>

namespace quillet::suite {

bool isWriting(std::string_view form, std::string_view procedure);

}  // namespace quillet::suite
