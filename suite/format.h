// Numbers and dates as texts, by the suite's formats.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/ports.h"

namespace quillet::suite {

// A number by a format: "#,##0.00", "###0.00", "0000", and with a second section for negative
// numbers "#,##0.00;(#,##0.00)". Rounded as a person does on paper: on the number's 15 significant
// decimal digits, half away from zero. A number that rounds to zero carries no minus. Throws
// RunTimeError for what is no number.
std::string formatNumber(double number, std::string_view format);

// The date that a text tells in any form that people write: 1/4/2008, 01-04-08, 1.4.2008,
// 2008-04-01, 01042008, 1 Apr 2008; a time after it is ignored. Two digits of a year below 30 mean
// this century. Nothing when there is no such day.
std::optional<Date> readDate(std::string_view text);

// "01/04/2008", "" when the text is no date.
std::string normalisedDate(std::string_view text);

// By a format of d, dd, m, mm, mmm, yy, yyyy in any case: "DD/MM/YYYY", "YYYY-MM-DD", "d-m-yyyy".
std::string formatDate(Date date, std::string_view format);

}  // namespace quillet::suite
