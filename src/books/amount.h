// Amounts as people type them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ports/ports.h"

namespace quillet {

// A typed amount, rounded to two decimals as on paper: digits with an optional sign and point,
// thousands separated by commas in any grouping. Nothing when the text is no such number, or has
// more digits than can be kept to the paisa. An empty text is no number.
std::optional<double> typedAmount(const ServiceObject& host, std::string_view text);

// Says why the text is none.
std::string notAnAmount(std::string_view text);

// The number that a text formatted "###0.00" or "#,##0.00" says, 0 for any other text. What is
// added from such texts agrees with what a person adds up on screen or paper.
double shownAmount(std::string_view text);

}  // namespace quillet
