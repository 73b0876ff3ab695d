// Dates, the rules of a financial year, table numbers, the year before, merged lines.
#include "books/year_rules.h"

#include <gtest/gtest.h>

#include <random>

#include "books/registry.h"
#include "books/year_merge.h"
#include "data/dates.h"

namespace quillet {
namespace {

TEST(YearRules, TellDatesAndYearsApart) {
  using enum YearFault;
  constexpr struct {
    const char *first, *second;
    bool firstIsDate;
    YearFault fault;
    const char* proposed;  // second date that goes with the first
  } cases[] = {{"01/04/2008", "31/03/2009", true, none, "31/03/2009"},
               {"01/04/1980", "31/03/1981", true, none, "31/03/1981"},
               {"01/04/1979", "31/03/1980", true, tooEarly, "31/03/1980"},
               {"31/12/1979", "31/12/1979", true, tooEarly, "31/03/1980"},
               {"01/04/1999", "31/03/2000", true, none, "31/03/2000"},
               {"15/06/2008", "31/03/2009", true, none, "31/03/2009"},
               {"01/04/2008", "31/03/2010", true, notOneYear, "31/03/2009"},
               {"01/04/2008", "31/03/2008", true, notOneYear, "31/03/2009"},
               {"01/04/2009", "31/03/2008", true, notOneYear, "31/03/2010"},
               {"29/02/2008", "29/02/2009", true, secondInvalid, "31/03/2009"},
               {"29/02/2009", "28/02/2010", false, firstInvalid, ""},
               {"29/02/2000", "28/02/2001", true, none, "31/03/2001"},
               {"29/02/2100", "31/03/2101", false, firstInvalid, ""},
               {"31/04/2008", "31/03/2009", false, firstInvalid, ""},
               {"01/04/2008", "31/04/2009", true, secondInvalid, "31/03/2009"},
               {"01/13/2008", "31/03/2009", false, firstInvalid, ""},
               {"00/00/2008", "31/03/2009", false, firstInvalid, ""},
               {"00/04/2008", "00/00/2009", false, firstInvalid, ""},
               {"01/04/2008", "3#/03/2009", true, secondInvalid, "31/03/2009"},
               {"#1/04/2008", "31/03/2009", false, firstInvalid, ""},
               {"01/04/####", "31/03/####", false, tooEarly, ""},
               {"01/04/200#", "31/03/2009", false, tooEarly, ""},
               {"01/04/2008", "31/03/200#", true, notOneYear, "31/03/2009"},
               {"##/##/####", "##/##/####", false, tooEarly, ""},
               {"01/04/0098", "31/03/0099", true, tooEarly, "31/03/0099"},
               {"01/04/0000", "31/03/0001", false, tooEarly, ""},
               {"01/04/9999", "31/03/9999", true, notOneYear, ""},
               {"1/4/2008", "31/03/2009", false, firstInvalid, ""},
               {"", "", false, tooEarly, ""}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.first) + " - " + c.second);
    EXPECT_EQ(isDate(c.first), c.firstIsDate);
    EXPECT_EQ(yearFault(c.first, c.second), c.fault);
    EXPECT_EQ(proposedSecondDate(c.first), c.proposed);
  }
}

TEST(YearRules, CompareDatesByYearThenMonthThenDay) {
  const char* rising[] = {"31/12/2007", "01/01/2008", "31/01/2008", "01/02/2008", "02/02/2008"};
  for (std::size_t i = 0; i < std::size(rising); ++i) {
    for (std::size_t j = 0; j < std::size(rising); ++j) {
      const int order = compareDates(rising[i], rising[j]);
      EXPECT_EQ(order, i < j ? -1 : i > j ? 1 : 0) << rising[i] << " and " << rising[j];
    }
  }
}

// A second date that ends a year later is never the earlier one: that this is said too shows here
// only.
TEST(YearRules, RefuseDatesInTheWrongOrder) {
  const YearRefusal& refusal = refusalOf(YearFault::wrongOrder);
  EXPECT_STREQ(refusal.text, "First date must be less than second date.");
  EXPECT_TRUE(refusal.resetsFirst && refusal.resetsSecond);
}

TEST(YearCreation, TakesTheLowestFreeNumber) {
  EXPECT_EQ(firstFreeNumber({}, 3), 1);
  EXPECT_EQ(firstFreeNumber({1, 2, 4}, 40), 3);
  EXPECT_EQ(firstFreeNumber({4, 2, 1}, 4), 3);
  EXPECT_EQ(firstFreeNumber({0, 1, 1, 7}, 2), 2);
  EXPECT_EQ(firstFreeNumber({1, 2, 3}, 3), std::nullopt);
  EXPECT_EQ(firstFreeNumber({}, 0), std::nullopt);
}

TEST(YearCreation, FollowsTheLatestEarlierYearWhateverTheGap) {
  std::vector<RegisteredYear> years;
  for (const auto* key : {"31031999", "31032005", "31032009", "31032012"}) {
    years.push_back({"C1", {"", key}, "", "", key});
  }
  const auto before = [&](const char* key) {
    const RegisteredYear* year = latestBefore(years, key);
    return year ? year->table : "-";
  };
  EXPECT_EQ(before("31032010"), "31032009");
  EXPECT_EQ(before("31032009"), "31032005");
  EXPECT_EQ(before("31032013"), "31032012");
  EXPECT_EQ(before("31031999"), "-");
}

TEST(YearMerge, KeepsEveryPairsSum) {
  std::mt19937 dice(7);
  PairSums sums;
  std::map<std::pair<long, long>, long> paise;  // by group and ledger
  for (int i = 0; i < 5000; ++i) {
    const long part = static_cast<long>(dice() % 20);
    const long group = static_cast<long>(dice() % 10);
    const long amount = static_cast<long>(dice() % 200000) - 100000;
    sums.add({part, group}, Money::rounded(static_cast<double>(amount) / 100));
    paise[{group, part}] += amount;
  }
  // A pair that nets to zero although its sum in binary does not, and another near the end of what
  // a double keeps to the paisa.
  for (const double amount : {0.1, 0.2, -0.3}) sums.add({99, 99}, Money::rounded(amount));
  for (const double amount : {30000000000000.01, 30000000000000.01, -60000000000000.02}) {
    sums.add({98, 99}, Money::rounded(amount));
  }
  std::erase_if(paise, [](const auto& sum) { return sum.second == 0; });

  auto expected = paise.begin();
  ASSERT_EQ(sums.sums().size(), paise.size());
  for (const auto& [pair, balance] : sums.sums()) {
    EXPECT_EQ(std::pair(pair.allId, pair.partId), expected->first);
    EXPECT_EQ(balance.paise(), expected->second);
    ++expected;
  }
}

}  // namespace
}  // namespace quillet
