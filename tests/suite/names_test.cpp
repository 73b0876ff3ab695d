// Which names are the same: what the module says against what the database does with them.
#include "data/names.h"

#include <gtest/gtest.h>

#include <string>

#include "data/text.h"
#include "support/practice.h"

namespace quillet::suite {
namespace {

class NamesTest : public support::PracticeTest {
 protected:
  std::string quoted(const std::string& text) {
    return "'" + practice.database().escape(text) + "'";
  }
  static std::string text(char32_t c) {
    std::string text;
    appendCharacter(text, c);
    return text;
  }
};

enum Compared { same, alike, apart };  // alike: by the database, which takes them for the same

TEST_F(NamesTest, TheModuleAndTheDatabaseAgree) {
  const struct {
    const char* stored;
    const char* typed;
    Compared compared;
  } cases[] = {{"Cash", "CASH", same},
               {"Cash", " cash  ", same},
               {"Ж", "ж", same},
               {"É", "é", same},
               {"ẞ", "ß", same},
               {"Tea 🙂", "tea 🙂", same},
               {"Rent", "Rent\u200B", same},
               {"Rent\u200B", "rent", same},
               {"\u202ERent", "Re\u00ADnt\uFEFF", same},
               {"Rent\u00A0Paid", "Rent \t Paid", same},
               {"Rent  Paid", "rent paid", same},
               {" Rent", "RENT", same},
               {"👨‍👩‍👧", "👨👩👧", same},
               {"❤️ Fund", "❤ fund", same},
               {"क्‍ष", "क्ष", same},
               {"m²", "M2", alike},
               {"10", "१०", alike},
               {"№ 1", "no 1", alike},
               {"Ａ", "a", alike},
               {"e\u0301", "é", alike},
               {"", "\u0640", alike},
               {"Café", "Cafe", apart},
               {"अंश", "अश", apart},
               {"राम", "रम", apart},
               {"क़लम", "कलम", apart},
               {"Tea 🙂", "Tea 🙃", apart},
               {"Straße", "Strasse", apart},
               {"ı", "i", apart},
               {"ſ", "s", apart},
               {"A & B", "A and B", apart},
               {"Rent Paid", "RentPaid", apart}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.stored) + " and " + c.typed);
    for (const char* what : {"from", "history from"})
      exec(std::string("delete ") + what + " Mast_Part");
    exec("insert into Mast_Part values(1," + quoted(c.stored) + ")");
    EXPECT_EQ(sameName(c.stored, c.typed), c.compared == same);
    EXPECT_EQ(host().GetMax_MastPartId(c.typed, false), c.compared == apart ? 0 : 1);
    EXPECT_EQ(host().GetMax_MastPartId(c.typed), c.compared == apart ? 2 : 1);
    // Where both are there, each is found by its own name.
    exec("insert into Mast_Part values(7," + quoted(c.typed) + ")");
    EXPECT_EQ(host().GetMax_MastPartId(c.typed), c.compared == apart ? 2 : 7);
    EXPECT_EQ(host().GetMax_MastPartId(c.stored), *c.stored == '\0' ? 0 : 1);
  }
}

// Every letter that has another case, every character that is dropped, every blank that the
// database knows as one: no name may be the same on the screen and another one in the tables.
TEST_F(NamesTest, WhatTheModuleFoldsTheDatabaseFolds) {
  const std::u32string unknownBlanks =
      U"\t\n\v\f\r\u0085\u115F\u1160\u2028\u2029\u2800\u3164\uFFA0";
  std::string list;
  int folded = 0;
  for (char32_t c = 1; c < 0xE01F0; ++c) {
    if ((c >= 0xD800 && c < 0xE000) || unknownBlanks.find(c) != std::u32string::npos) continue;
    const std::string typed = "x" + text(c) + "y";
    const std::string key = nameKey(typed);
    if (key == "X" + text(c) + "Y") continue;
    list += (++folded == 1 ? "(" : ",(") + std::to_string(c) + "," + quoted(typed) + "," +
            quoted(key) + ")";
  }
  EXPECT_GT(folded, 1500);
  exec("create temporary table folded(c int, typed varchar(9), kept varchar(9))");
  exec("insert into folded values" + list);
  EXPECT_EQ(value("select group_concat(hex(c)) from folded where typed<>kept"), "NULL");
  exec("drop table folded");
}

TEST(CleanedName, KeepsWhatActsAndNothingElse) {
  const struct {
    const char* typed;
    const char* cleaned;
  } cases[] = {{"", ""},
               {" \t\u00A0\u3000 ", ""},
               {"\u200B", ""},
               {"\u200B \u2060\uFEFF\u3164\u2800", ""},
               {" Rent\r\nand\u2003\u00A0 rates\u200B ", "Rent and rates"},
               {"Re\u00ADnt\u202E\u202C", "Rent"},
               {"R\u200Dent\uFE0F", "Rent"},
               {"क्‍ष", "क्‍ष"},
               {"न‌ही\u200C x", "न‌ही x"},
               {"अ\u200D\u200Dक", "अ\u200Dक"},
               {"👨\u200B‍👩‍👧 family", "👨‍👩‍👧 family"},
               {"👁️‍🗨️", "👁️‍🗨️"},
               {"❤️", "❤️"},
               {" ️x", "x"},
               {"half \xE2\x82 \x85\xFF", "half \xE2\x82 \x85\xFF"}};
  for (const auto& c : cases) {
    EXPECT_EQ(cleanedName(c.typed), c.cleaned) << c.typed;
    EXPECT_EQ(cleanedName(c.cleaned), c.cleaned) << "once is enough";
    EXPECT_TRUE(sameName(c.typed, c.cleaned)) << c.typed;
  }
  EXPECT_EQ(beginningKey(" rent \u200B"), "RENT ");
  EXPECT_EQ(beginningKey(" \t"), "");
}

}  // namespace
}  // namespace quillet::suite
