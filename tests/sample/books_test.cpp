// The sample books as figures, before any of them reaches a database.
#include "suite/sample/books.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "suite/sample/dice.h"
#include "suite/starter_data.h"

namespace quillet::suite::sample {
namespace {

GrandGroup grandGroup(const std::string& name) { return accountGroup(name)->primary->grand; }

bool isNominal(const BookLine& line) {
  const GrandGroup grand = grandGroup(line.group);
  return grand == GrandGroup::incomes || grand == GrandGroup::expenses;
}

template <class Condition>
Paise sum(const std::vector<BookLine>& lines, Condition condition) {
  Paise total = 0;
  for (const BookLine& line : lines)
    if (condition(line)) total += line.amount;
  return total;
}

Paise sum(const std::vector<BookLine>& lines) {
  return sum(lines, [](const BookLine&) { return true; });
}

bool belongsToOwners(const BookLine& line) {
  static const std::set<std::string> groups = {"CAPITAL ACCOUNT", "PARTNERS CAPITAL ACCOUNT",
                                               "PROFIT AND LOSS ACCOUNT", "DRAWINGS"};
  return groups.contains(line.group);
}

// The parameter is the client's place in the list.
class BooksTest : public ::testing::TestWithParam<std::size_t> {
 protected:
  const SampleClient& client = sampleClients()[GetParam()];
  const std::vector<YearBooks> years = keepBooks(client);
};

TEST_P(BooksTest, EveryYearBalancesWithOneLineForEachPair) {
  for (const YearBooks& year : years) {
    SCOPED_TRACE(year.firstYear);
    EXPECT_EQ(sum(year.lines), 0);
    std::set<std::pair<std::string, std::string>> pairs;
    for (const BookLine& line : year.lines) {
      EXPECT_NE(line.amount, 0) << line.ledger;
      EXPECT_TRUE(pairs.emplace(line.ledger, line.group).second) << line.ledger;
    }
  }
}

TEST_P(BooksTest, AYearGoesOnWhereTheLastOneEnded) {
  for (std::size_t i = 1; i < years.size(); ++i) {
    const YearBooks& last = years[i - 1];
    const YearBooks& next = years[i];
    EXPECT_EQ(next.firstYear, last.firstYear + 1);
    if (next.lines.empty()) continue;
    SCOPED_TRACE(next.firstYear);
    EXPECT_EQ(
        sum(next.lines, [](const BookLine& line) { return line.group.starts_with("OPENING"); }),
        sum(last.stock));
    const Paise profit = sum(last.stock) - sum(last.lines, isNominal);
    EXPECT_GT(profit, 0);
    EXPECT_EQ(
        sum(next.lines,
            [](const BookLine& line) { return belongsToOwners(line) && line.group != "DRAWINGS"; }),
        sum(last.lines, belongsToOwners) - profit);
  }
}

// A year just opened shows no difference, although the editor adds up doubles and does not round.
TEST_P(BooksTest, TotalsAgreeInBinaryToo) {
  for (const YearBooks& year : years) {
    double debits = 0, credits = 0;
    for (const BookLine& line : year.lines)
      (line.amount > 0 ? debits : credits) += std::abs(static_cast<double>(line.amount)) / 100;
    EXPECT_EQ(debits, credits) << year.firstYear;
  }
}

// Nobody's bank account is overdrawn, no capital is eaten up, no loan is repaid twice.
TEST_P(BooksTest, AssetsStandInDebitAndLiabilitiesInCredit) {
  for (const YearBooks& year : years)
    for (const BookLine& line : year.lines) {
      if (isNominal(line)) continue;
      const bool debit = line.group == "DRAWINGS" || grandGroup(line.group) == GrandGroup::assets;
      EXPECT_EQ(line.amount > 0, debit) << year.firstYear << ' ' << line.ledger;
    }
}

TEST_P(BooksTest, HasAsManyLinesAsItShould) {
  ASSERT_EQ(std::ssize(years), client.years);
  for (const YearBooks& year : years) {
    SCOPED_TRACE(year.firstYear);
    const auto odd = std::count_if(year.lines.begin(), year.lines.end(),
                                   [](const BookLine& line) { return line.amount % 100 != 0; });
    EXPECT_GE(odd * 3, std::ssize(year.lines)) << "too many whole rupees";
    if (client.latestEmpty && &year == &years.back()) {
      EXPECT_TRUE(year.lines.empty());
      EXPECT_TRUE(year.stock.empty());
    } else if (client.lines > 0) {
      EXPECT_EQ(std::ssize(year.lines), client.lines);
    } else {
      EXPECT_GE(year.lines.size(), 40u);
      EXPECT_LE(year.lines.size(), 120u);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Clients, BooksTest,
                         ::testing::Range<std::size_t>(0, sampleClients().size()),
                         [](const auto& tested) {
                           return sampleClients()[tested.param].entry.code;
                         });

TEST(SampleClients, HoldEveryCaseThatThePracticeIsToShow) {
  std::set<std::string> codes;
  std::set<std::string> trades, statuses;
  std::map<std::string, int> special;
  for (const SampleClient& client : sampleClients()) {
    EXPECT_TRUE(codes.insert(client.entry.code).second) << client.entry.code;
    ++special[client.years == 0             ? "without years"
              : client.latestEmpty          ? "with an empty year"
              : client.lines == 2'000       ? "with a long year"
              : !client.entry.first.empty() ? "person"
                                            : "firm"];
    if (client.years == 0) continue;
    trades.insert(client.trade);
    statuses.insert(client.entry.status);
    EXPECT_GE(client.years, client.latestEmpty ? 2 : 1) << client.entry.code;
  }
  EXPECT_EQ(trades.size(), 3u);
  EXPECT_EQ(statuses.size(), 3u);
  for (const char* kind : {"without years", "with an empty year", "with a long year"})
    EXPECT_EQ(special[kind], 1) << kind;
  EXPECT_GE(special["person"], 2);
  EXPECT_GE(special["firm"], 2);
}

TEST(SampleFirms, AreAllDifferent) {
  for (const std::string line : {"cloth", "hardware", "medicine", "advice"}) {
    std::set<std::string> customers, suppliers;
    for (int n = 0; n < 3'000; ++n) {
      EXPECT_TRUE(customers.insert(customerName(line, n)).second) << n;
      EXPECT_TRUE(suppliers.insert(supplierName(line, n)).second) << n;
    }
  }
}

// Every machine and library makes the same practice of the same seed.
TEST(SampleDice, FallTheSameEverywhere) {
  Dice dice("TAV01");
  std::vector<long> fallen;
  fallen.reserve(4);
  for (int i = 0; i < 4; ++i) fallen.push_back(dice.below(1'000'000));
  EXPECT_EQ(fallen, (std::vector<long>{361'831, 627'901, 772'014, 115'933}));
  for (int i = 0; i < 1'000; ++i) {
    const long long varied = dice.vary(20'000'000'000, 45);
    EXPECT_GE(varied, 11'000'000'000);
    EXPECT_LE(varied, 29'000'000'000);
  }
}

}  // namespace
}  // namespace quillet::suite::sample
