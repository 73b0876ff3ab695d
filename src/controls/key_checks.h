// What a validating box accepts, as plain functions: single keys by validation mode, dates as
// people write them, amounts with two decimals.
#pragma once

#include <string>
#include <string_view>

namespace quillet::key_checks {

// The modes by their number; 0 and any other number check nothing.
enum Mode {
  anything = 0,
  number = 1,        // digits and signs
  alphabets = 2,     // letters and the space
  alphanumeric = 3,  // letters and digits
  amount = 4,        // digits, point and signs
  longDate = 5,      // dd-mm-yyyy
  shortDate = 6      // dd-mm-yy
};

// Whether the mode takes the character.
bool accepts(int mode, char32_t key);
// What a person is told when it does not.
const char* refusal(int mode);

// What is wrong with the text of a date mode, "" when nothing is: that it tells no date, or tells
// one in another form.
const char* dateFault(int mode, std::string_view text);

// A number rounded to two decimals as on paper, half away from zero: "1.005" gives "1.01". A text
// that is no number stays as it is.
std::string twoDecimals(std::string_view text);

}  // namespace quillet::key_checks
