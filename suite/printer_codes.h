// Texts with printer codes of the ESC/P command set inside.
#pragma once

#include <string>
#include <string_view>

namespace quillet::suite {

struct PrintedText {
  std::string text;         // what shows
  bool emphasised = false;  // whether emphasis was on for any of it
};

// Strips every code: ESC with the character after it, and single control characters other than line
// breaks. ESC E and ESC F switch `emphasis`, which carries over from text to text.
PrintedText withoutPrinterCodes(std::string_view text, bool& emphasis);

}  // namespace quillet::suite
