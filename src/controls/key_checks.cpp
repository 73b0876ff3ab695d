#include "controls/key_checks.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "data/text.h"

namespace quillet::key_checks {
namespace {

constexpr std::string_view separators = "-./";

bool isDigit(char32_t key) { return key >= U'0' && key <= U'9'; }
bool isLetter(char32_t key) { return (key >= U'A' && key <= U'Z') || (key >= U'a' && key <= U'z'); }
bool isSeparator(char c) { return separators.find(c) != std::string_view::npos; }
bool allDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// The value of one to `most` digits, -1 for anything else.
int partOfDate(std::string_view text, std::size_t most) {
  if (text.empty() || text.size() > most || !allDigits(text)) return -1;
  int value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

int yearOfDate(std::string_view text) {
  const int year = partOfDate(text, 4);
  if (year < 0 || text.size() > 2) return year;
  return year + (year < 30 ? 2000 : 1900);
}

int daysOf(int month, int year) {
  constexpr std::array<int, 12> days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  return days[static_cast<std::size_t>(month - 1)] + (month == 2 && leap ? 1 : 0);
}

}  // namespace

bool accepts(int mode, char32_t key) {
  const bool sign = key == U'+' || key == U'-';
  switch (mode) {
    case number:
      return isDigit(key) || sign;
    case alphabets:
      return isLetter(key) || key == U' ';
    case alphanumeric:
      return isLetter(key) || isDigit(key);
    case amount:
      return isDigit(key) || sign || key == U'.';
    case longDate:
    case shortDate:
      return isDigit(key) || (key < 0x80 && isSeparator(static_cast<char>(key)));
    default:
      return true;
  }
}

const char* refusal(int mode) {
  switch (mode) {
    case number:
    case amount:
      return "Enter Numeric value";
    case alphabets:
      return "Enter Alphabets only";
    case alphanumeric:
      return "Enter AlphaNumeric Characters Only";
    default:
      return "Invalid Data";
  }
}

bool isDate(std::string_view text) {
  const std::size_t first = text.find_first_of(separators);
  if (first == std::string_view::npos) return false;
  const std::size_t second = text.find_first_of(separators, first + 1);
  if (second == std::string_view::npos) return false;
  const int day = partOfDate(text.substr(0, first), 2);
  const int month = partOfDate(text.substr(first + 1, second - first - 1), 2);
  const int year = yearOfDate(text.substr(second + 1));
  return year >= 100 && month >= 1 && month <= 12 && day >= 1 && day <= daysOf(month, year);
}

const char* dateFault(int mode, std::string_view text) {
  const bool shortYear = mode == shortDate;
  if (!isDate(text)) return "Not a valid date";
  if (text.size() != (shortYear ? 8U : 10U)) {
    return shortYear ? "Date Format dd-mm-yy" : "Date Format must be dd-mm-yyyy";
  }
  if (!isSeparator(text[2]) || text[2] != text[5]) {
    return shortYear ? "Date Format must be dd-mm-yy" : "Date Format must be dd-mm-yyyy";
  }
  return "";
}

std::string twoDecimals(std::string_view text) {
  std::string_view number = trimmed(text);
  const bool negative = !number.empty() && number.front() == '-';
  if (!number.empty() && (negative || number.front() == '+')) number.remove_prefix(1);
  const std::size_t point = std::min(number.find('.'), number.size());
  const std::string_view whole = number.substr(0, point);
  const std::string_view decimals = number.substr(std::min(point + 1, number.size()));
  if ((whole.empty() && decimals.empty()) || !allDigits(whole) || !allDigits(decimals)) {
    return std::string(text);
  }
  std::string digits(whole);
  digits += decimals.substr(0, 2);
  digits.append(2 - std::min<std::size_t>(decimals.size(), 2), '0');
  if (decimals.size() > 2 && decimals[2] >= '5') increment(digits);
  digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
  if (digits.size() < 3) digits.insert(0, 3 - digits.size(), '0');
  const bool zero = digits.find_first_not_of('0') == std::string::npos;
  digits.insert(digits.size() - 2, ".");
  return (negative && !zero ? "-" : "") + digits;
}

}  // namespace quillet::key_checks
