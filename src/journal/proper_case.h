// Names with each word capitalised.
#pragma once

#include <string>
#include <string_view>

namespace quillet {

// "PETTY CASH a/c" as "Petty Cash A/c": a word begins after a blank.
std::string properCase(std::string_view text);

}  // namespace quillet
