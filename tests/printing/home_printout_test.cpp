// The home form's three lists, from the button to the document.
#include <gtest/gtest.h>

#include "books/amount.h"
#include "home/third.h"
#include "support/practice.h"
#include "support/recording_reporter.h"

namespace quillet::support {
namespace {

using Texts = std::vector<std::string>;
using Rows = std::vector<Texts>;

class HomePrintoutTest : public PracticeTest {
 protected:
  HomePrintoutTest() {
    addClient("C1", "Asha Traders");
    addClient("C2", "Neighbour & Co");
    for (const char* primary : {"(1,'CAPITAL',2)", "(9,'CASH AND BANK',1)", "(22,'ADMIN',4)"}) {
      exec(std::string("insert ignore into Mast_Gunder(GId,Gunder,ggid) values") + primary);
    }
    group("RENT", 22);
    group("AUDIT", 22);
    group("OWN CAPITAL", 1);
    group("BANKS", 9);
    group("EMPTY", 9);
    table = addYear("C1", 2008,
                    {{"zebra bank", "BANKS", 500.25},
                     {"Shop rent", "RENT", 100},
                     {"Own money", "OWN CAPITAL", -600.25},
                     {"Abc bank", "BANKS", -50},
                     {"Auditor", "AUDIT", 50}});
    addYear("C1", 2009);
    addYear("C2", 2008, {{"Other", "BANKS", 9}, {"Others", "RENT", -9}});
  }

  third& choose(Button third::*command, const std::string& year = "01/04/2008") {
    auto& form = static_cast<third&>(*practice.forms().ObjThird());
    form.show();
    EXPECT_TRUE(form.click(form.*command));
    form.ClGrd1.setCurrent(form.ClGrd1.find(0, "C1"));
    form.doubleClick(form.ClGrd1);
    form.flexgrid2.setCurrent(form.flexgrid2.find(0, year));
    statements();
    form.press(keys::Enter);
    return form;
  }
  const suite::Document& document() { return *practice.surroundings().lastReport(); }
  Rows printed() {
    Rows all;
    for (const auto& row : document().rows()) {
      Texts& cells = all.emplace_back();
      for (const auto& cell : row.cells) cells.push_back(cell.text);
    }
    return all;
  }

  std::string table;
};

TEST_F(HomePrintoutTest, AlphabeticalFollowsTheSortSetting) {
  const Texts heading = {"SR. NO.", "PARTICULAR", "GROUP", "AMOUNT (DR)", "AMOUNT (CR)"};
  const struct {
    const char* setting;
    Texts order;
  } cases[] = {{"1", {"Abc bank", "Auditor", "Own money", "Shop rent", "zebra bank"}},
               {"2", {"Abc bank", "Auditor", "Own money", "Shop rent", "zebra bank"}},
               {"3", {"Auditor", "Abc bank", "zebra bank", "Own money", "Shop rent"}},
               {"4", {"Own money", "zebra bank", "Shop rent", "Abc bank", "Auditor"}},
               {"nonsense", {"Abc bank", "Auditor", "Own money", "Shop rent", "zebra bank"}}};
  for (const auto& c : cases) {
    host().SaveSettingINI("Settings", "TBSort", c.setting);
    choose(&third::mnualpha);
    const Rows rows = printed();
    EXPECT_EQ(rows.front(), heading);
    Texts order;
    for (std::size_t r = 1; r + 1 < rows.size(); ++r) {
      EXPECT_EQ(rows[r][0], std::to_string(r));
      order.push_back(rows[r][1]);
    }
    EXPECT_EQ(order, c.order) << c.setting;
    EXPECT_EQ(rows.back(), (Texts{"", "Total", "", "650.25", "650.25"}));
  }
  EXPECT_EQ(document().headings()[0].text,
            "Trial Balance For the Period From 01/04/2008 To 31/03/2009");
  EXPECT_EQ(document().headings()[1].text, "Asha Traders");
}

TEST_F(HomePrintoutTest, SummarizedHasAGroupALineInTheOrderOfThePrimaryGroups) {
  choose(&third::mnusumm);
  EXPECT_EQ(printed(), (Rows{{"GROUP", "PARTICULAR", "AMOUNT(DR)", "AMOUNT(CR)"},
                             {"AUDIT", "", "50.00", ""},
                             {"RENT", "", "100.00", ""},
                             {"OWN CAPITAL", "", "", "600.25"},
                             {"BANKS", "", "500.25", "50.00"},
                             {"TOTAL", "", "650.25", "650.25"}}));
  EXPECT_EQ(statements().back(),
            "select mast_gunder.gunder,mast_allgrp.allid from mast_gunder,mast_allgrp where "
            "mast_allgrp.gid=mast_gunder.gid order by mast_gunder.gunder");
}

TEST_F(HomePrintoutTest, DetailedHasATotalForEachGroup) {
  // A line whose group is gone counts all the same.
  exec("insert into " + table + " values(9,'C1'," + std::to_string(ledger("Lost")) + ",9999,1,1)");
  choose(&third::mnudet);
  EXPECT_EQ(printed(), (Rows{{"GROUP", "PARTICULAR", "AMOUNT(DR)", "AMOUNT(CR)"},
                             {"AUDIT", "Auditor", "50.00", ""},
                             {"", "Total", "50.00", "0.00"},
                             {"RENT", "Shop rent", "100.00", ""},
                             {"", "Total", "100.00", "0.00"},
                             {"OWN CAPITAL", "Own money", "", "600.25"},
                             {"", "Total", "0.00", "600.25"},
                             {"BANKS", "Abc bank", "", "50.00"},
                             {"", "zebra bank", "500.25", ""},
                             {"", "Total", "500.25", "50.00"},
                             {"", "Lost", "1.00", ""},
                             {"", "Total", "1.00", "0.00"},
                             {"GRAND TOTAL", "", "651.25", "650.25"}}));
}

TEST_F(HomePrintoutTest, TheReporterIsCalledInOrder) {
  const RecordingReporter::Recording recording(context());
  choose(&third::mnusumm);
  const Texts& calls = recording.calls();
  ASSERT_EQ(calls.size(), 12U);
  EXPECT_EQ(
      Texts(calls.begin(), calls.begin() + 7),
      (Texts{"WinModeReport True", "NewReport",
             "printtext <ESC E>Trial Balance For the Period From 01/04/2008 To 31/03/2009<ESC F>",
             "printtext Asha Traders", "CreateTable 1,4",
             "GROUP|PARTICULAR|AMOUNT(DR)|AMOUNT(CR) 1111 1111 0001 1111",
             "AUDIT||50.00| 0000 0000 0001 1111"}));
  EXPECT_EQ(calls[10],
            "<ESC E>TOTAL<ESC F>||<ESC E>650.25<ESC F>|<ESC E>650.25<ESC F> 1111 0000 0001 1111");
  EXPECT_EQ(calls[11], "ShowReport");
}

TEST_F(HomePrintoutTest, AYearWithoutLinesSaysSo) {
  for (Button third::*command : {&third::mnualpha, &third::mnusumm, &third::mnudet}) {
    choose(command, "01/04/2009");
    EXPECT_EQ(messages(), Texts{"No records available."});
    EXPECT_FALSE(practice.surroundings().lastReport());
  }
}

TEST_F(HomePrintoutTest, AFailureIsLoggedAndShowsNothing) {
  host().statements().failNext("order by mast_gunder.gunder");
  third& form = choose(&third::mnudet);
  ASSERT_EQ(log().size(), 1U);
  EXPECT_FALSE(practice.surroundings().lastReport());
  EXPECT_TRUE(form.visible());
  EXPECT_FALSE(frontEnd.busy);
}

}  // namespace
}  // namespace quillet::support
