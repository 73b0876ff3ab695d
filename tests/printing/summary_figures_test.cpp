// Final accounts worked out by hand, each of them balancing: a trial balance, the stock counted at
// its end, and what the summary must say about them.
#include "editor/summary_figures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>
#include <vector>

namespace quillet {
namespace {

using Figures = std::map<std::string, double>;

struct Account {
  int group;
  double balance;  // debit positive
};
constexpr int depreciation = 129;  // group 29, its depreciation

struct Case {
  std::string name;
  std::vector<Account> trialBalance;
  double closingStock;
  Figures expected;               // captions not named are zero
  std::vector<std::string> none;  // rates that have no base
};

Balances balancesOf(const Case& worked) {
  Balances balances;
  for (const Account& account : worked.trialBalance) {
    if (account.group == depreciation) {
      balances.depreciation += account.balance;
    } else if (account.group == splitGroup) {
      balances.appropriations += account.balance;
    } else {
      balances.group[static_cast<std::size_t>(account.group)] += account.balance;
    }
  }
  balances.closingStock = worked.closingStock;
  return balances;
}

const std::vector<std::string> rates = {"GP Rate", "NP Rate", "Current Ratio"};

const std::vector<Case> cases = {
    // Opening 40,000 + purchases 210,000 + freight 6,000 - closing 56,000 = 200,000 sold for
    // 300,000. Salaries 30,000, rent 12,000, advertising 8,000, interest 5,000, taxes 1,000, other
    // 4,000, commission earned 10,000; depreciation 9,000.
    {"A trader",
     {{18, 40'000},
      {19, 210'000},
      {16, 6'000},
      {15, -300'000},
      {21, 30'000},
      {22, 12'000},
      {23, 8'000},
      {24, 5'000},
      {25, 1'000},
      {26, 4'000},
      {17, -10'000},
      {5, 81'000},
      {8, 65'000},
      {9, 23'000},
      {12, -44'000},
      {13, -6'000},
      {1, -100'000},
      {3, -34'000},
      {depreciation, 9'000}},
     56'000,
     {{"Opening Stock", 40'000},
      {"Purchases", 210'000},
      {"Direct Expenses", 6'000},
      {"Less : Closing Stock", 56'000},
      {"Cost of Goods Sold", 200'000},
      {"Sales", 300'000},
      {"Gross Profit/(Loss)", 100'000},
      {"Expenses", 60'000},
      {"Incomes", 10'000},
      {"Net Profit/(Loss)", 50'000},
      {"Profit Tr. to B/S", 41'000},
      {"Total Assets", 225'000},
      {"Total Liabilities", 225'000},
      {"Current Assets", 144'000},
      {"Current Liabilities", 50'000},
      {"Working Capital", 94'000},
      {"GP Rate", 100.0 / 3},
      {"NP Rate", 41.0 / 3},
      {"Current Ratio", 2.88}},
     {}},
    // Materials 30,000 + 150,000 and works 90,000 + carriage 10,000, less 35,000 left: 245,000 for
    // sales of 400,000. Income tax 20,000 stands beside the depreciation of 25,000 in one group.
    {"A manufacturer",
     {{18, 30'000}, {19, 150'000}, {20, 90'000}, {16, 10'000},  {15, -400'000},
      {21, 60'000}, {22, 25'000},  {24, 15'000}, {29, 20'000},  {depreciation, 25'000},
      {5, 260'000}, {6, 40'000},   {7, 5'000},   {8, 70'000},   {9, 12'000},
      {10, 3'000},  {11, 18'000},  {14, 7'000},  {27, 2'000},   {1, -150'000},
      {2, -82'000}, {3, -90'000},  {4, -40'000}, {12, -55'000}, {13, -20'000},
      {28, -5'000}},
     35'000,
     {{"Opening Stock", 30'000},
      {"Purchases", 150'000},
      {"Direct Expenses", 100'000},
      {"Less : Closing Stock", 35'000},
      {"Cost of Goods Sold", 245'000},
      {"Sales", 400'000},
      {"Gross Profit/(Loss)", 155'000},
      {"Expenses", 120'000},
      {"Net Profit/(Loss)", 35'000},
      {"Profit Tr. to B/S", 10'000},
      {"Total Assets", 452'000},
      {"Total Liabilities", 452'000},
      {"Current Assets", 143'000},
      {"Current Liabilities", 75'000},
      {"Working Capital", 68'000},
      {"GP Rate", 38.75},
      {"NP Rate", 2.5},
      {"Current Ratio", 143.0 / 75}},
     {}},
    // Goods that cost 118,000 went for 110,000, and the expenses come on top.
    {"A year of loss",
     {{18, 20'000},
      {19, 113'000},
      {15, -110'000},
      {22, 31'500.5},
      {depreciation, 2'000},
      {17, -499.5},
      {8, 3'999},
      {1, -40'000},
      {12, -20'000}},
     15'000,
     {{"Opening Stock", 20'000},
      {"Purchases", 113'000},
      {"Less : Closing Stock", 15'000},
      {"Cost of Goods Sold", 118'000},
      {"Sales", 110'000},
      {"Gross Profit/(Loss)", -8'000},
      {"Expenses", 31'500.5},
      {"Incomes", 499.5},
      {"Net Profit/(Loss)", -39'001},
      {"Profit Tr. to B/S", -41'001},
      {"Total Assets", 18'999},
      {"Total Liabilities", 18'999},
      {"Current Assets", 18'999},
      {"Current Liabilities", 20'000},
      {"Working Capital", -1'001},
      {"GP Rate", -8.0 / 1.1},
      {"NP Rate", -41.001 / 1.1},
      {"Current Ratio", 0.94995}},
     {}},
    // A society that lives on interest; nothing is sold and nothing is owed.
    {"No sales, no creditors",
     {{17, -75'000}, {22, 20'000}, {6, 555'000}, {9, 100'000}, {1, -600'000}},
     0,
     {{"Expenses", 20'000},
      {"Incomes", 75'000},
      {"Net Profit/(Loss)", 55'000},
      {"Profit Tr. to B/S", 55'000},
      {"Total Assets", 655'000},
      {"Total Liabilities", 655'000},
      {"Current Assets", 100'000},
      {"Working Capital", 100'000}},
     rates},
    // Suppliers were paid too much, returns exceed the sales: both bases are there, turned round.
    {"Balances on the wrong side",
     {{15, 4'000}, {12, 6'000}, {9, -2'000}, {1, -8'000}},
     0,
     {{"Sales", -4'000},
      {"Gross Profit/(Loss)", -4'000},
      {"Net Profit/(Loss)", -4'000},
      {"Profit Tr. to B/S", -4'000},
      {"Total Assets", -2'000},
      {"Total Liabilities", -2'000},
      {"Current Assets", -2'000},
      {"Current Liabilities", -6'000},
      {"Working Capital", 4'000},
      {"GP Rate", 100},
      {"NP Rate", 100},
      {"Current Ratio", 1.0 / 3}},
     {}},
    // Sales and their returns cancel but for what binary sums leave over: there is no rate of that.
    {"Sales that cancel", {{15, -0.1}, {15, -0.2}, {15, 0.3}}, 0, {}, rates},
    {"Nothing at all", {}, 0, {}, rates},
};

const std::vector<std::string> captions = {"Opening Stock",
                                           "Purchases",
                                           "Direct Expenses",
                                           "Less : Closing Stock",
                                           "Cost of Goods Sold",
                                           "Sales",
                                           "Gross Profit/(Loss)",
                                           "Expenses",
                                           "Incomes",
                                           "Net Profit/(Loss)",
                                           "Profit Tr. to B/S",
                                           "Total Assets",
                                           "Total Liabilities",
                                           "Current Assets",
                                           "Current Liabilities",
                                           "Working Capital",
                                           "GP Rate",
                                           "NP Rate",
                                           "Current Ratio"};

TEST(SummaryFigures, SayWhatTheAccountsSay) {
  for (const Case& worked : cases) {
    SCOPED_TRACE(worked.name);
    double difference = 0;
    for (const Account& account : worked.trialBalance) difference += account.balance;
    ASSERT_NEAR(difference, 0, 1e-9) << "the example itself does not balance";

    const auto rows = summaryOf(balancesOf(worked));
    std::vector<std::string> shown;
    std::vector<std::string> withoutValue;
    for (const SummaryRow& row : rows) {
      const std::string caption(row.caption);
      shown.push_back(caption);
      if (!row.value) {
        withoutValue.push_back(caption);
        continue;
      }
      const auto expected = worked.expected.find(caption);
      EXPECT_NEAR(*row.value, expected == worked.expected.end() ? 0 : expected->second, 1e-9)
          << caption;
    }
    EXPECT_EQ(shown, captions);
    EXPECT_EQ(withoutValue, worked.none);
  }
}

// The two sides of the balance sheet meet for any books that balance, whatever their groups.
TEST(SummaryFigures, AssetsEqualLiabilitiesWhateverTheGroups) {
  for (int left = 1; left <= summaryGroups; ++left) {
    for (int right = 1; right <= summaryGroups; ++right) {
      Balances balances;
      balances.group[static_cast<std::size_t>(left)] += 1'234.5;
      balances.group[static_cast<std::size_t>(right)] -= 1'234.5 + 77 + 11;
      balances.depreciation = 77;
      balances.appropriations = 11;
      balances.closingStock = 500;
      const auto rows = summaryOf(balances);
      EXPECT_NEAR(*rows[11].value, *rows[12].value, 1e-9) << left << " against " << right;
    }
  }
}

}  // namespace
}  // namespace quillet
