#include "suite/printer_codes.h"

namespace quillet::suite {
namespace {
constexpr char escape = '\x1B';
constexpr char emphasisCode = 'E';
constexpr char plainCode = 'F';
}  // namespace

PrintedText withoutPrinterCodes(std::string_view text, bool& emphasis) {
  PrintedText printed;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == escape) {
      const char command = ++i < text.size() ? text[i] : '\0';
      if (command == emphasisCode) emphasis = true;
      if (command == plainCode) emphasis = false;
    } else if (static_cast<unsigned char>(c) >= 0x20 || c == '\n') {
      printed.text += c;
      printed.emphasised = printed.emphasised || emphasis;
    }
  }
  return printed;
}

}  // namespace quillet::suite
