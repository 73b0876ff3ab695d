// Between positions in the model's texts, which count characters, and those of toolkits whose texts
// are UTF-16: a character outside the basic plane, such as an emoji, is two code units.
#pragma once

#include <cstddef>
#include <string_view>

namespace quillet::view {

// The code units of the character that begins at `at`. Half a pair counts as a character.
template <class Unit>
std::size_t unitsAt(std::basic_string_view<Unit> text, std::size_t at) {
  static_assert(sizeof(Unit) == 2);
  const auto isPart = [&](std::size_t place, unsigned first) {
    return place < text.size() && (static_cast<unsigned>(text[place]) & 0xFC00U) == first;
  };
  return isPart(at, 0xD800) && isPart(at + 1, 0xDC00) ? 2 : 1;
}

// The code units that the first `characters` of the text take.
template <class Unit>
std::size_t unitsOf(std::basic_string_view<Unit> text, std::size_t characters) {
  std::size_t units = 0;
  for (; characters > 0 && units < text.size(); --characters) units += unitsAt(text, units);
  return units;
}

// The characters that the first `units` code units of the text hold. A position inside a pair
// counts the whole character.
template <class Unit>
std::size_t charactersOf(std::basic_string_view<Unit> text, std::size_t units) {
  std::size_t characters = 0;
  for (std::size_t at = 0; at < units && at < text.size(); ++characters) at += unitsAt(text, at);
  return characters;
}

}  // namespace quillet::view
