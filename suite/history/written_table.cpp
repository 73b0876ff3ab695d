#include "suite/history/written_table.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <set>
#include <vector>

#include "data/text.h"
#include "suite/schema_tables.h"

namespace quillet::suite {
namespace {

const std::set<std::string>& sharedNames() {
  static const std::set<std::string> names = [] {
    std::set<std::string> made;
    for (const TableDefinition& table : sharedTables()) {
      if (table.versioned) made.insert(lowered(table.name));
    }
    return made;
  }();
  return names;
}

const std::vector<std::string>& yearPrefixes() {
  static const std::vector<std::string> prefixes = [] {
    std::vector<std::string> made;
    for (const TableDefinition& table : yearTables("")) made.push_back(lowered(table.name));
    return made;
  }();
  return prefixes;
}

// They change no table's rows.
constexpr std::array<std::string_view, 4> readers{"select", "show", "explain", "describe"};
constexpr std::array<std::string_view, 5> definitions{"create", "drop", "alter", "truncate",
                                                      "rename"};
// They commit what went before as well.
constexpr std::array<std::string_view, 4> committing{"begin", "lock", "grant", "revoke"};
// What follows are not the names of what is written.
constexpr std::array<std::string_view, 4> rowsFollow{"values", "value", "select", "set"};
// Columns that say whose a row is, and of which year.
constexpr std::array<std::string_view, 6> places{"code_no", "s_yr", "fyear", "fyr", "yr", "rcount"};

template <std::size_t Size>
bool oneOf(const std::array<std::string_view, Size>& words, std::string_view word) {
  return std::ranges::find(words, word) != words.end();
}

// The words of a statement, in small letters, one by one; those in quotes are passed over.
class Words {
 public:
  explicit Words(std::string_view sql) : sql_(sql) {}

  bool next() {
    word_.clear();
    for (; at_ < sql_.size(); ++at_) {
      const char c = sql_[at_];
      if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_') {
        word_ += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        continue;
      }
      if (!word_.empty()) return true;
      if (c == '(') ++depth_;
      if (c == ')') --depth_;
      if (!readsQuoted_ && (c == '\'' || c == '"')) at_ = endOfQuoted(c);
    }
    return !word_.empty();
  }
  const std::string& word() const { return word_; }
  // In how many brackets it stands.
  int depth() const { return depth_; }
  void readQuoted() { readsQuoted_ = true; }

 private:
  std::size_t endOfQuoted(char quote) const {
    std::size_t end = at_ + 1;
    while (end < sql_.size() && sql_[end] != quote) end += sql_[end] == '\\' ? 2 : 1;
    return end;
  }

  std::string_view sql_;
  std::size_t at_ = 0;
  std::string word_;
  int depth_ = 0;
  bool readsQuoted_ = false;
};

// A temporary table is this connection's alone, a new one takes no other one's place.
void judgeDefinition(Written& written, const std::string& command, Words words) {
  const bool defines = oneOf(definitions, command);
  written.commits = defines || oneOf(committing, command);
  if (!defines || !words.next()) return;
  const bool replaces = words.word() == "or";
  while (words.word() == "or" || words.word() == "replace") words.next();
  if (words.word() == "temporary") written.commits = false;
  written.defines = written.commits && (command != "create" || replaces);
}

bool isNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

std::string lowered(std::string name) {
  std::ranges::transform(name, name.begin(),
                         [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return name;
}

Written writtenBy(std::string_view sql) {
  Words words(sql);
  Written written;
  if (!words.next()) return written;
  const std::string command = words.word();
  if (oneOf(readers, command)) return written;
  judgeDefinition(written, command, words);
  if (command == "create" && !written.defines) return written;
  const bool inserts = command == "insert" || command == "replace";
  const bool updates = command == "update";
  written.endsRows = command != "insert";
  // A command that is none of these says in quotes, too, what it does.
  const bool other = !inserts && !updates && command != "delete";
  if (other) words.readQuoted();
  bool sets = false;
  while (words.next()) {
    const std::string& word = words.word();
    if (inserts && oneOf(rowsFollow, word)) break;
    if (words.depth() == 0 && word == "where" && (sets || command == "delete")) break;
    if (updates && words.depth() == 0 && word == "set") sets = true;
    written.movesRows = written.movesRows || word == rowIdColumn || (sets && oneOf(places, word));
    if (!sets && isVersioned(word)) written.tables.insert(word);
    if (other && oneOf(definitions, word)) written.defines = written.commits = true;
    if (command == "drop" && (word == "database" || word == "schema")) {
      written.tables = sharedNames();
    }
  }
  return written;
}

bool isVersioned(const std::string& table) {
  return sharedNames().contains(table) || !yearSuffix(table).empty();
}

std::string yearSuffix(const std::string& table) {
  for (const std::string& prefix : yearPrefixes()) {
    const std::string_view name = table;
    if (!equalIgnoringCase(name.substr(0, prefix.size()), prefix)) continue;
    const std::string_view rest = name.substr(prefix.size());
    if (isNumber(rest)) return std::string(rest);
  }
  return {};
}

}  // namespace quillet::suite
