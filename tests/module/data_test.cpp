// Texts, year keys, table names, numbers in SQL.
#include <gtest/gtest.h>

#include <charconv>
#include <clocale>
#include <numeric>
#include <random>

#include "data/errors.h"
#include "data/paths.h"
#include "data/sql.h"
#include "data/table_names.h"
#include "data/text.h"
#include "data/year.h"

namespace quillet {
namespace {

TEST(Text, IsCountedAndCutByCharacters) {
  const std::string text = "aé€🙂";
  EXPECT_EQ(lengthOf(text), 4U);
  EXPECT_EQ(text.substr(offsetOf(text, 3)), "🙂");
  EXPECT_EQ(offsetOf(text, 9), text.size());
  std::string again;
  for (const char32_t c : charactersOf(text)) appendCharacter(again, c);
  EXPECT_EQ(again, text);
  // Bytes that are no character count singly and never run past the end.
  EXPECT_EQ(lengthOf("\xF0\x9F"), 2U);
  EXPECT_EQ(lengthOf("\xC0\xAF\xFF"), 3U);
}

TEST(Text, ComparesWithoutRegardToCase) {
  std::setlocale(LC_CTYPE, "C.UTF-8");
  EXPECT_TRUE(equalIgnoringCase("Söhne 🙂", "SÖHNE 🙂"));
  EXPECT_FALSE(equalIgnoringCase("Söhne", "Söhnes"));
  EXPECT_FALSE(equalIgnoringCase("", "a"));
  EXPECT_EQ(trimmed(" \t a b \r\n"), "a b");
  EXPECT_EQ(trimmed("   "), "");
  EXPECT_EQ(replacedAll("aXaX", "X", "XX"), "aXXaXX");
}

TEST(Text, IsOrderedByItsBytes) {
  std::mt19937 dice(3);
  std::vector<std::string> texts{"", "A", "ABCDEFGH", "ABCDEFGHI", "ABCDEFGH", "\xC3\x84"};
  for (int i = 0; i < 500; ++i) {
    std::string& text = texts.emplace_back("ACCOUNT ");
    for (auto length = dice() % 6; length > 0; --length) text += static_cast<char>(dice() % 256);
  }
  std::vector<std::size_t> expected(texts.size());
  std::iota(expected.begin(), expected.end(), 0U);
  std::stable_sort(expected.begin(), expected.end(),
                   [&](std::size_t a, std::size_t b) { return texts[a] < texts[b]; });
  EXPECT_EQ(orderOf(texts), expected);
}

TEST(Text, HasASmallFormOfEveryCapital) {
  for (const auto& [capital, small] :
       {std::pair{U'A', U'a'}, std::pair{U'Ä', U'ä'}, std::pair{U'Μ', U'μ'}, std::pair{U'Σ', U'σ'},
        std::pair{U'Ж', U'ж'}, std::pair{U'Ā', U'ā'}, std::pair{U'अ', U'अ'}}) {
    EXPECT_EQ(lowerCase(capital), small) << static_cast<unsigned>(capital);
    EXPECT_EQ(upperCase(small), capital);
  }
}

TEST(YearKeys, AreBuiltAndShown) {
  EXPECT_EQ(firstDateKey(2008), "01042008");
  EXPECT_EQ(secondDateKey(2009), "31032009");
  EXPECT_EQ(yearOf("01042008"), 2008);
  EXPECT_EQ(yearOf("31/03/2009"), 2009);
  EXPECT_EQ(yearOf("01/04/####"), 0);
  EXPECT_EQ(yearOf(""), 0);
  EXPECT_EQ(shownDate("01042008"), "01/04/2008");
  EXPECT_EQ(shownDate("0104"), "0104");
  EXPECT_EQ(dateKey("31/03/2009"), "31032009");
  EXPECT_EQ(shortYearText(1999), "1999-00");
}

// Narrow names would be read in Windows' own code page.
static_assert(std::is_same_v<decltype(below("", "")), std::filesystem::path>);

TEST(Paths, HoldAnyLetter) {
  const std::filesystem::path path = below("/dä ta/डेटा", "\\Databases\\TB.xls");
  EXPECT_TRUE(path == u8"/dä ta/डेटा/Databases/TB.xls");
  EXPECT_EQ(textOf(path), "/dä ta/डेटा/Databases/TB.xls");
  EXPECT_EQ(asFileName(" A/B\\C:1*?\"<x>|\t'ü'.. 2008-09.xls"), "A-B-C-1----x---'ü'.. 2008-09.xls");
}

TEST(TableNames, KeepTheYearsSuffix) {
  EXPECT_EQ(trialBalanceTable("a7"), "TAB_A7");
  EXPECT_EQ(siblingTable("tab_3", "JRNL_"), "JRNL_3");
  EXPECT_EQ(siblingTable("TAB_12", "NewFATRo"), "NewFATRo12");
}

TEST(SqlNumber, IsShortPlainAndReadsBackTheSame) {
  EXPECT_EQ(sqlNumber(0.1 + 0.2).text(), "0.30000000000000004");
  EXPECT_EQ(sqlNumber(1e15).text(), "1000000000000000");
  EXPECT_EQ(sqlNumber(12000.0).text(), "12000");
  EXPECT_EQ(sqlNumber(999999999999.99).text(), "999999999999.99");
  std::mt19937_64 random(20081231);
  for (int i = 0; i < 20000; ++i) {
    const double number =
        std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 200) - 120);
    const std::string text = sqlNumber(number).text();
    double again = 0;
    std::from_chars(text.data(), text.data() + text.size(), again);
    ASSERT_EQ(again, number) << text;
    ASSERT_EQ(text.find_first_not_of("0123456789."), std::string::npos) << text;
  }
}

TEST(Sql, NamesHoldNothingThatEndsThem) {
  EXPECT_EQ(sqlName("TAB_01$").text(), "TAB_01$");
  for (const char* name : {"TAB 1", "TAB_1;", "TAB_1`", "a.b", "TAB_1'", "TAB_1-", "TAB_1\n"}) {
    EXPECT_THROW(sqlName(name), RunTimeError) << name;
  }
}

}  // namespace
}  // namespace quillet
