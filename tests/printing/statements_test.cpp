// The statements by heads as a person sees them: drawn anew from what the tables hold.
#include <gtest/gtest.h>

#include "forms/editor_fixture.h"
#include "statements/frmstatements.h"

namespace quillet::support {
namespace {

class StatementsFormTest : public EditorTest {
 protected:
  StatementsFormTest() {
    group("STOCK", 7);
    addYear("C1", 2007,
            {{"Own", "CAPITAL", -1'000},
             {"Cash", "BANKS", 1'200},
             {"Shop", "RENT", 300},
             {"Counter", "SALES", -500}});
    table = addYear("C1", 2008,
                    {{"Own", "CAPITAL", -1'200},
                     {"Cash", "BANKS", 1'650.25},
                     {"Shop", "RENT", 349.75},
                     {"Counter", "SALES", -800}});
    exec("insert into TRADE_" + table.substr(4) + "(code_no,partid,allid,amt) values('C1'," +
         std::to_string(ledger("Goods")) + "," + std::to_string(group("STOCK")) +
         ",100),('C2',1,1,7)");
    for (const auto& [name, schedule6, incomeTax] : {std::tuple{"CAPITAL", 1, 1},
                                                     {"BANKS", 24, 39},
                                                     {"SALES", 27, 47},
                                                     {"RENT", 35, 83},
                                                     {"STOCK", 22, 33}}) {
      map("#?#COMMON#?#", name, schedule6, incomeTax);
    }
    map("C1", "BANKS", 26, 39);
    map("C2", "RENT", 33, 0);
  }

  void map(const std::string& client, const std::string& name, int schedule6, int incomeTax,
           const std::string& headName = "") {
    exec("delete from AllGrp_Map where Code_No='" + client +
         "' and AllId=" + std::to_string(group(name)));
    exec("insert into AllGrp_Map values('" + client + "'," + std::to_string(group(name)) + "," +
         std::to_string(schedule6) + ",'" + headName + "'," + std::to_string(incomeTax) + ",'')");
  }
  frmstatements& shownForm() { return dynamic_cast<frmstatements&>(*context().openForms.active()); }
  frmstatements& openStatements() {
    frmcrtb& editor = open("C1", 2008);
    editor.click(editor.mnustatements);
    return shownForm();
  }
  // Without the blanks that indent them.
  static Rows rowsOf(const Grid& grid) {
    Rows all = shown(grid);
    for (Texts& row : all) row[0].erase(0, row[0].find_first_not_of(' '));
    return all;
  }

  std::string table;
};

TEST_F(StatementsFormTest, BothYearsByTheClientsOwnHeadsAndTheCommonOnes) {
  frmstatements& form = openStatements();
  EXPECT_EQ(form.vsfh.columns()[2].heading, "31/03/2009");
  const Rows balance{{"EQUITY AND LIABILITIES", "", "", ""},
                     {"Shareholders' funds", "", "", ""},
                     {"Share capital", "1", "1,200.00", "1,000.00"},
                     {"Reserves and surplus", "2", "550.25", "200.00"},
                     {"Total equity and liabilities", "", "1,750.25", "1,200.00"},
                     {"ASSETS", "", "", ""},
                     {"Current assets", "", "", ""},
                     {"Inventories", "22", "100.00", "-"},
                     {"Other current assets", "26", "1,650.25", "1,200.00"},
                     {"Total assets", "", "1,750.25", "1,200.00"}};
  EXPECT_EQ(rowsOf(form.vsfh), balance);
  EXPECT_EQ(form.lblagrees.caption(), "Both sides agree");
  form.vsfh.setCurrent(4);
  EXPECT_EQ(form.lblschedule.caption(), "Note 2: Reserves and surplus");
  EXPECT_EQ(rowsOf(form.vsfl), (Rows{{"Profit/(Loss) for the year", "550.25", "200.00"},
                                     {"Total", "550.25", "200.00"}}));
  // What is printed is what is shown, and the schedules below.
  form.click(form.cmdprint);
  Rows sheet = printed(false);
  for (Texts& row : sheet) row[0].erase(0, std::min(row[0].size(), row[0].find_first_not_of(' ')));
  ASSERT_GT(sheet.size(), balance.size());
  EXPECT_EQ(Rows(sheet.begin(), sheet.begin() + static_cast<long>(balance.size())), balance);
  EXPECT_TRUE(std::ranges::count(sheet, (Texts{"Own", "", "1,200.00", "1,000.00"})));
  EXPECT_EQ(document().fileName(), "Asha Traders 2008-09 Balance Sheet as at 31-03-2009");

  form.click(form.optpage[1]);
  EXPECT_EQ(rowsOf(form.vsfh), (Rows{{"INCOME", "", "", ""},
                                     {"Revenue", "", "", ""},
                                     {"Revenue from operations", "27", "800.00", "500.00"},
                                     {"Total income", "", "800.00", "500.00"},
                                     {"EXPENSES", "", "", ""},
                                     {"Cost of materials consumed", "29", "(100.00)", "-"},
                                     {"Other expenses", "35", "349.75", "300.00"},
                                     {"Total expenses", "", "249.75", "300.00"},
                                     {"Profit/(Loss) for the year", "", "550.25", "200.00"}}));
  form.click(form.optpage[2]);
  for (const Texts& row : Rows{{"Closing stock of raw material", "100.00", "-"},
                               {"Rent paid", "349.75", "300.00"},
                               {"Profit/(Loss) for the year", "550.25", "200.00"},
                               {"Total assets", "1,750.25", "1,200.00"}}) {
    EXPECT_EQ(std::ranges::count(rowsOf(form.vsfh), row), 1) << row[0];
  }
  // Enter leads to the schedule, Escape back and out.
  form.focus(form.vsfh);
  form.press(keys::Enter);
  EXPECT_EQ(form.active(), &form.vsfl);
  form.press(keys::Escape);
  EXPECT_EQ(form.active(), &form.vsfh);
  form.press(keys::Escape);
  EXPECT_FALSE(form.visible());
}

TEST_F(StatementsFormTest, NothingIsDroppedAndADifferenceIsSaid) {
  frmstatements& form = openStatements();
  // Somebody maps anew meanwhile, and enters a line.
  exec("delete from AllGrp_Map where Code_No='C1'");
  map("#?#COMMON#?#", "CAPITAL", 0, 1);
  map("#?#COMMON#?#", "RENT", 999, 0, "Premises");
  put(table, "9", "Cash", "BANKS", "0.01,1");
  form.click(form.mnurefresh);
  EXPECT_EQ(rowsOf(form.vsfh),
            (Rows{{"EQUITY AND LIABILITIES", "", "", ""},
                  {"Shareholders' funds", "", "", ""},
                  {"Reserves and surplus", "2", "550.25", "200.00"},
                  {"Groups without a head", "", "1,200.00", "1,000.00"},
                  {"Total equity and liabilities", "", "1,750.25", "1,200.00"},
                  {"ASSETS", "", "", ""},
                  {"Current assets", "", "", ""},
                  {"Inventories", "22", "100.00", "-"},
                  {"Cash and cash equivalents", "24", "1,650.26", "1,200.00"},
                  {"Total assets", "", "1,750.26", "1,200.00"},
                  {"Difference: assets less equity and liabilities", "", "0.01", "-"},
                  {"GROUPS WITHOUT A HEAD", "", "", ""},
                  {"CAPITAL, in Total equity and liabilities", "", "1,200.00", "1,000.00"}}));
  EXPECT_EQ(form.lblagrees.caption(), "Assets exceed equity and liabilities by 0.01.");
  form.click(form.optpage[1]);
  EXPECT_EQ(rowsOf(form.vsfh).back(),
            (Texts{"RENT (its head \"Premises\" is not in the list), in Total expenses", "",
                   "349.75", "300.00"}));
}

TEST_F(StatementsFormTest, WhatCannotBeReadIsNotShown) {
  frmstatements& form = openStatements();
  const Rows before = rowsOf(form.vsfh);
  for (const char* statement :
       {"master", "mast_allgrp", "TAB_", "TRADE_", "RMGRP_", "AllGrp_Map"}) {
    host().statements().failNext(statement);
    form.click(form.mnurefresh);
    EXPECT_EQ(form.vsfh.rows() + form.vsfl.rows(), 0) << statement;
    EXPECT_FALSE(form.cmdprint.enabled() || form.mnuexport.enabled() || form.cmdexport.enabled());
    EXPECT_EQ(form.lblagrees.caption(), "");
    EXPECT_EQ(trapped(), (Texts{"frmstatements\tLOADSTATEMENTS"}));
    form.click(form.mnurefresh);
    EXPECT_EQ(rowsOf(form.vsfh), before);
    EXPECT_TRUE(form.cmdprint.enabled());
    EXPECT_EQ(form.lblstatus.caption(), "");
  }
  exec("delete from master where code_no='C1' and tbl_nm='" + table + '\'');
  form.click(form.mnurefresh);
  EXPECT_EQ(form.vsfh.rows(), 0);
  EXPECT_EQ(form.lblstatus.caption(), "The year is no longer there.");
}

TEST_F(StatementsFormTest, TheHomeFormShowsTheYearChosenOrTheLastOne) {
  auto& home = static_cast<third&>(*practice.forms().ObjThird());
  home.show();
  Control& command = *home.find("mnustatements");
  const auto periodOf = [&](const std::string& client) {
    home.ClGrd1.showClient(client);
    home.click(command);
    Form* form = context().openForms.find("frmstatements");
    std::string period = form ? form->subject() : home.lblstatus.caption();
    if (form) form->close();
    return period;
  };
  EXPECT_EQ(periodOf("C1"), "Asha Traders (C1), 01/04/2008 - 31/03/2009");
  EXPECT_EQ(periodOf("C2"), "Client C2, Neighbour & Co, has no year to draw statements of.");
  home.ClGrd1.showClient("C1");
  home.CLGRD1_DBLCLICK();
  home.flexgrid2.setCurrent(1);
  home.click(command);
  frmstatements& form = shownForm();
  EXPECT_EQ(form.subject(), "Asha Traders (C1), 01/04/2007 - 31/03/2008");
  EXPECT_EQ(rowsOf(form.vsfh)[2], (Texts{"Share capital", "1", "1,000.00", "-"}));
}

}  // namespace
}  // namespace quillet::support
