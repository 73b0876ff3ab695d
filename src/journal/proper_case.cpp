#include "journal/proper_case.h"

#include <cstddef>

#include "data/text.h"

namespace quillet {

std::string properCase(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  bool begins = true;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t character = nextCharacter(text, at);
    appendCharacter(result, begins ? upperCase(character) : lowerCase(character));
    begins = character == U' ' || character == U'\t' || character == U'\n' || character == U'\r';
  }
  return result;
}

}  // namespace quillet
