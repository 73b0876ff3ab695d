// The summary of a year: from the balances of its groups to trading figures, profit, balance-sheet
// totals and ratios.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "books/primary_groups.h"
#include "books/unposted_changes.h"
#include "ports/ports.h"

namespace quillet {

// Primary groups summed one by one, and the one behind them that depreciation is kept apart in.
inline constexpr int summaryGroups = static_cast<int>(PrimaryGroup::otherLiabilities);
inline constexpr int splitGroup = static_cast<int>(PrimaryGroup::appropriations);

// Signed balances of one year: debit is positive, credit negative.
struct Balances {
  std::array<double, summaryGroups + 1> group{};  // by the primary group's number, from 1
  double appropriations = 0;                      // depreciation left out
  double depreciation = 0;
  double closingStock = 0;

  double of(PrimaryGroup primary) const { return group[static_cast<int>(primary)]; }
};

// The balances in the year's table; the closing stock is kept elsewhere (books/closing_stock.h).
Balances readBalances(ServiceObject& host, const ClientTable& books);

struct SummaryRow {
  std::string_view caption;
  std::optional<double> value;  // nothing for a rate whose base is zero
  bool result = false;          // drawn from the rows above it: stands out on screen and paper
};

inline constexpr int summaryRows = 19;

// The rows in their order. Depreciation is no part of "Expenses" and "Net Profit/(Loss)"; it is
// taken into the profit transferred to the balance sheet alone.
std::array<SummaryRow, summaryRows> summaryOf(const Balances& balances);

}  // namespace quillet
