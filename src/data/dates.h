// Dates as they stand in the date boxes: "dd/mm/yyyy". A box that is not filled holds no date.
#pragma once

#include <string_view>

namespace quillet {

// Whether the text is a day that exists, leap years observed. A place without a digit, a month 00
// and a year 0000 make it none.
bool isDate(std::string_view text);

// Below 0 when the first is the earlier one, 0 when they are the same, above 0 when it is the
// later one; compares year, month and day.
int compareDates(std::string_view first, std::string_view second);

}  // namespace quillet
