#include "controls/key_checks.h"

#include <algorithm>
#include <charconv>

#include "data/dates.h"
#include "data/text.h"

namespace quillet::key_checks {
namespace {

constexpr std::string_view separators = "-./";

bool isSeparator(char c) { return separators.find(c) != std::string_view::npos; }
bool allDigits(std::string_view text) { return std::all_of(text.begin(), text.end(), isDigit); }

// The number in the place of the month, 0 for none.
int monthOf(std::string_view text) {
  int month = 0;
  const std::string_view from = text.substr(std::min<std::size_t>(3, text.size()));
  std::from_chars(from.data(), from.data() + from.size(), month);
  return month;
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

const char* dateFault(int mode, std::string_view text) {
  const bool shortYear = mode == shortDate;
  if (!readDate(text) || monthOf(text) > 12) return "Not a valid date";
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
