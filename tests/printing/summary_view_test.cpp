// The summary view, the closing stock and the group view with its transfer, on a real database.
#include <gtest/gtest.h>

#include "forms/editor_fixture.h"
#include "suite/stock_form.h"
#include "support/failing_deed.h"

namespace quillet::support {
namespace {

using Statements = std::vector<std::string>;
using Pair = std::vector<std::string>;
using suite::frmTrade;

class SummaryViewTest : public EditorTest {
 protected:
  // Group numbers as they are; "OTHER DEPRECIATION" is no depreciation.
  SummaryViewTest() {
    group("DEPRECIATION", 29);
    group("OTHER DEPRECIATION", 29);
    group("CLOSING STOCK", 7);
    group("CREDITORS", 12);
    previous = addYear("C1", 2007, {{"Counter", "SALES", -50}, {"Cash", "BANKS", 50}});
    current = addYear("C1", 2008,
                      {{"Counter", "SALES", -1'234'567.89},
                       {"Returns", "SALES", 0.89},
                       {"Shop", "RENT", 1'500'000},
                       {"Cars", "DEPRECIATION", 1'000},
                       {"Goodwill", "OTHER DEPRECIATION", 10},
                       {"Cash", "BANKS", 200},
                       {"Owed", "CREDITORS", -400}});
    addYear("C2", 2008);
    exec("insert into " + current + " values(1,'C2',1," + std::to_string(group("SALES")) +
         ",99999,2)");
  }

  static std::vector<std::string> row(const frmcrtb& form, const std::string& caption) {
    const int at = form.vsfr.find(0, caption);
    if (at == 0) return {};
    return {form.vsfr.cell(at, 1), form.vsfr.cell(at, 2)};
  }
  static frmTrade& stockForm(frmcrtb& form) {
    return static_cast<frmTrade&>(*form.desk().find("frmTrade"));
  }
  static void enterStock(frmTrade& form, const std::string& ledger, const std::string& group,
                         const std::string& amount) {
    type(form.txtpart, ledger);
    type(form.txtgroup, group);
    type(form.txtamount, amount);
    form.press(keys::Enter);
  }

  static std::string stockOf(const std::string& table) { return "TRADE_" + table.substr(4); }
  std::string idsOf(const char* name) {
    return std::to_string(ledger(name)) + "," + std::to_string(group("CLOSING STOCK"));
  }
  // Opens the closing stock and, where a ledger is named, moves to its line.
  frmTrade& openStock(const char* name = nullptr) {
    frmcrtb& form = open("C1", 2008);
    EXPECT_TRUE(form.click(form.cmdclstock[0]));
    frmTrade& stock = stockForm(form);
    if (name != nullptr) moveTo(stock, name);
    return stock;
  }
  static void moveTo(frmTrade& stock, const char* name) {
    stock.focus(stock.vsf);
    stock.vsf.setCurrent(stock.vsf.find(0, name));
  }

  std::string previous, current;
};

TEST_F(SummaryViewTest, ShowsBothYearsAndSendsAStatementForEachGroup) {
  exec("insert into " + stockOf(current) + "(code_no,partid,allid,amt) values('C1',1,1,300)" +
       ",('C2',1,1,7000)");
  frmcrtb& form = open("C1", 2008);
  EXPECT_TRUE(form.click(form.mnushsumm));
  EXPECT_TRUE(form.famSummary.visible());
  EXPECT_FALSE(form.famLines.visible());
  const Statements sent = statements();
  const auto balance = [](const std::string& table, int gid, const std::string& only = "") {
    return "Select sum(amt),nid from " + table +
           ",mast_allgrp Where mast_allgrp.gid=" + std::to_string(gid) + only + " and " + table +
           ".allid=mast_allgrp.allid and " + table + ".Code_No='C1' group by nid";
  };
  Statements expected;
  for (const std::string& table : {current, previous}) {
    for (int gid = 1; gid <= 28; ++gid) expected.push_back(balance(table, gid));
    expected.push_back(balance(table, 29, " and mast_allgrp.allgrp<>'DEPRECIATION'"));
    expected.push_back(balance(table, 29, " and mast_allgrp.allgrp='DEPRECIATION'"));
    expected.push_back("Select sum(amt) from " + stockOf(table) + " Where Code_No='C1'");
  }
  EXPECT_EQ(sent, expected);

  EXPECT_EQ(form.vsfr.columns()[1].heading, "Amount(Curr)");
  EXPECT_EQ(form.vsfr.columns()[2].heading, "Amount(Prev)");
  EXPECT_EQ(form.txtclst[0].text(), "300.00");
  EXPECT_EQ(form.txtclst[1].text(), "0.00");
  EXPECT_EQ(row(form, "Sales"), (Pair{"1,234,567.00", "50.00"}));
  EXPECT_EQ(row(form, "Cost of Goods Sold"), (Pair{"(300.00)", "0.00"}));
  EXPECT_EQ(row(form, "Expenses"), (Pair{"1,500,010.00", "0.00"}));
  EXPECT_EQ(row(form, "Net Profit/(Loss)"), (Pair{"(265,143.00)", "50.00"}));
  EXPECT_EQ(row(form, "Profit Tr. to B/S"), (Pair{"(266,143.00)", "50.00"}));
  EXPECT_EQ(row(form, "Working Capital"), (Pair{"100.00", "50.00"}));
  EXPECT_EQ(row(form, "GP Rate"), (Pair{"100.02", "100.00"}));
  EXPECT_EQ(row(form, "Current Ratio"), (Pair{"1.25", "-"}));

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
    EXPECT_EQ(row(form, "Less : Closing Stock")[0], read);
    EXPECT_EQ(row(form, "Current Assets")[0], assets);
    form.press(keys::Escape);
  }
}

TEST_F(SummaryViewTest, WithoutLinesEveryAmountIsZeroAndEveryRateADash) {
  addClient("C3", "Empty Books");
  addYear("C3", 2010);
  frmcrtb& form = open("C3", 2010);
  form.click(form.mnushsumm);
  EXPECT_EQ(statements().size(), 31U) << "there is no year before to ask for";
  ASSERT_EQ(form.vsfr.rows(), 19);
  for (const auto& cells : shown(form.vsfr)) {
    const bool rate = cells[0].find("Rate") != std::string::npos || cells[0] == "Current Ratio";
    EXPECT_EQ(cells[1], rate ? "-" : "0.00") << cells[0];
    EXPECT_EQ(cells[2], rate ? "-" : "0.00") << cells[0];
  }
}

TEST_F(SummaryViewTest, WhatSortingImportsIsInTheFigures) {
  exec("delete from " + current + " where code_no='C1'");
  dialogs.queueAnswer(Answer::No);
  frmcrtb& form = open("C1", 2008);
  form.click(form.mnushsumm);
  dialogs.queueAnswer(Answer::Yes);
  form.click(form.mnusortopt[1]);
  EXPECT_EQ(row(form, "Sales"), (Pair{"50.00", "50.00"}));
}

TEST_F(SummaryViewTest, AFailureIsLoggedAndLeavesTheFormOpen) {
  frmcrtb& form = open("C1", 2008);
  host().statements().failNext("mast_allgrp.gid=29");
  form.click(form.mnushsumm);
  EXPECT_EQ(trapped(), Statements{"frmcrtb\tLOADFIGS"});
  EXPECT_TRUE(form.visible());
  EXPECT_FALSE(frontEnd.busy);
}

// --- closing stock

TEST_F(SummaryViewTest, ClosingStockIsKeptInTheYearsTableAndChangesTheFigures) {
  frmcrtb& form = open("C1", 2008);
  EXPECT_EQ(form.cmdclstock[0].caption(), "Closing &Stock");
  ASSERT_TRUE(form.click(form.cmdclstock[0]));
  frmTrade& stock = stockForm(form);
  EXPECT_TRUE(stock.modal());
  enterStock(stock, "Rice", "closing", "1,200.5");
  enterStock(stock, "Rice", "CLOSING STOCK", "0.255");
  enterStock(stock, "O'Brien's \\ wheat", "CLOSING STOCK", "99");
  EXPECT_EQ(stock.vsf.rows(), 2);
  EXPECT_EQ(stock.txttotal.text(), "1,299.76");
  const std::string table = stockOf(current);
  const std::string all = "select particular,allgrp,amt from " + table +
                          " t join mast_part p on p.partid=t.partid join mast_allgrp g on "
                          "g.allid=t.allid where code_no='C1' order by amt";
  EXPECT_EQ(rows(all), (Rows{{"O'Brien's \\ wheat", "CLOSING STOCK", "99"},
                             {"Rice", "CLOSING STOCK", "1200.76"}}));

  // A name that the database takes for another is asked about.
  dialogs.queueAnswer(Answer::No);
  enterStock(stock, "Ｒｉｃｅ", "CLOSING STOCK", "5");
  EXPECT_EQ(messages().size(), 1U);
  EXPECT_EQ(stock.active(), &stock.txtpart);
  EXPECT_EQ(stock.vsf.rows(), 2);
  stock.press(keys::Escape);

  // Altered, the line is replaced; deleted, it is gone.
  moveTo(stock, "Rice");
  stock.press(keys::Enter);
  type(stock.txtamount, "700");
  stock.press(keys::Enter);
  stock.vsf.setCurrent(stock.vsf.find(0, "O'Brien's \\ wheat"));
  dialogs.queueAnswer(Answer::No);
  stock.click(stock.cmddelete);
  EXPECT_EQ(stock.vsf.rows(), 2);
  dialogs.queueAnswer(Answer::Yes);
  stock.focus(stock.vsf);
  stock.press(keys::Delete);
  EXPECT_EQ(rows(all), (Rows{{"Rice", "CLOSING STOCK", "700"}}));

  EXPECT_EQ(form.vsfr.rows(), 0) << "the figures wait for the form to close";
  stock.press(keys::Escape);
  EXPECT_FALSE(stock.visible());
  EXPECT_EQ(row(form, "Less : Closing Stock"), (Pair{"700.00", "0.00"}));
  EXPECT_EQ(form.txtclst[0].text(), "700.00");
}

// A merge of groups or ledgers leaves such rows; the sibling component may leave rows without ids.
TEST_F(SummaryViewTest, RowsOfOnePairAreOneLineOfStock) {
  const std::string table = stockOf(current);
  const std::string ids = idsOf("Rice");
  const auto fill = [&] {
    exec("delete from " + table);
    exec("insert into " + table + "(code_no,partid,allid,amt) values('C1'," + ids + ",0.1),('C1'," +
         ids + ",1000.2),('C1'," + std::to_string(ledger("Wheat")) + ",null,7),('C2'," + ids +
         ",5)");
  };
  const std::string all = "select code_no,amt from " + table + " order by code_no,amt";
  fill();
  frmTrade* stock = &openStock();
  EXPECT_EQ(shown(stock->vsf), (Rows{{"Rice", "CLOSING STOCK", "1000.30"}, {"Wheat", "", "7.00"}}));
  EXPECT_EQ(stock->txttotal.text(), "1,007.30");
  const struct {
    const char *what, *ledger, *amount;
    Rows stored;
  } cases[] = {{"confirmed", "Rice", "1000.30", {{"C1", "7"}, {"C1", "1000.3"}, {"C2", "5"}}},
               {"altered", "Rice", "12", {{"C1", "7"}, {"C1", "12"}, {"C2", "5"}}},
               {"merged", "Wheat", "1", {{"C1", "1001.3"}, {"C2", "5"}}},
               {"deleted", "Rice", "", {{"C1", "7"}, {"C2", "5"}}},
               {"deleted", "Wheat", "", {{"C1", "0.1"}, {"C1", "1000.2"}, {"C2", "5"}}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    fill();
    stock->close();
    stock = &openStock(c.ledger);
    const bool merging = c.what == std::string("merged");
    if (std::string(c.amount).empty()) {
      dialogs.queueAnswer(Answer::Yes);
      stock->click(stock->cmddelete);
    } else {
      stock->press(keys::Enter);
      enterStock(*stock, merging ? "Rice" : c.ledger, "CLOSING STOCK", c.amount);
    }
    EXPECT_EQ(rows(all), c.stored);
  }
  EXPECT_TRUE(log().empty());
}

TEST_F(SummaryViewTest, AFailedChangeOfStockChangesNothing) {
  const std::string table = stockOf(current);
  const std::string rice = idsOf("Rice"), wheat = idsOf("Wheat");
  frmTrade* stock = nullptr;
  const auto arrange = [&] {
    if (stock != nullptr && stock->visible()) stock->close();
    exec("delete from " + table);
    exec("insert into " + table + "(code_no,partid,allid,amt) values('C1'," + rice +
         ",300),('C1'," + wheat + ",100)");
    stock = &openStock("Rice");
  };
  const auto enter = [&] { stock->press(keys::Enter); };
  const auto result = [&] {
    return rows("select partid,amt from " + table + " where code_no='C1' order by partid,amt");
  };
  const auto alter = [&] {
    arrange();
    enter();
    type(stock->txtpart, "Wheat");
    type(stock->txtamount, "50");
  };
  const auto remove = [&] {
    dialogs.queueAnswer(Answer::Yes);
    stock->click(stock->cmddelete);
  };
  const auto showsWhatIsStored = [&] {
    Rows seen;
    for (int row = 1; row <= stock->vsf.rows(); ++row) {
      seen.push_back({stock->vsf.cell(row, 3), host().formatgen(stock->vsf.cell(row, 2), "0")});
    }
    // A list that could not be read is empty.
    EXPECT_EQ(seen, stock->txttotal.text().empty() ? Rows{} : result());
  };
  const auto again = [&] {
    enter();
    showsWhatIsStored();
  };
  failEachStatement({.what = "altering into another line",
                     .arrange = alter,
                     .act = enter,
                     .result = result,
                     .next = {{"Enter again", again}},
                     .place = "frmTrade",
                     .stops = false,
                     .check = showsWhatIsStored});
  const auto escape = [&] { stock->press(keys::Escape); };
  failEachStatement({.what = "altering into another line",
                     .arrange = alter,
                     .act = enter,
                     .result = result,
                     .next = {{"Escape", escape, escape}, {"a deletion", remove, remove}},
                     .place = "frmTrade",
                     .stops = false,
                     .behind = 2});
  failEachStatement({.what = "deleting",
                     .arrange = arrange,
                     .act = remove,
                     .result = result,
                     .next = {{"the same again", remove}},
                     .place = "frmTrade",
                     .stops = false,
                     .behind = 2,
                     .check = showsWhatIsStored});
}

TEST_F(SummaryViewTest, ClosingStockRefusesWhatTheEditorRefuses) {
  frmTrade& stock = openStock();
  const struct {
    const char *ledger, *group, *amount;
  } cases[] = {{"", "CLOSING STOCK", "5"},
               {"Rice", "", "5"},
               {"Rice", "CLOSING STOCK", ""},
               {"Rice", "CLOSING STOCK", "0"},
               {"Rice", "CLOSING STOCK", "-5"},
               {"Rice", "CLOSING STOCK", "1e3"},
               // A group of the ledger master that is no stock.
               {"Rice", "RENT", "5"}};
  const Rows refused{{"Cannot save the entry due to invalid data.", "OK", "none", "OK"}};
  const Rows unknown{{"Group does not exist.", "OK", "information", "OK"}};
  for (const auto& entry : cases) {
    const bool isStock = std::string(entry.group) != "RENT";
    enterStock(stock, entry.ledger, entry.group, entry.amount);
    EXPECT_EQ(asked(), isStock ? refused : unknown) << entry.amount;
    stock.press(keys::Escape);
  }
  EXPECT_EQ(value("select count(*) from " + stockOf(current)), "0");
  EXPECT_TRUE(log().empty());
}

TEST_F(SummaryViewTest, TheYearsViewChoosesTheStockTable) {
  frmcrtb& form = open("C1", 2008);
  const struct {
    int view, button;
    std::string table;
  } cases[] = {{0, 0, current}, {1, 0, previous}, {2, 0, current}, {2, 1, previous}};
  for (const auto& c : cases) {
    form.click(form.mnuyrs[c.view]);
    ASSERT_TRUE(form.click(form.cmdclstock[c.button]));
    enterStock(stockForm(form), "Rice", "CLOSING STOCK", "1");
    stockForm(form).close();
    EXPECT_EQ(value("select count(*) from " + stockOf(c.table)), "1") << c.view << c.button;
    exec("delete from " + stockOf(c.table));
  }
  EXPECT_EQ(form.cmdclstock[0].caption(), "Closing &Stock (Curr)");
  EXPECT_EQ(form.cmdclstock[1].caption(), "Closing Stoc&k (Prev)");
}

// --- the group view

TEST_F(SummaryViewTest, LinesMoveToAnotherGroupOneStatementEach) {
  frmcrtb& form = open("C1", 2008);
  form.click(form.mnugroup);
  form.cbogroup.choose(form.cbogroup.find("SALES"));
  EXPECT_EQ(shown(form.vsf3), (Rows{{"Counter", "1234567.89", "CR"}, {"Returns", "0.89", "DR"}}));
  statements();

  // Nothing chosen, or the same group: refused without a question.
  form.click(form.cmdupdate);
  form.cbotgroup.choose(form.cbotgroup.find("SALES"));
  form.click(form.cmdupdate);
  const Pair refused{"Please select a different Group.", "OK", "information", "OK"};
  EXPECT_EQ(asked(), (Rows{refused, refused}));
  form.cbotgroup.choose(form.cbotgroup.find("RENT"));
  dialogs.queueAnswer(Answer::No);
  form.click(form.cmdupdate);
  EXPECT_TRUE(statements().empty());
  EXPECT_EQ(messages(), (Statements{"Are you sure you want to Transfer all the Particulars of "
                                    "SALES to RENT"}));

  dialogs.queueAnswer(Answer::Yes);
  form.click(form.cmdupdate);
  Statements sent = statements();
  sent.resize(4);
  const std::string update =
      "Update " + current + " set allid=" + std::to_string(group("RENT")) + " where code_no='C1'";
  EXPECT_EQ(sent, (Statements{update + " and srno=1", "Flush Tables", update + " and srno=2",
                              "Flush Tables"}));
  EXPECT_EQ(form.cbogroup.text(), "RENT") << "the view follows the lines";
  EXPECT_EQ(form.vsf3.rows(), 3);
  EXPECT_EQ(form.cbogroup.find("SALES"), 0);
  EXPECT_EQ(value("select count(*) from " + current +
                  " where code_no='C2' and allid=" + std::to_string(group("SALES"))),
            "1");
}

TEST_F(SummaryViewTest, OneMoreGroupAndOneFewer) {
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
