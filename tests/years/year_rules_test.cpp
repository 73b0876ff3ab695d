// Dates and the rules of a financial year.
#include "books/year_rules.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace quillet
