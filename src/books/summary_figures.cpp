#include "books/summary_figures.h"

#include <cmath>
#include <initializer_list>

namespace quillet {
namespace {

// Sums of amounts in binary may miss zero by a trifle; no balance is smaller than half a paisa.
bool isZero(double amount) { return std::fabs(amount) < 0.005; }

std::optional<double> ratio(double part, double whole, double scale) {
  if (isZero(whole)) return std::nullopt;
  return part / whole * scale;
}

}  // namespace

std::array<SummaryRow, summaryRows> summaryOf(const Balances& balances) {
  const auto sum = [&](std::initializer_list<int> groups) {
    double total = 0;
    for (const int group : groups) total += balances.group[static_cast<std::size_t>(group)];
    return total;
  };
  const double stock = balances.closingStock;
  const double sales = sum({15});
  const double costOfGoods = sum({18, 19, 20, 16}) - stock;
  const double expenses = sum({21, 22, 23, 24, 25, 26}) + balances.appropriations;
  // Profits are credits: negative until they are shown.
  const double gross = costOfGoods + sales;
  const double net = gross + expenses + sum({17});
  const double transferred = net + balances.depreciation;
  const double assets = sum({5, 6, 7, 8, 9, 10, 11, 14, 27}) + stock;
  const double liabilities = -(transferred + sum({1, 2, 3, 4, 12, 13, 28}));
  const double currentAssets = sum({7, 8, 9, 10, 11}) + stock;
  const double currentLiabilities = -sum({12, 13});
  return {{{"Opening Stock", sum({18})},
           {"Purchases", sum({19})},
           {"Direct Expenses", sum({20, 16})},
           {"Less : Closing Stock", stock},
           {"Cost of Goods Sold", costOfGoods, true},
           {"Sales", -sales},
           {"Gross Profit/(Loss)", -gross, true},
           {"Expenses", expenses},
           {"Incomes", -sum({17})},
           {"Net Profit/(Loss)", -net, true},
           {"Profit Tr. to B/S", -transferred, true},
           {"Total Assets", assets, true},
           {"Total Liabilities", liabilities, true},
           {"Current Assets", currentAssets},
           {"Current Liabilities", currentLiabilities},
           {"Working Capital", currentAssets - currentLiabilities, true},
           {"GP Rate", ratio(-gross, -sales, 100)},
           {"NP Rate", ratio(-transferred, -sales, 100)},
           {"Current Ratio", ratio(currentAssets, currentLiabilities, 1)}}};
}

}  // namespace quillet
