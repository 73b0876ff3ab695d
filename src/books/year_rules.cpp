#include "books/year_rules.h"

#include "data/dates.h"
#include "data/year.h"

namespace quillet {
namespace {

constexpr int earliestYear = 1980;
constexpr int latestYear = 9999;

// In the order of YearFault, from tooEarly on.
constexpr YearRefusal refusals[] = {
    {"Financial Year from 1980-81 allowed.", Icon::information, false, false},
    {"Difference between the two dates should be one year.", Icon::none, false, false},
    {"Invalid date.", Icon::information, true, false},
    {"Invalid date.", Icon::information, false, true},
    {"First date must be less than second date.", Icon::information, true, true}};

}  // namespace

YearFault yearFault(std::string_view first, std::string_view second) {
  if (yearOf(first) < earliestYear) return YearFault::tooEarly;
  if (yearOf(second) - yearOf(first) != 1) return YearFault::notOneYear;
  if (!isDate(first)) return YearFault::firstInvalid;
  if (!isDate(second)) return YearFault::secondInvalid;
  return YearFault::none;
}

const YearRefusal& refusalOf(YearFault fault) {
  return refusals[static_cast<int>(fault) - static_cast<int>(YearFault::tooEarly)];
}

std::string proposedSecondDate(std::string_view first) {
  if (!isDate(first) || yearOf(first) == latestYear) return {};
  return shownDate(secondDateKey(yearOf(first) + 1));
}

}  // namespace quillet
