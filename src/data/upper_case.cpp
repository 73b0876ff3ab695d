// Upper and lower case by a table of its own: the standard library's depends on the locale that the
// program happens to run in, and a name typed in one must be found again in another.
#include <algorithm>
#include <iterator>

#include "data/text.h"
#include "data/upper_case_table.h"

namespace quillet {

char32_t upperCase(char32_t character) {
  if (character < 0x80) {
    return character >= U'a' && character <= U'z' ? character - 32 : character;
  }
  const auto* const after =
      std::upper_bound(std::begin(upperCaseRanges), std::end(upperCaseRanges), character,
                       [](char32_t c, const CaseRange& range) { return c < range.first; });
  if (after == std::begin(upperCaseRanges)) return character;
  const CaseRange& range = *(after - 1);
  const auto distance = static_cast<int>(character - range.first);
  if (character > range.last || distance % range.step != 0) return character;
  return static_cast<char32_t>(static_cast<int>(character) + range.offset);
}

char32_t foldedCase(char32_t character) {
  switch (character) {
    case U'ı':
    case U'ſ':
    case U'ẛ':
    case U'\u0345':  // a Greek sign below, whose capital is a letter
      return character;
    case U'ẞ':
      return U'ß';
    default:
      return upperCase(character);
  }
}

// The table read backwards. Where several letters share a capital, the one of the longest range is
// the ordinary one: the others are variants that stand alone.
char32_t lowerCase(char32_t character) {
  if (character < 0x80) {
    return character >= U'A' && character <= U'Z' ? character + 32 : character;
  }
  const CaseRange* best = nullptr;
  for (const CaseRange& range : upperCaseRanges) {
    const auto lower = static_cast<char32_t>(static_cast<int>(character) - range.offset);
    if (lower < range.first || lower > range.last) continue;
    if (upperCase(lower) != character) continue;
    if (!best || range.last - range.first > best->last - best->first) best = &range;
  }
  return best ? static_cast<char32_t>(static_cast<int>(character) - best->offset) : character;
}

}  // namespace quillet
