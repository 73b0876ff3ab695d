// The editor's loading: caption, views, import, totals, settings, group view.
#include <gtest/gtest.h>

#include "forms/editor_fixture.h"

namespace quillet::support {
namespace {

using LoadingTest = EditorTest;
using Statements = std::vector<std::string>;

TEST_F(LoadingTest, ShowsTheYearsLinesWithTotalsAndDifference) {
  addYear("C2", 2008, {{"Other", "BANKS", 77}});
  const std::string table =
      addYear("C1", 2008, {{"Asha", "CAPITAL", -1000.5}, {"Main Bank", "BANKS", 400}});
  exec("update " + table + " set nid=7 where amt=400");
  frmcrtb& form = open("C1", 2008);
  EXPECT_EQ(form.caption(), "Trial Balance of Asha Traders for the Period 01/04/2008 - 31/03/2009");
  EXPECT_EQ(shown(form.vsfm),
            (Rows{{"Asha", "CAPITAL", "1000.50", "CR"}, {"Main Bank", "BANKS", "400.00", "DR"}}));
  EXPECT_EQ(form.txttotcr[0].text(), "1,000.50");
  EXPECT_EQ(form.txttotdeb[0].text(), "0.00") << "neither debit nor credit";
  exec("update " + table + " set nid=1 where amt=400");
  form.click(form.mnurefresh);
  EXPECT_EQ(form.txttotdeb[0].text(), "400.00");
  EXPECT_EQ(form.txtdiff.text(), "600.50");
  EXPECT_EQ(form.txtdifft.text(), "Credit");
  EXPECT_FALSE(form.mnuyropts.enabled());
  EXPECT_FALSE(frontEnd.busy);
}

TEST_F(LoadingTest, ComparesTheTotalsExactly) {
  addYear("C1", 2008, {{"A", "BANKS", 0.1}, {"B", "BANKS", 0.2}, {"C", "CAPITAL", -0.3}});
  frmcrtb& form = open("C1", 2008);
  EXPECT_EQ(form.txtdiff.text(), "0.00");
  EXPECT_EQ(form.txtdifft.text(), "Debit");
  form.click(form.mnusortopt[3]);
  addYear("C2", 2008, {{"A", "BANKS", 5}, {"C", "CAPITAL", -5}});
  frmcrtb& even = open("C2", 2008);
  EXPECT_EQ(even.txtdiff.text() + even.txtdifft.text(), "");
}

TEST_F(LoadingTest, WithoutATableNothingCanBeEdited) {
  select("C1", 2008);
  practice.forms().VFATbl("");
  auto& form = static_cast<frmcrtb&>(*practice.forms().ObjCreate());
  form.show();
  const auto asked = dialogs.takeMessages();
  ASSERT_EQ(asked.size(), 1U);
  EXPECT_EQ(asked[0].message.text, "Year not selected");
  EXPECT_EQ(asked[0].message.icon, Icon::none);
  EXPECT_TRUE(form.visible());
  for (const MenuEntry* entry : {&form.mnuinsert, &form.mnualter, &form.mnudelete, &form.mnujournal,
                                 &form.mnunewgroup, &form.mnugroup, &form.mnuyropts}) {
    EXPECT_FALSE(entry->enabled()) << entry->name();
  }
  form.press(keys::Enter);
  form.click(form.mnurefresh);
  EXPECT_TRUE(messages().empty());
  EXPECT_FALSE(frontEnd.busy);
}

TEST_F(LoadingTest, SendsItsStatementsInOrder) {
  addYear("C1", 2007, {{"Asha", "CAPITAL", -5}});
  addYear("C1", 2008, {{"Asha", "CAPITAL", -6}});
  const std::string id = std::to_string(ledger("Asha"));
  select("C1", 2008);
  auto& form = static_cast<frmcrtb&>(*practice.forms().ObjCreate());
  statements();
  form.show();
  EXPECT_EQ(
      statements(),
      (Statements{
          "select nm from main_info1 where code_no='C1'",
          "select * from master where code_no= 'C1' and f_yr='01042007' and s_yr='31032008'",
          "Select distinct tbl_nm from master Where Code_No='C1'",
          "Select Distinct PartId From TAB_1 Where Code_No='C1'",
          "Select Distinct PartId From TAB_2 Where Code_No='C1'",
          "Select Distinct Particular From Mast_Part Where PartId In (" + id + ")",
          "select * from mast_allgrp order by allgrp", "Select * From TAB_2 where code_no='C1'"}));
}

TEST_F(LoadingTest, ImportsThePreviousYearIntoAnEmptyOne) {
  const std::string last =
      addYear("C1", 2007, {{"Asha", "CAPITAL", -1000}, {"Main Bank", "BANKS", 1000}});
  const std::string table = addYear("C1", 2008);
  addYear("C2", 2008, {{"Other", "BANKS", 77}});
  dialogs.queueAnswer(Answer::No);
  frmcrtb& form = open("C1", 2008);
  const auto asked = dialogs.takeMessages();
  ASSERT_EQ(asked.size(), 1U);
  EXPECT_EQ(asked[0].message.text, "Do you want to Import \"Trail Balance\" from Previous F.Y. ?");
  EXPECT_EQ(asked[0].message.icon, Icon::question);
  EXPECT_EQ(asked[0].message.defaultAnswer, Answer::No);
  EXPECT_EQ(form.vsfm.rows(), 0);

  dialogs.queueAnswer(Answer::Yes);
  form.click(form.mnurefresh);
  EXPECT_EQ(statements(),
            (Statements{"Select * From " + table + " where code_no='C1'",
                        "Select * From " + last + " where code_no='C1'",
                        "Insert into " + table + " select * from " + last + " where code_no='C1'",
                        "Flush Tables", "Select * From " + table + " where code_no='C1'"}));
  EXPECT_EQ(form.vsfm.rows(), 2);
  EXPECT_EQ(stored(table), stored(last));
  EXPECT_EQ(form.txtdiff.text(), "");
}

TEST_F(LoadingTest, PutsBothYearsSideBySide) {
  addYear("C1", 2007,
          {{"Asha", "CAPITAL", -1000}, {"Old Bank", "BANKS", 990}, {"Asha", "RENT", 10}});
  addYear("C1", 2008, {{"Main Bank", "BANKS", 1300}, {"Asha", "CAPITAL", -1250}});
  frmcrtb& form = open("C1", 2008);
  form.click(form.mnuyrs[2]);
  EXPECT_EQ(form.caption(),
            "Trial Balance of Asha Traders for the Period 01/04/2008 - 31/03/2009"
            " (with Previous Year)");
  EXPECT_EQ(shown(form.vsfm), (Rows{{"Main Bank", "BANKS", "1300.00", "DR", "-", "-"},
                                    {"Asha", "CAPITAL", "1250.00", "CR", "1000.00", "CR"},
                                    {"Old Bank", "BANKS", "-", "-", "990.00", "DR"},
                                    {"Asha", "RENT", "-", "-", "10.00", "DR"}}));
  EXPECT_EQ(form.vsfm.columns()[2].heading, "Amount (Curr)");
  EXPECT_EQ(form.vsfm.columns()[4].heading, "Amount (Prev)");
  EXPECT_EQ(form.cmdclstock[0].caption(), "Closing &Stock (Curr)");
  EXPECT_EQ(form.cmdclstock[1].caption(), "Closing Stoc&k (Prev)");
  EXPECT_TRUE(form.cmdclstock[1].visible());
  EXPECT_EQ(form.txttotdeb[0].text(), "1,300.00");
  EXPECT_EQ(form.txttotcr[1].text(), "1,000.00");
  EXPECT_EQ(form.txtdiff.text(), "50.00") << "of the current year";

  form.click(form.mnuyrs[1]);
  EXPECT_EQ(form.caption(),
            "Trial Balance of Asha Traders for the Period 01/04/2008 - 31/03/2009"
            " (Previous Year)");
  EXPECT_EQ(form.vsfm.rows(), 3);
  EXPECT_EQ(form.cmdclstock[0].caption(), "Closing &Stock");
  EXPECT_FALSE(form.cmdclstock[1].visible());
  EXPECT_TRUE(form.mnuyrs[1].checked() && !form.mnuyrs[2].checked() && !form.mnuyrs[0].checked());
}

TEST_F(LoadingTest, SortsAsTheSettingSaysAndKeepsIt) {
  addYear("C1", 2008, {{"beta", "SALES", -3}, {"Alpha", "SALES", -100}, {"Gamma", "BANKS", 20}});
  frmcrtb& form = open("C1", 2008);
  const struct {
    int index;
    const char* first;
    const char* second;
    const char* third;
  } cases[] = {{0, "beta", "Alpha", "Gamma"},
               {1, "Alpha", "beta", "Gamma"},
               {2, "Gamma", "Alpha", "beta"},
               {3, "Alpha", "Gamma", "beta"}};
  for (const auto& c : cases) {
    form.click(form.mnusortopt[c.index]);
    EXPECT_EQ(host().GetSettingINI("Settings", "TBSort", "?"), std::to_string(c.index + 1));
    EXPECT_TRUE(form.mnusortopt[c.index].checked());
    EXPECT_EQ(form.vsfm.cell(1, 0), c.first);
    EXPECT_EQ(form.vsfm.cell(2, 0), c.second);
    EXPECT_EQ(form.vsfm.cell(3, 0), c.third);
  }
  frmcrtb& again = open("C1", 2008);
  EXPECT_TRUE(again.mnusortopt[3].checked());
  EXPECT_EQ(again.vsfm.cell(1, 0), "Alpha");
}

TEST_F(LoadingTest, OffersTheClientsLedgersOrAll) {
  addYear("C1", 2008, {{"Mine", "SALES", -3}});
  addYear("C2", 2008, {{"Theirs", "SALES", -3}});
  frmcrtb& form = open("C1", 2008);
  EXPECT_TRUE(form.mnuclonly.checked());
  EXPECT_EQ(form.vsfp.rows(), 1);
  form.click(form.mnuall);
  EXPECT_EQ(statements(), (Statements{"Select Distinct Particular From Mast_Part"}));
  EXPECT_EQ(form.vsfp.rows(), 2);
  EXPECT_EQ(host().GetSettingINI("Settings", "ShLed", "1"), "0");
  EXPECT_TRUE(open("C1", 2008).mnuall.checked());
}

TEST_F(LoadingTest, ShowsOneGroupsDebitsBesideItsCredits) {
  addYear("C1", 2008, {{"Zeta", "BANKS", 3}, {"Loan", "BANKS", -2}, {"Asha", "CAPITAL", -1}});
  frmcrtb& form = open("C1", 2008);
  form.click(form.mnugroup);
  EXPECT_FALSE(form.vsfm.shown());
  EXPECT_EQ(form.cbogroup.items(), (std::vector<std::string>{"BANKS", "CAPITAL"}));
  EXPECT_EQ(shown(form.vsf1), (Rows{{"Zeta", "3.00", "DR"}}));
  EXPECT_EQ(shown(form.vsf2), (Rows{{"Loan", "2.00", "CR"}}));
  const std::string id = std::to_string(group("CAPITAL"));
  statements();
  form.cbogroup.choose(2);
  EXPECT_EQ(statements().front(),
            "Select TAB_1.* from TAB_1 LEFT JOIN mast_allgrp on TAB_1.allid=mast_allgrp.allid "
            "where TAB_1.code_no='C1' and mast_allgrp.allid=" +
                id + " and TAB_1.nid=1");
  EXPECT_EQ(form.vsf1.rows(), 0);
  EXPECT_EQ(form.vsf2.rows(), 1);
  form.click(form.mnugroup);
  EXPECT_TRUE(form.vsfm.shown());
}

TEST_F(LoadingTest, AFailingStatementIsOneLineOfTheLogAndKeepsWhatIsShown) {
  addYear("C1", 2008, {{"Asha", "CAPITAL", -5}});
  frmcrtb& form = open("C1", 2008);
  log();
  host().statements().failNext("Select * From TAB_1");
  form.click(form.mnurefresh);
  const auto lines = log();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_NE(lines[0].find("\tfrmcrtb\tLOADTRIALBAL"), std::string::npos) << lines[0];
  EXPECT_EQ(form.vsfm.rows(), 1);
  EXPECT_TRUE(form.visible());
  EXPECT_FALSE(frontEnd.busy);
}

}  // namespace
}  // namespace quillet::support
