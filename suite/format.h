// Numbers and dates as texts, by the suite's formats.
#pragma once

#include <string>
#include <string_view>

#include "data/dates.h"

namespace quillet::suite {

// A number by a format: "#,##0.00", "###0.00", "0000", and with a second section for negative
// numbers "#,##0.00;(#,##0.00)". Rounded as a person does on paper: on the number's 15 significant
// decimal digits, half away from zero. A number that rounds to zero carries no minus. Throws
// RunTimeError for what is no number.
std::string formatNumber(double number, std::string_view format);

// "01/04/2008", "" when the text is no date.
std::string normalisedDate(std::string_view text);

// By a format of d, dd, m, mm, mmm, yy, yyyy in any case: "DD/MM/YYYY", "YYYY-MM-DD", "d-m-yyyy".
std::string formatDate(Date date, std::string_view format);

}  // namespace quillet::suite
