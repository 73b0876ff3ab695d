#include "data/sql.h"

#include <array>
#include <charconv>

namespace quillet {

std::string sqlNumber(double number) {
  // Enough for the largest double written out in full.
  std::array<char, 400> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed).ptr;
  return {text.data(), end};
}

std::string sqlNumber(long number) { return std::to_string(number); }

}  // namespace quillet
