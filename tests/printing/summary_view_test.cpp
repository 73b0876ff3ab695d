// The summary view and the group view with its transfer, on a real database.
#include <gtest/gtest.h>

#include "printing/summary_fixture.h"

namespace quillet::support {
namespace {

TEST_F(SummaryTest, ShowsBothYearsAndSendsAStatementForEachGroup) {
  exec("insert into " + stockOf(current) + "(code_no,partid,allid,amt) values('C1',1,1,300)" +
       ",('C2',1,1,7000)");
  frmcrtb& form = open("C1", 2008);
  EXPECT_TRUE(form.click(form.mnushsumm));
  EXPECT_TRUE(form.famSummary.visible());
  EXPECT_FALSE(form.famLines.visible());
  const auto balance = [](const std::string& table, int gid, const std::string& only = "") {
    return "Select sum(amt),nid from " + table +
           ",mast_allgrp Where mast_allgrp.gid=" + std::to_string(gid) + only + " and " + table +
           ".allid=mast_allgrp.allid and " + table + ".Code_No='C1' group by nid";
  };
  Texts expected;
  for (const std::string& table : {current, previous}) {
    for (int gid = 1; gid <= 28; ++gid) expected.push_back(balance(table, gid));
    expected.push_back(balance(table, 29, " and mast_allgrp.allgrp<>'DEPRECIATION'"));
    expected.push_back(balance(table, 29, " and mast_allgrp.allgrp='DEPRECIATION'"));
    expected.push_back("Select sum(amt) from " + stockOf(table) + " Where Code_No='C1'");
  }
  EXPECT_EQ(statements(), expected);

  EXPECT_EQ(form.vsfr.columns()[1].heading, "Amount(Curr)");
  EXPECT_EQ(form.vsfr.columns()[2].heading, "Amount(Prev)");
  EXPECT_EQ(form.txtclst[0].text() + ' ' + form.txtclst[1].text(), "300.00 0.00");
  const Rows some{{"Cost of Goods Sold", "(300.00)", "0.00"},
                  {"Sales", "1,234,567.00", "50.00"},
                  {"Expenses", "1,500,010.00", "0.00"},
                  {"Net Profit/(Loss)", "(265,143.00)", "50.00"},
                  {"Profit Tr. to B/S", "(266,143.00)", "50.00"},
                  {"Working Capital", "100.00", "50.00"},
                  {"GP Rate", "100.02", "100.00"},
                  {"Current Ratio", "1.25", "-"}};
  for (const auto& row : some) EXPECT_EQ(figures(form, row[0]), row);

  form.press(keys::Escape);
  EXPECT_TRUE(form.famLines.visible());
  EXPECT_EQ(form.active(), &form.vsfm);

  // A stock of any size counts as it reads.
  for (const auto& [stock, read, assets] :
       {std::tuple{"12345678901234.56", "12,345,678,901,234.60", "12,345,678,901,434.60"},
        {"123456789012345.67", "123,456,789,012,346.00", "123,456,789,012,546.00"}}) {
    exec("update " + stockOf(current) + " set amt=" + stock + " where code_no='C1'");
    form.click(form.mnushsumm);
    EXPECT_EQ(form.txtclst[0].text(), read);
    EXPECT_EQ(figures(form, "Less : Closing Stock")[1], read);
    EXPECT_EQ(figures(form, "Current Assets")[1], assets);
    form.press(keys::Escape);
  }
}

TEST_F(SummaryTest, WhatSortingImportsIsInTheFigures) {
  exec("delete from " + current + " where code_no='C1'");
  dialogs.queueAnswer(Answer::No);
  frmcrtb& form = open("C1", 2008);
  form.click(form.mnushsumm);
  yes();
  form.click(form.mnusortopt[1]);
  EXPECT_EQ(figures(form, "Sales"), (Texts{"Sales", "50.00", "50.00"}));
}

// --- the group view

TEST_F(SummaryTest, LinesMoveToAnotherGroupOneStatementEach) {
  frmcrtb& form = open("C1", 2008);
  form.click(form.mnugroup);
  form.cbogroup.choose(form.cbogroup.find("SALES"));
  EXPECT_EQ(shown(form.vsf3), (Rows{{"Counter", "1234567.89", "CR"}, {"Returns", "0.89", "DR"}}));
  statements();

  // Nothing chosen, or the same group: refused without a question.
  form.click(form.cmdupdate);
  form.cbotgroup.choose(form.cbotgroup.find("SALES"));
  form.click(form.cmdupdate);
  const Texts refused{"Please select a different Group.", "OK", "information", "OK"};
  EXPECT_EQ(asked(), (Rows{refused, refused}));
  form.cbotgroup.choose(form.cbotgroup.find("RENT"));
  dialogs.queueAnswer(Answer::No);
  form.click(form.cmdupdate);
  EXPECT_TRUE(statements().empty());
  EXPECT_EQ(messages(),
            (Texts{"Are you sure you want to Transfer all the Particulars of SALES to RENT"}));

  yes();
  form.click(form.cmdupdate);
  Texts sent = statements();
  sent.resize(4);
  const std::string update =
      "Update " + current + " set allid=" + std::to_string(group("RENT")) + " where code_no='C1'";
  EXPECT_EQ(sent, (Texts{update + " and srno=1", "Flush Tables", update + " and srno=2",
                         "Flush Tables"}));
  EXPECT_EQ(form.cbogroup.text(), "RENT") << "the view follows the lines";
  EXPECT_EQ(form.vsf3.rows(), 3);
  EXPECT_EQ(form.cbogroup.find("SALES"), 0);
  EXPECT_EQ(stored(current, "C2").at(0).at(2), "SALES");

  form.cbotgroup.choose(form.cbotgroup.find("BANKS"));
  yes();
  host().statements().failNext("Select * From " + current);
  form.click(form.cmdupdate);
  EXPECT_EQ(form.vsfm.rows(), 0) << "lines that were not read anew are not shown where they stood";
}

TEST_F(SummaryTest, OneMoreGroupAndOneFewer) {
  frmcrtb& form = open("C1", 2008);
  form.click(form.mnugroup);
  ASSERT_EQ(form.cbogroup.text(), "BANKS");
  EXPECT_FALSE(form.cmdless.enabled());
  form.click(form.cmdadd);
  EXPECT_EQ(shown(form.vsf1),
            (Rows{{"BANKS", "", ""}, {"Cash", "200.00", "DR"}, {"CREDITORS", "", ""}}));
  EXPECT_EQ(shown(form.vsf2),
            (Rows{{"BANKS", "", ""}, {"CREDITORS", "", ""}, {"Owed", "400.00", "CR"}}));
  EXPECT_EQ(form.vsf3.rows(), 1) << "a transfer moves the chosen group alone";
  for (int i = 0; i < 10 && form.cmdadd.enabled(); ++i) form.click(form.cmdadd);
  EXPECT_EQ(form.lblgroup.caption(), std::to_string(form.cbogroup.size()) + " groups shown");
  // What somebody else entered shows when it is asked for.
  exec("update " + current + " set amt=250 where code_no='C1' and srno=6");
  form.click(form.cmdok);
  EXPECT_EQ(form.vsf1.cell(2, 1), "250.00");
  while (form.cmdless.enabled()) form.click(form.cmdless);
  EXPECT_EQ(shown(form.vsf1), (Rows{{"Cash", "250.00", "DR"}}));
}

}  // namespace
}  // namespace quillet::support
