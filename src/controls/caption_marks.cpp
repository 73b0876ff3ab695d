#include "controls/caption_marks.h"

#include "data/text.h"

namespace quillet {
namespace {

// The character behind each single mark, and what remains of the caption.
struct Read {
  char32_t key = 0;
  std::string text;
};

Read read(std::string_view caption) {
  Read found;
  for (std::size_t at = 0; at < caption.size();) {
    char32_t character = nextCharacter(caption, at);
    if (character == U'&') {
      if (at == caption.size()) break;
      character = nextCharacter(caption, at);
      if (character != U'&' && found.key == 0) found.key = upperCase(character);
    }
    appendCharacter(found.text, character);
  }
  return found;
}

}  // namespace

char32_t accessKey(std::string_view caption) { return read(caption).key; }

std::string withoutMarks(std::string_view caption) { return read(caption).text; }

}  // namespace quillet
