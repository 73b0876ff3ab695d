// Amounts as people type and read them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/money.h"
#include "ports/ports.h"

namespace quillet {

// A typed amount, rounded to two decimals as on paper: digits with an optional sign and point,
// thousands separated by commas in any grouping. Nothing when the text is no such number, or has
// more digits than a table can keep to the paisa. An empty text is no number.
std::optional<Money> typedAmount(std::string_view text);

// Says why the text is none.
std::string notAnAmount(std::string_view text);

// "1234.50", as amounts stand in lines and entry boxes.
std::string plainAmount(const ServiceObject& host, double rupees);
inline std::string plainAmount(const ServiceObject& host, Money amount) {
  return plainAmount(host, amount.rupees());
}
// "1,234.50", as totals and balances stand.
std::string groupedAmount(const ServiceObject& host, double rupees);
inline std::string groupedAmount(const ServiceObject& host, Money amount) {
  return groupedAmount(host, amount.rupees());
}
// "1,234.50 DR" with its side, debit positive; nothing ("") for none.
std::string groupedBalance(const ServiceObject& host, Money balance);

// The amount that a text of one of these forms says, nothing (0) for any other text. What is added
// from such texts agrees with what a person adds up on screen or paper.
Money shownAmount(std::string_view text);

}  // namespace quillet
