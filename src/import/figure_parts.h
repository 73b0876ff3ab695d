// What stands in an amount's text: the digits with their marks, and around them sign, side and
// currency.
#pragma once

#include <string>
#include <string_view>

namespace quillet {

struct FigureParts {
  std::string digits;  // with their marks
  bool negative = false;
  bool signTwice = false;
  char side = 0;  // 'D' or 'C'
  bool sideTwice = false;
  std::string strange;  // what has no place there
};

// The text in ASCII: digits of any script as 0 to 9, dashes as "-", blanks as one, the rupee's sign
// as "Rs". '?' for what has no place in an amount.
std::string plainFigure(std::string_view text);
// Of such a text.
FigureParts figureParts(std::string text);

}  // namespace quillet
