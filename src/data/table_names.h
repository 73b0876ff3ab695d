// Names of the per-year tables: a prefix and the suffix that a client's year was given.
#pragma once

#include <string>
#include <string_view>

namespace quillet {

inline constexpr std::string_view trialBalancePrefix = "TAB_";

// "TAB_" and the suffix in capitals.
std::string trialBalanceTable(std::string_view suffix);

// The sibling of a year's trial-balance table: "tab_3" with "JRNL_" gives "JRNL_3".
std::string siblingTable(std::string_view trialBalanceTable, std::string_view prefix);

}  // namespace quillet
