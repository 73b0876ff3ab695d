// The summary of a year: from the balances of its groups to trading figures, profit, balance-sheet
// totals and ratios.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace quillet {

inline constexpr int summaryGroups = 28;  // primary groups summed one by one
inline constexpr int splitGroup = 29;     // the one that depreciation is kept apart in

// Signed balances of one year: debit is positive, credit negative.
struct Balances {
  std::array<double, summaryGroups + 1> group{};  // by the primary group's number, from 1
  double appropriations = 0;                      // of group 29, depreciation left out
  double depreciation = 0;                        // of group 29, depreciation alone
  double closingStock = 0;
};

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
