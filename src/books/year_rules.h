// The rules for the two dates between which a financial year runs, in the order in which they are
// tested, and what is said when one is broken.
#pragma once

#include <string>
#include <string_view>

#include "ports/ports.h"

namespace quillet {

// What the date boxes hold before a year is typed.
inline constexpr const char* emptyFirstDate = "01/04/####";
inline constexpr const char* emptySecondDate = "31/03/####";

enum class YearFault { none, tooEarly, notOneYear, firstInvalid, secondInvalid, wrongOrder };

// Both texts as they stand in the date boxes.
YearFault yearFault(std::string_view first, std::string_view second);

struct YearRefusal {
  const char* text;
  Icon icon;
  bool resetsFirst;
  bool resetsSecond;
};

// What is said of a fault, and which date boxes are set back.
const YearRefusal& refusalOf(YearFault fault);

// The second date that goes with a first one: 31 March of the year after it. Nothing is proposed
// ("") for a text that is no date, or when that year has no four digits.
std::string proposedSecondDate(std::string_view first);

}  // namespace quillet
