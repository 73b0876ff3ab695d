// Whose capital takes the profit of a year, and how much of it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "books/unposted_changes.h"
#include "data/money.h"

namespace quillet {

// Shares are counted in millionths of the whole, so that per cents have four decimals.
inline constexpr long wholeShare = 1'000'000;

struct ProfitShare {
  LedgerGroup pair;  // no ledger: the one of that name, which is made when there is none
  std::string ledger = {};
  long millionths = 0;
  bool operator==(const ProfitShare&) const = default;
};

// A typed per cent from 0 to 100 with up to four decimals; nothing when the text is none.
std::optional<long> typedPercent(std::string_view text);
// "33.3333", without needless zeros.
std::string percentText(long millionths);

long sumOf(const std::vector<ProfitShare>& shares);
// The amount by shares that come to the whole: to the paisa, and their sum is the amount. What is
// left of a paisa goes to the largest remainders, of equal ones to the first.
std::vector<Money> amountsOf(Money amount, const std::vector<ProfitShare>& shares);

}  // namespace quillet
