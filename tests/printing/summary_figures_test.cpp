// Final accounts worked out by hand, each of them balancing: a trial balance, the stock counted at
// its end, and what the summary must say about them.
#include "books/summary_figures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace quillet {
namespace {

struct Account {
  int group;
  double balance;  // debit positive
};
Account on(int group, double balance) { return {group, balance}; }
constexpr int depreciation = 129;  // group 29, its depreciation

using Figures = std::vector<std::optional<double>>;
constexpr std::nullopt_t none = std::nullopt;  // a rate that has no base

// The figures stand in the order of their captions; those left out at the end are zero.
struct Case {
  std::string name;
  std::vector<Account> trialBalance;
  double closingStock;
  Figures trading, result, balanceSheet, rates;
};

const std::vector<std::vector<std::string>> captions = {
    {"Opening Stock", "Purchases", "Direct Expenses", "Less : Closing Stock", "Cost of Goods Sold",
     "Sales", "Gross Profit/(Loss)"},
    {"Expenses", "Incomes", "Net Profit/(Loss)", "Profit Tr. to B/S"},
    {"Total Assets", "Total Liabilities", "Current Assets", "Current Liabilities",
     "Working Capital"},
    {"GP Rate", "NP Rate", "Current Ratio"}};

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

const std::vector<Case> cases = {
    // Materials 30,000 + 150,000 and works 90,000 + carriage 10,000, less 35,000 left: 245,000 for
    // sales of 400,000. Salaries 60,000, rent 25,000, advertising 8,000, interest 15,000, taxes
    // 1,000, other 4,000, commission earned 13,000. Income tax 20,000 stands beside the
    // depreciation of 25,000 in one group.
    {"A manufacturer",
     {on(18, 30'000),   on(19, 150'000),
      on(20, 90'000),   on(16, 10'000),
      on(15, -400'000), on(21, 60'000),
      on(22, 25'000),   on(23, 8'000),
      on(25, 1'000),    on(26, 4'000),
      on(17, -13'000),  on(24, 15'000),
      on(29, 20'000),   on(depreciation, 25'000),
      on(5, 260'000),   on(6, 40'000),
      on(7, 5'000),     on(8, 70'000),
      on(9, 12'000),    on(10, 3'000),
      on(11, 18'000),   on(14, 7'000),
      on(27, 2'000),    on(1, -150'000),
      on(2, -82'000),   on(3, -90'000),
      on(4, -40'000),   on(12, -55'000),
      on(13, -20'000),  on(28, -5'000)},
     35'000,
     {30'000, 150'000, 100'000, 35'000, 245'000, 400'000, 155'000},
     {133'000, 13'000, 35'000, 10'000},
     {452'000, 452'000, 143'000, 75'000, 68'000},
     {38.75, 2.5, 143.0 / 75}},
    // Goods that cost 118,000 went for 110,000, and the expenses come on top.
    {"A year of loss",
     {on(18, 20'000), on(19, 113'000), on(15, -110'000), on(22, 31'500.5), on(depreciation, 2'000),
      on(17, -499.5), on(8, 3'999), on(1, -40'000), on(12, -20'000)},
     15'000,
     {20'000, 113'000, 0, 15'000, 118'000, 110'000, -8'000},
     {31'500.5, 499.5, -39'001, -41'001},
     {18'999, 18'999, 18'999, 20'000, -1'001},
     {-8.0 / 1.1, -41.001 / 1.1, 0.94995}},
    // A society that lives on interest; nothing is sold and nothing is owed.
    {"No sales, no creditors",
     {on(17, -75'000), on(22, 20'000), on(6, 555'000), on(9, 100'000), on(1, -600'000)},
     0,
     {},
     {20'000, 75'000, 55'000, 55'000},
     {655'000, 655'000, 100'000, 0, 100'000},
     {none, none, none}},
    // Suppliers were paid too much, returns exceed the sales: both bases are there, turned round.
    {"Balances on the wrong side",
     {on(15, 4'000), on(12, 6'000), on(9, -2'000), on(1, -8'000)},
     0,
     {0, 0, 0, 0, 0, -4'000, -4'000},
     {0, 0, -4'000, -4'000},
     {-2'000, -2'000, -2'000, -6'000, 4'000},
     {100, 100, 1.0 / 3}},
    // Sales and their returns cancel but for what binary sums leave over: there is no rate of that.
    {"Sales that cancel",
     {on(15, -0.1), on(15, -0.2), on(15, 0.3)},
     0,
     {},
     {},
     {},
     {none, none, none}}};

TEST(SummaryFigures, SayWhatTheAccountsSay) {
  for (const Case& worked : cases) {
    SCOPED_TRACE(worked.name);
    double difference = 0;
    for (const Account& account : worked.trialBalance) difference += account.balance;
    ASSERT_NEAR(difference, 0, 1e-9) << "the example itself does not balance";

    const auto rows = summaryOf(balancesOf(worked));
    ASSERT_EQ(rows.size(), 19U);
    auto row = rows.begin();
    const Figures* figures[] = {&worked.trading, &worked.result, &worked.balanceSheet,
                                &worked.rates};
    for (std::size_t block = 0; block < captions.size(); ++block) {
      Figures expected = *figures[block];
      expected.resize(captions[block].size(), 0);
      for (std::size_t i = 0; i < expected.size(); ++i, ++row) {
        const std::string& caption = captions[block][i];
        EXPECT_EQ(row->caption, caption);
        ASSERT_EQ(row->value.has_value(), expected[i].has_value()) << caption;
        EXPECT_NEAR(row->value.value_or(0), expected[i].value_or(0), 1e-9) << caption;
      }
    }
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
