// Which tables a statement changes.
#pragma once

#include <set>
#include <string>
#include <string_view>

namespace quillet::suite {

struct Written {
  // Those of which a history is kept, in small letters: "tab_1".
  std::set<std::string> tables;
  // Rows may end: it does not only insert.
  bool endsRows = false;
  // Rows may come under another client or year by it, or are given the ids they have.
  bool movesRows = false;
  // The tables themselves change, which cannot be taken back.
  bool defines = false;
  // It commits what went before.
  bool commits = false;
};

// The name of a table or column in small letters.
std::string lowered(std::string name);

// In doubt it names more than what is changed.
Written writtenBy(std::string_view sql);

// Whether the server keeps what is changed and deleted in the table of that name.
bool isVersioned(const std::string& table);

// "3" of "tab_3" and of every other table of that set; "" of a table that all years share.
std::string yearSuffix(const std::string& table);

}  // namespace quillet::suite
