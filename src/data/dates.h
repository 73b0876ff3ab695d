// Dates as texts.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace quillet {

struct Date {
  int year = 0;
  int month = 0;
  int day = 0;
};

// Whether there is such a day, from the year 1 on.
bool exists(Date date);

inline constexpr std::array<std::string_view, 12> monthNames{
    "january", "february", "march",     "april",   "may",      "june",
    "july",    "august",   "september", "october", "november", "december"};

// The date that a text tells in any form that people write: 1/4/2008, 01-04-08, 1.4.2008,
// 2008-04-01, 01042008, 1 Apr 2008; a time after it is ignored. Two digits of a year below 30 mean
// this century. Nothing when there is no such day.
std::optional<Date> readDate(std::string_view text);

// --- as they stand in the date boxes: "dd/mm/yyyy"; a box that is not filled holds no date

// Whether the text is a day that exists, leap years observed. A place without a digit, a month 00
// and a year 0000 make it none.
bool isDate(std::string_view text);

// Below 0 when the first is the earlier one, 0 when they are the same, above 0 when it is the
// later one; compares year, month and day.
int compareDates(std::string_view first, std::string_view second);

}  // namespace quillet
