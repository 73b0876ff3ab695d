#include "data/text.h"

#include <algorithm>
#include <cstdint>

namespace quillet {
namespace {

std::size_t lengthFrom(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  if (lead >= 0xF0 && lead < 0xF5) return 4;
  return 0;
}

bool continues(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

// Overlong forms, surrogates and what lies past the last code point show in the second byte.
bool fits(unsigned char lead, unsigned char second) {
  switch (lead) {
    case 0xE0:
      return second >= 0xA0;
    case 0xED:
      return second < 0xA0;
    case 0xF0:
      return second >= 0x90;
    case 0xF4:
      return second < 0x90;
    default:
      return true;
  }
}

// The bytes of the character that begins at `at`; 0 when none does.
std::size_t bytesAt(std::string_view text, std::size_t at) {
  const auto lead = static_cast<unsigned char>(text[at]);
  const std::size_t length = lengthFrom(lead);
  if (length <= 1) return length;
  const std::string_view rest = text.substr(at + 1, length - 1);
  const bool whole = rest.size() == length - 1 && std::all_of(rest.begin(), rest.end(), continues);
  return whole && fits(lead, static_cast<unsigned char>(rest.front())) ? length : 0;
}

}  // namespace

char32_t nextCharacter(std::string_view text, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(text[at]);
  const std::size_t length = bytesAt(text, at);
  if (length <= 1) {
    ++at;
    return lead;
  }
  char32_t character = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    character = (character << 6U) | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
  }
  at += length;
  return character;
}

bool isUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = bytesAt(text, at);
    if (length == 0) return false;
    at += length;
  }
  return true;
}

void appendCharacter(std::string& text, char32_t character) {
  const auto put = [&](char32_t byte) { text += static_cast<char>(byte); };
  if (character < 0x80) {
    put(character);
  } else if (character < 0x800) {
    put(0xC0 | (character >> 6U));
    put(0x80 | (character & 0x3FU));
  } else if (character < 0x10000) {
    put(0xE0 | (character >> 12U));
    put(0x80 | ((character >> 6U) & 0x3FU));
    put(0x80 | (character & 0x3FU));
  } else {
    put(0xF0 | (character >> 18U));
    put(0x80 | ((character >> 12U) & 0x3FU));
    put(0x80 | ((character >> 6U) & 0x3FU));
    put(0x80 | (character & 0x3FU));
  }
}

std::size_t lengthOf(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) nextCharacter(text, at);
  return count;
}

std::size_t offsetOf(std::string_view text, std::size_t n) {
  std::size_t at = 0;
  while (n-- > 0 && at < text.size()) nextCharacter(text, at);
  return at;
}

std::u32string charactersOf(std::string_view text) {
  std::u32string characters;
  for (std::size_t at = 0; at < text.size();) characters += nextCharacter(text, at);
  return characters;
}

std::string upperCase(std::string_view text) {
  // Names are nearly always ASCII, and a list has many thousands of them.
  std::string result(text);
  std::size_t at = 0;
  for (; at < text.size() && static_cast<unsigned char>(text[at]) < 0x80; ++at) {
    const char c = text[at];
    result[at] = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  }
  result.resize(at);
  while (at < text.size()) appendCharacter(result, upperCase(nextCharacter(text, at)));
  return result;
}

std::vector<std::size_t> orderOf(const std::vector<std::string>& texts) {
  // Most texts differ in their first bytes, which are compared as one number.
  struct Place {
    std::uint64_t beginning = 0;
    std::size_t index = 0;
  };
  std::vector<Place> places(texts.size());
  for (std::size_t i = 0; i < texts.size(); ++i) {
    for (std::size_t byte = 0; byte < sizeof(std::uint64_t); ++byte) {
      const unsigned char next = byte < texts[i].size() ? texts[i][byte] : 0;
      places[i].beginning = places[i].beginning << 8U | next;
    }
    places[i].index = i;
  }
  std::sort(places.begin(), places.end(), [&](const Place& a, const Place& b) {
    if (a.beginning != b.beginning) return a.beginning < b.beginning;
    const int order = texts[a.index].compare(texts[b.index]);
    return order != 0 ? order < 0 : a.index < b.index;
  });
  std::vector<std::size_t> order;
  order.reserve(places.size());
  for (const Place& place : places) order.push_back(place.index);
  return order;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < a.size() && j < b.size()) {
    if (foldedCase(nextCharacter(a, i)) != foldedCase(nextCharacter(b, j))) return false;
  }
  return i == a.size() && j == b.size();
}

bool increment(std::string& digits) {
  const auto grows = std::find_if(digits.rbegin(), digits.rend(), [](char c) { return c != '9'; });
  std::fill(digits.rbegin(), grows, '0');
  if (grows == digits.rend()) {
    digits.insert(0, 1, '1');
    return true;
  }
  ++*grows;
  return false;
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string replacedAll(std::string text, std::string_view what, std::string_view by) {
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
  return text;
}

}  // namespace quillet
