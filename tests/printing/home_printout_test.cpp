// The home form's three lists, from the button to the document.
#include <gtest/gtest.h>

#include "support/recording_reporter.h"
#include "years/years_fixture.h"

namespace quillet::support {
namespace {

class HomePrintoutTest : public YearsTest {
 protected:
  HomePrintoutTest() {
    exec(
        "insert ignore into Mast_Gunder(GId,Gunder,ggid) "
        "values(1,'CAPITAL',2),(9,'CASH AND BANK',1),(22,'ADMIN',4)");
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

  // What is printed of the year.
  Rows print(Button third::*command, const std::string& year = "01/04/2008") {
    third& form = choose(command, "C1");
    form.flexgrid2.setCurrent(form.flexgrid2.find(0, year));
    form.press(keys::Enter);
    return printed();
  }

  std::string table;
};

TEST_F(HomePrintoutTest, AlphabeticalFollowsTheSortSetting) {
  const std::pair<const char*, Texts> cases[] = {
      {"1", {"Abc bank", "Auditor", "Own money", "Shop rent", "zebra bank"}},
      {"2", {"Abc bank", "Auditor", "Own money", "Shop rent", "zebra bank"}},
      {"3", {"Auditor", "Abc bank", "zebra bank", "Own money", "Shop rent"}},
      {"4", {"Own money", "zebra bank", "Shop rent", "Abc bank", "Auditor"}},
      {"nonsense", {"Abc bank", "Auditor", "Own money", "Shop rent", "zebra bank"}}};
  for (const auto& [setting, order] : cases) {
    host().SaveSettingINI("Settings", "TBSort", setting);
    const Rows rows = print(&third::mnualpha);
    ASSERT_EQ(rows.size(), 7U);
    EXPECT_EQ(rows[0], (Texts{"SR. NO.", "PARTICULAR", "GROUP", "AMOUNT (DR)", "AMOUNT (CR)"}));
    for (std::size_t r = 1; r <= order.size(); ++r) {
      EXPECT_EQ(rows[r][0] + rows[r][1], std::to_string(r) + order[r - 1]) << setting;
    }
    EXPECT_EQ(rows[6], (Texts{"", "Total", "", "650.25", "650.25"}));
  }
  EXPECT_EQ(document().headings()[1].text, "Asha Traders");
}

TEST_F(HomePrintoutTest, SummarizedHasAGroupALineInTheOrderOfThePrimaryGroups) {
  const RecordingReporter::Recording recording(context());
  EXPECT_EQ(print(&third::mnusumm), (Rows{{"GROUP", "PARTICULAR", "AMOUNT(DR)", "AMOUNT(CR)"},
                                          {"AUDIT", "", "50.00", ""},
                                          {"RENT", "", "100.00", ""},
                                          {"OWN CAPITAL", "", "", "600.25"},
                                          {"BANKS", "", "500.25", "50.00"},
                                          {"TOTAL", "", "650.25", "650.25"}}));
  EXPECT_EQ(statements().back(),
            "select mast_gunder.gunder,mast_allgrp.allid from mast_gunder,mast_allgrp where "
            "mast_allgrp.gid=mast_gunder.gid order by mast_gunder.gunder");
  // The reporter is called in this order.
  Texts calls = recording.calls();
  ASSERT_EQ(calls.size(), 12U);
  calls.erase(calls.begin() + 7, calls.begin() + 10);
  EXPECT_EQ(
      calls,
      (Texts{"WinModeReport True", "NewReport",
             "printtext <ESC E>Trial Balance For the Period From 01/04/2008 To 31/03/2009<ESC F>",
             "printtext Asha Traders", "CreateTable 1,4",
             "GROUP|PARTICULAR|AMOUNT(DR)|AMOUNT(CR) 1111 1111 0001 1111",
             "AUDIT||50.00| 0000 0000 0001 1111",
             "<ESC E>TOTAL<ESC F>||<ESC E>650.25<ESC F>|<ESC E>650.25<ESC F> 1111 0000 0001 1111",
             "ShowReport"}));
}

TEST_F(HomePrintoutTest, DetailedHasATotalForEachGroup) {
  // A line whose group is gone counts all the same.
  exec("insert into " + table + " values(9,'C1'," + std::to_string(ledger("Lost")) + ",9999,1,1)");
  EXPECT_EQ(print(&third::mnudet), (Rows{{"GROUP", "PARTICULAR", "AMOUNT(DR)", "AMOUNT(CR)"},
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

TEST_F(HomePrintoutTest, AnEmptyYearOrAFailureShowsNothing) {
  for (Button third::*command : {&third::mnualpha, &third::mnusumm, &third::mnudet}) {
    EXPECT_EQ(print(command, "01/04/2009"), Rows{});
    EXPECT_EQ(messages(), Texts{"No records available."});
  }
  host().statements().failNext("order by mast_gunder.gunder");
  EXPECT_EQ(print(&third::mnudet), Rows{});
  EXPECT_EQ(log().size(), 1U);
  EXPECT_TRUE(home().visible());
  EXPECT_FALSE(frontEnd.busy);
}

}  // namespace
}  // namespace quillet::support
