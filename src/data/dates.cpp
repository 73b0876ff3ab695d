#include "data/dates.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <compare>

namespace quillet {
namespace {

namespace chr = std::chrono;

// The number that stands in these places, -1 when one of them holds no digit.
int part(std::string_view text, std::size_t at, std::size_t length) {
  if (text.size() < at + length) return -1;
  const std::string_view digits = text.substr(at, length);
  if (digits.find_first_not_of("0123456789") != std::string_view::npos) return -1;
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

chr::year_month_day dayOf(Date date) {
  return {chr::year(date.year), chr::month(static_cast<unsigned>(date.month)),
          chr::day(static_cast<unsigned>(date.day))};
}

// Of "dd/mm/yyyy".
Date partsOf(std::string_view text) {
  return {part(text, 6, 4), part(text, 3, 2), part(text, 0, 2)};
}

}  // namespace

bool exists(Date date) {
  // The calendar's types would wrap larger numbers.
  return std::min({date.year, date.month, date.day}) >= 1 && std::max(date.month, date.day) <= 31 &&
         dayOf(date).ok();
}

bool isDate(std::string_view text) {
  if (text.size() != 10 || text[2] != '/' || text[5] != '/') return false;
  return exists(partsOf(text));
}

int compareDates(std::string_view first, std::string_view second) {
  const auto order = dayOf(partsOf(first)) <=> dayOf(partsOf(second));
  return std::is_lt(order) ? -1 : std::is_gt(order) ? 1 : 0;
}

}  // namespace quillet
