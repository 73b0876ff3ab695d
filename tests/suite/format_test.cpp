// Numbers and dates as texts.
#include "suite/format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "data/errors.h"
#include "data/money.h"

namespace quillet::suite {
namespace {

TEST(FormatNumber, RoundsAndGroupsAsOnPaper) {
  const struct {
    double number;
    const char *format, *text;
  } cases[] = {{0, "#,##0.00", "0.00"},
               {2.675, "###0.00", "2.68"},
               {1.005, "###0.00", "1.01"},
               {-1.005, "###0.00", "-1.01"},
               {0.125, "###0.00", "0.13"},
               {0.004999999999999999, "###0.00", "0.01"},
               {0.00499999999999, "###0.00", "0.00"},
               {-0.004, "###0.00", "0.00"},
               {-0.0, "#,##0.00", "0.00"},
               {0.995, "###0.00", "1.00"},
               {999.995, "#,##0.00", "1,000.00"},
               {1234567.891, "#,##0.00", "1,234,567.89"},
               {1234567.891, "###0.00", "1234567.89"},
               {-1234.5, "#,##0.00;(#,##0.00)", "(1,234.50)"},
               {1234.5, "#,##0.00;(#,##0.00)", "1,234.50"},
               {-0.001, "#,##0.00;(#,##0.00)", "0.00"},
               {0.1 + 0.2, "###0.00", "0.30"},
               {123456789012345.67, "###0.00", "123456789012346.00"},
               {1e21, "#,##0.00", "1,000,000,000,000,000,000,000.00"},
               {5e-324, "###0.00", "0.00"},
               {0.5, "0", "1"},
               {0.4, "0", "0"},
               {2009, "0000", "2009"},
               {9, "0000", "0009"},
               {1.5, "0.##", "1.5"},
               {2, "Rs. #,##0.00 only", "Rs. 2.00 only"}};
  for (const auto& c : cases) {
    EXPECT_EQ(formatNumber(c.number, c.format), c.text) << c.format << " of " << c.number;
  }
  EXPECT_THROW(formatNumber(std::nan(""), "###0.00"), RunTimeError);
  EXPECT_THROW(formatNumber(std::numeric_limits<double>::infinity(), "###0.00"), RunTimeError);
}

// Paper arithmetic on whole numbers: an amount of so many tenths of a paisa, rounded to paise.
std::string onPaper(long long tenths) {
  const long long size = tenths < 0 ? -tenths : tenths;
  const long long paise = (size + 5) / 10;
  std::string digits = std::to_string(paise);
  while (digits.size() < 3) digits.insert(0, 1, '0');
  digits.insert(digits.size() - 2, 1, '.');
  return (tenths < 0 && paise > 0 ? "-" : "") + digits;
}

TEST(FormatNumber, AgreesWithPaperForAnyAmount) {
  std::mt19937_64 random(20080401);
  for (int digits = 1; digits <= 15; ++digits) {
    const auto most = static_cast<long long>(std::pow(10, digits)) - 1;
    std::uniform_int_distribution<long long> any(-most, most);
    for (int i = 0; i < 4000; ++i) {
      long long tenths = any(random);
      if (i % 2 == 0) tenths = tenths / 10 * 10 + (tenths < 0 ? -5 : 5);  // exactly between paise
      if (std::abs(tenths) > most) continue;
      const double amount = static_cast<double>(tenths) / 1000;
      ASSERT_EQ(formatNumber(amount, "###0.00"), onPaper(tenths)) << tenths;
      ASSERT_EQ(std::stod(formatNumber(amount, "###0.00")) == 0, std::abs(tenths) < 5) << tenths;
    }
  }
}

TEST(Money, IsRoundedAsItIsShownAndNeverWrapsRound) {
  std::mt19937_64 random(7);
  for (int i = 0; i < 20'000; ++i) {
    // Thousandths meet the halves, quotients what binary numbers leave over.
    const auto drawn =
        static_cast<double>(static_cast<long>(random() % 20'000'000'000) - 10'000'000'000);
    for (const double rupees : {drawn / 1000, drawn / 7, drawn / 100 * 3}) {
      EXPECT_EQ(formatNumber(Money::rounded(rupees).rupees(), "###0.00"),
                formatNumber(rupees, "###0.00"))
          << rupees;
    }
  }
  const Money greatest = Money::ofPaise(std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(greatest - greatest, Money());
  EXPECT_THROW(greatest + Money::ofPaise(1), RunTimeError);
  EXPECT_THROW(-greatest - Money::ofPaise(1), RunTimeError);
  for (const double none : {1e17, std::nan(""), -HUGE_VAL}) {
    EXPECT_THROW(Money::rounded(none), RunTimeError) << none;
  }
}

TEST(ReadDate, TakesTheFormsThatPeopleWrite) {
  for (const char* text : {"1/4/2008", "01-04-08", "1.4.2008", "2008-04-01", "2008/4/1", "01042008",
                           "010408", "1 Apr 2008", "1-apr-08", "1st April, 2008", "Apr 1, 2008",
                           "2008-04-01 10:30:00", "2008-04-01T10:30:00", "  01/04/2008  "}) {
    EXPECT_EQ(normalisedDate(text), "01/04/2008") << text;
  }
  EXPECT_EQ(normalisedDate("15/8/47"), "15/08/1947");
  EXPECT_EQ(normalisedDate("29/2/2008"), "29/02/2008");
  EXPECT_EQ(normalisedDate("29/2/2000"), "29/02/2000");
  for (const char* text :
       {"", "29/2/2009", "29/2/1900", "31/4/2008", "0/4/2008", "1/13/2008", "1/4", "1/4/208",
        "1/4/20085", "01/04/####", "-1/4/2008x", "hello", "1/4/2008/5", "1/ma/2008",
        "'; drop table master", "99999999999999999999", "1/4/0000"}) {
    EXPECT_EQ(normalisedDate(text), "") << text;
  }
}

TEST(FormatDate, FollowsTheFormat) {
  const Date date{2008, 4, 1};
  EXPECT_EQ(formatDate(date, "DD/MM/YYYY"), "01/04/2008");
  EXPECT_EQ(formatDate(date, "YYYY-MM-DD"), "2008-04-01");
  EXPECT_EQ(formatDate(date, "d-m-yyyy"), "1-4-2008");
  EXPECT_EQ(formatDate(date, "dd mmm yy"), "01 Apr 08");
  EXPECT_EQ(formatDate({2008, 12, 25}, "d-m-yyyy"), "25-12-2008");
}

}  // namespace
}  // namespace quillet::suite
