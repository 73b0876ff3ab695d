#include "suite/history/written_table.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <set>
#include <vector>

#include "suite/schema_tables.h"

namespace quillet::suite {
namespace {

constexpr std::array<std::string_view, 15> commandWords{
    "insert", "into", "update", "delete", "from",   "replace",      "truncate", "table",
    "drop",   "if",   "exists", "alter",  "ignore", "low_priority", "quick"};

std::string lower(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

const std::set<std::string>& sharedNames() {
  static const std::set<std::string> names = [] {
    std::set<std::string> made;
    for (const TableDefinition& table : sharedTables()) {
      if (table.versioned) made.insert(lower(table.name));
    }
    return made;
  }();
  return names;
}

const std::vector<std::string>& yearPrefixes() {
  static const std::vector<std::string> prefixes = [] {
    std::vector<std::string> made;
    for (const TableDefinition& table : yearTables("")) made.push_back(lower(table.name));
    return made;
  }();
  return prefixes;
}

bool isNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

// A statement changes the table whose name is the first word after the command.
std::string writtenTable(std::string_view sql) {
  std::string word;
  for (std::size_t i = 0; i <= sql.size(); ++i) {
    const char c = i < sql.size() ? sql[i] : ' ';
    if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_') {
      word += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
      continue;
    }
    if (word.empty()) continue;
    if (std::ranges::find(commandWords, word) == commandWords.end()) return word;
    word.clear();
  }
  return {};
}

bool isVersioned(const std::string& table) {
  return sharedNames().contains(table) || !yearSuffix(table).empty();
}

std::string yearSuffix(const std::string& table) {
  for (const std::string& prefix : yearPrefixes()) {
    if (!table.starts_with(prefix)) continue;
    const std::string_view rest = std::string_view(table).substr(prefix.size());
    if (isNumber(rest)) return std::string(rest);
  }
  return {};
}

}  // namespace quillet::suite
