// Which table a statement changes.
#pragma once

#include <string>
#include <string_view>

namespace quillet::suite {

// In small letters: "tab_1". Of a statement that changes none, a word that names no table.
std::string writtenTable(std::string_view sql);

// Whether the server keeps what is changed and deleted in the table of that name.
bool isVersioned(const std::string& table);

// "3" of "tab_3" and of every other table of that set; "" of a table that all years share.
std::string yearSuffix(const std::string& table);

}  // namespace quillet::suite
