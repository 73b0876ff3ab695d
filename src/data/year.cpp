#include "data/year.h"

#include <algorithm>

#include "data/text.h"

namespace quillet {
namespace {

bool digits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string fourDigits(int year) {
  const std::string text = std::to_string(year);
  return std::string(text.size() < 4 ? 4 - text.size() : 0, '0') + text;
}

}  // namespace

std::string firstDateKey(int firstYear) { return "0104" + fourDigits(firstYear); }

std::string secondDateKey(int secondYear) { return "3103" + fourDigits(secondYear); }

int yearOf(std::string_view keyOrDate) {
  if (keyOrDate.size() < 4) return 0;
  const std::string_view year = keyOrDate.substr(keyOrDate.size() - 4);
  return digits(year) ? std::stoi(std::string(year)) : 0;
}

std::string yearText(std::string_view first, std::string_view second) {
  return fourDigits(yearOf(first)) + "-" + fourDigits(yearOf(second));
}

std::string shortYearText(int firstYear) {
  return fourDigits(firstYear) + "-" + fourDigits(firstYear + 1).substr(2);
}

std::string shownDate(std::string_view key) {
  if (key.size() != 8 || !digits(key)) return std::string(key);
  return std::string(key.substr(0, 2)) + '/' + std::string(key.substr(2, 2)) + '/' +
         std::string(key.substr(4));
}

std::string shownMoment(const std::string& moment) {
  if (moment.size() < 10) return moment;
  return moment.substr(8, 2) + '/' + moment.substr(5, 2) + '/' + moment.substr(0, 4) +
         moment.substr(10, 6);
}

std::string dateKey(std::string_view shown) { return replacedAll(std::string(shown), "/", ""); }

}  // namespace quillet
