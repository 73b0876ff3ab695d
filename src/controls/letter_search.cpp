#include "controls/letter_search.h"

#include "data/text.h"

namespace quillet {
namespace {

bool begins(std::string_view item, std::u32string_view letters) {
  std::size_t at = 0;
  for (const Key letter : letters) {
    if (at >= item.size() || upperCase(nextCharacter(item, at)) != letter) return false;
  }
  return true;
}

// The first one behind the position, going round; the item at the position comes last.
int find(std::u32string_view letters, const LetterSearch::Items& items, int behind) {
  for (int step = 0; step < items.size; ++step) {
    const int position = (behind + step) % items.size + 1;
    if (begins(items.text(position), letters)) return position;
  }
  return 0;
}

}  // namespace

int LetterSearch::next(Key letter, const Items& items, int chosen, Moment now) {
  const bool further = goesOn(now);
  if (!further) end();
  typed_ += upperCase(letter);
  const bool oneLetter = typed_.find_first_not_of(typed_[0]) == std::u32string::npos;
  // What is chosen already may hold the longer search, too.
  int found = find(typed_, items, further && chosen > 0 ? chosen - 1 : chosen);
  if (found == 0 && oneLetter) found = find(typed_.substr(0, 1), items, chosen);
  if (found == 0) {
    typed_.pop_back();
  } else {
    last_ = now;
  }
  return found;
}

}  // namespace quillet
