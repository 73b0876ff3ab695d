// What a cell above a column says of it, in the words that programs and people use.
#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "import/mapping.h"

namespace quillet {

struct HeadingWords {
  // Of a cell that says Debit, Credit or an amount: which figures these are.
  enum class Time : std::uint8_t { open, opening, movement, closing };

  ColumnRole role = ColumnRole::none;
  Time time = Time::open;

  // Whether every word of the cell is a heading's.
  bool known() const { return role != ColumnRole::none || time != Time::open; }
};

HeadingWords headingWords(std::string_view cell);

// Whether it is one of the words.
template <std::size_t count>
bool holds(const std::array<std::string_view, count>& words, std::string_view word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

// The words in capitals, single blanks between them; what is neither letter nor digit is a blank.
std::string plainWords(std::string_view text);

}  // namespace quillet
