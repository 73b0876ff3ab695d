#include "journal/proper_case.h"

#include <cstddef>

#include "data/text.h"

namespace quillet {

std::string properCase(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  bool begins = true;
  for (std::size_t at = 0; at < text.size();) {
    char32_t character = nextCharacter(text, at);
    if (begins) {
      character = upperCase(character);
    } else if (character >= U'A' && character <= U'Z') {
      character += U'a' - U'A';
    }
    begins = character == U' ' || character == U'\t' || character == U'\n' || character == U'\r';
    appendCharacter(result, character);
  }
  return result;
}

}  // namespace quillet
