#include "controls/letter_search.h"

#include "data/text.h"

namespace quillet {
namespace {

bool begins(const std::string& item, std::u32string_view letters) {
  std::size_t at = 0;
  for (const Key letter : letters) {
    if (at >= item.size() || upperCase(nextCharacter(item, at)) != letter) return false;
  }
  return true;
}

// The first one behind the position, going round; the item at the position comes last.
int find(std::u32string_view letters, const std::vector<std::string>& items, int behind) {
  const int size = static_cast<int>(items.size());
  for (int step = 0; step < size; ++step) {
    const int at = (behind + step) % size;
    if (begins(items[static_cast<std::size_t>(at)], letters)) return at + 1;
  }
  return 0;
}

}  // namespace

int LetterSearch::next(Key letter, const std::vector<std::string>& items, int chosen, Moment now) {
  if (now - last_ > pause) end();
  const bool goesOn = !typed_.empty();
  typed_ += upperCase(letter);
  const bool oneLetter = typed_.find_first_not_of(typed_[0]) == std::u32string::npos;
  // What is chosen already may hold the longer search, too.
  int found = find(typed_, items, goesOn && chosen > 0 ? chosen - 1 : chosen);
  if (found == 0 && oneLetter) found = find(typed_.substr(0, 1), items, chosen);
  if (found == 0) {
    typed_.pop_back();
  } else {
    last_ = now;
  }
  return found;
}

}  // namespace quillet
