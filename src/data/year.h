// Financial years run from 1 April to 31 March. A year is known by two keys of eight characters:
// "0104" and its first year, "3103" and its second.
#pragma once

#include <string>
#include <string_view>

namespace quillet {

std::string firstDateKey(int firstYear);
std::string secondDateKey(int secondYear);

// The year a key or a shown date ends in, 0 when it does not end in four digits.
int yearOf(std::string_view keyOrDate);

// "2008-2009", from the keys or the shown dates of a year.
std::string yearText(std::string_view first, std::string_view second);

// "2008-09" for the year that begins in 2008.
std::string shortYearText(int firstYear);

// "01042008" as "01/04/2008"; a text that is no key stays as it is.
std::string shownDate(std::string_view key);
// "2026-11-22 16:45:00" as "22/11/2026 16:45", "2026-11-22" as "22/11/2026".
std::string shownMoment(const std::string& moment);
// "01/04/2008" as "01042008": the parts of a cell joined again.
std::string dateKey(std::string_view shown);

}  // namespace quillet
