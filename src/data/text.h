// Text is UTF-8. Helpers for counting, comparing and changing it by characters (code points).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

// The character that begins at `at`, which moves past it. A byte that begins no character counts as
// one by itself.
char32_t nextCharacter(std::string_view text, std::size_t& at);
// Whether every byte belongs to a character.
bool isUtf8(std::string_view text);
void appendCharacter(std::string& text, char32_t character);
std::size_t lengthOf(std::string_view text);
// Where the n-th character begins; the text's end when there are fewer.
std::size_t offsetOf(std::string_view text, std::size_t n);
std::u32string charactersOf(std::string_view text);

// The ten digits and the letters from A to Z alone, as files and keys write them.
constexpr bool isDigit(char32_t c) { return c >= U'0' && c <= U'9'; }
constexpr bool isLetter(char32_t c) { return (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z'); }

char32_t upperCase(char32_t character);
char32_t lowerCase(char32_t character);
std::string upperCase(std::string_view text);
// The same for letters that differ in case alone: the capital, except for the few letters whose
// capital is another letter's.
char32_t foldedCase(char32_t character);
bool equalIgnoringCase(std::string_view a, std::string_view b);

// The indexes of the texts in ascending order of their bytes, of equal ones in the order they have.
std::vector<std::size_t> orderOf(const std::vector<std::string>& texts);

// Adds one to a number written in digits; true when it grew by a digit in front.
bool increment(std::string& digits);

std::string_view trimmed(std::string_view text);
std::string replacedAll(std::string text, std::string_view what, std::string_view by);

}  // namespace quillet
