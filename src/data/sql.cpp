#include "data/sql.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "data/errors.h"

namespace quillet {
namespace {

constexpr long invalidCall = 5;

bool inName(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

}  // namespace

Sql sqlNumber(double number) {
  // Enough for the largest double written out in full.
  std::array<char, 400> text{};
  char* const end =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed).ptr;
  return Sql(std::string(text.data(), end));
}

Sql sqlNumber(long number) { return Sql(std::to_string(number)); }

Sql sqlName(std::string_view name) {
  if (!std::all_of(name.begin(), name.end(), inName)) {
    throw RunTimeError(invalidCall,
                       "\"" + std::string(name) + "\" cannot be the name of a table or a column.",
                       "Quillet");
  }
  return Sql(std::string(name));
}

Sql filled(const SqlPattern& pattern, std::span<const std::pair<char, Sql>> values) {
  // One pass: a value that looks like a mark stays as it is.
  const std::string_view text = pattern.text();
  std::string sql;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '{') {
      sql += text[at];
      continue;
    }
    const char mark = text[at + 1];
    const auto value = std::find_if(values.begin(), values.end(),
                                    [&](const auto& each) { return each.first == mark; });
    if (value == values.end()) {
      throw RunTimeError(invalidCall, "No value for {" + std::string(1, mark) + "}.", "Quillet");
    }
    sql += value->second.text();
    at += 2;
  }
  return Sql(std::move(sql));
}

void IdList::add(long id) {
  if (!sql_.empty()) sql_ += ",";
  sql_ += sqlNumber(id);
}

}  // namespace quillet
