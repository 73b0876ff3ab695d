// The procedures of the forms that write: on a server a station takes its turn before they read
// anything, and the forms show what others have stored. Over a question they give it away. What
// opens a form is not among them.
#pragma once

#include <string_view>

namespace quillet::suite {

bool isWriting(std::string_view form, std::string_view procedure);

}  // namespace quillet::suite
