// The closing stock, on a real database.
#include <gtest/gtest.h>

#include "printing/summary_fixture.h"
#include "suite/stock_form.h"

namespace quillet::support {
namespace {

using suite::frmTrade;

class StockTest : public SummaryTest {
 protected:
  static void enter(frmTrade& form, const std::string& ledger, const std::string& group,
                    const std::string& amount) {
    type(form.txtpart, ledger);
    type(form.txtgroup, group);
    type(form.txtamount, amount);
    form.press(keys::Enter);
  }
  // Opens the closing stock and, where a ledger is named, moves to its line.
  frmTrade& openStock(const char* name = nullptr) {
    frmcrtb& form = EditorTest::open("C1", 2008);
    EXPECT_TRUE(form.click(form.cmdclstock[0]));
    frmTrade& stock = opened();
    if (name != nullptr) moveTo(stock, name);
    return stock;
  }
  frmTrade& opened() { return static_cast<frmTrade&>(*context().openForms.find("frmTrade")); }
  static void moveTo(frmTrade& stock, const char* name) {
    stock.focus(stock.vsf);
    stock.vsf.setCurrent(stock.vsf.find(0, name));
  }
  void remove(frmTrade& stock, Answer answer = Answer::Yes) {
    dialogs.queueAnswer(answer);
    stock.click(stock.cmddelete);
  }
  // Stock of the year: client, ledger, amount.
  void put(const std::vector<std::tuple<const char*, const char*, const char*>>& lines) {
    exec("delete from " + table);
    for (const auto& [client, name, amount] : lines) {
      exec("insert into " + table + "(code_no,partid,allid,amt) values('" + client + "'," +
           std::to_string(ledger(name)) +
           ",(select allid from mast_allgrp where allgrp='CLOSING "
           "STOCK')," +
           amount + ")");
    }
  }
  Rows stock(const std::string& client = "C1") {
    return rows("select particular,amt from " + table +
                " t join mast_part p on p.partid=t.partid where code_no='" + client +
                "' order by particular,amt");
  }

  const std::string table = stockOf(current);
};

TEST_F(StockTest, IsKeptInTheYearsTableAndChangesTheFigures) {
  frmTrade& form = openStock();
  EXPECT_TRUE(form.modal());
  EXPECT_EQ(form.lblsubject.caption(), theEditor(context()).subject());
  enter(form, "Rice", "closing", "1,200.5");
  enter(form, "Rice", "CLOSING STOCK", "0.255");
  enter(form, "O'Brien's \\ wheat", "CLOSING STOCK", "99");
  EXPECT_EQ(form.txttotal.text(), "1,299.76");
  EXPECT_EQ(form.lblhint.caption(), "Saved 12:00.");
  EXPECT_EQ(stock(), (Rows{{"O'Brien's \\ wheat", "99"}, {"Rice", "1200.76"}}));
  EXPECT_EQ(shown(form.vsf).at(1), (Texts{"O'Brien's \\ wheat", "CLOSING STOCK", "99.00"}));

  // A name that the database takes for another is asked about.
  dialogs.queueAnswer(Answer::No);
  enter(form, "Ｒｉｃｅ", "CLOSING STOCK", "5");
  EXPECT_EQ(messages().size(), 1U);
  EXPECT_EQ(form.active(), &form.txtpart);
  EXPECT_EQ(form.vsf.rows(), 2);
  form.press(keys::Escape);

  // Altered, the line is replaced; deleted, it is gone.
  moveTo(form, "Rice");
  form.press(keys::Enter);
  type(form.txtamount, "700");
  form.press(keys::Enter);
  moveTo(form, "O'Brien's \\ wheat");
  remove(form, Answer::No);
  EXPECT_EQ(form.vsf.rows(), 2);
  yes();
  form.focus(form.vsf);
  form.press(keys::Delete);
  EXPECT_EQ(stock(), (Rows{{"Rice", "700"}}));

  frmcrtb& editor = theEditor(context());
  EXPECT_EQ(editor.vsfr.rows(), 0) << "the figures wait for the form to close";
  form.press(keys::Escape);
  EXPECT_FALSE(form.visible());
  EXPECT_EQ(figures(editor, "Less : Closing Stock")[1], "700.00");
  EXPECT_EQ(editor.txtclst[0].text(), "700.00");
}

// A merge of groups or ledgers leaves such rows; the sibling component may leave rows without ids.
TEST_F(StockTest, RowsOfOnePairAreOneLine) {
  const struct {
    const char *ledger, *entered, *amount;  // deleted where there is none
    Rows left;
  } cases[] = {{"Rice", "Rice", "1000.30", {{"Rice", "1000.3"}, {"Wheat", "7"}}},
               {"Rice", "Rice", "12", {{"Rice", "12"}, {"Wheat", "7"}}},
               {"Wheat", "Rice", "1", {{"Rice", "1001.3"}}},
               {"Rice", "", "", {{"Wheat", "7"}}},
               {"Wheat", "", "", {{"Rice", "0.1"}, {"Rice", "1000.2"}}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.ledger) + ' ' + c.entered);
    put({{"C1", "Rice", "0.1"},
         {"C1", "Rice", "1000.2"},
         {"C1", "Wheat", "7"},
         {"C2", "Rice", "5"}});
    exec("update " + table + " set allid=null where amt=7");
    frmTrade& form = openStock(c.ledger);
    EXPECT_EQ(shown(form.vsf), (Rows{{"Rice", "CLOSING STOCK", "1000.30"}, {"Wheat", "", "7.00"}}));
    EXPECT_EQ(form.txttotal.text(), "1,007.30");
    if (*c.amount == 0) {
      remove(form);
    } else {
      form.press(keys::Enter);
      enter(form, c.entered, "CLOSING STOCK", c.amount);
    }
    EXPECT_EQ(stock(), c.left);
    EXPECT_EQ(stock("C2"), (Rows{{"Rice", "5"}}));
    form.close();
  }
  EXPECT_TRUE(log().empty());
}

TEST_F(StockTest, AFailedChangeChangesNothing) {
  frmTrade* form = nullptr;
  const auto arrange = [&] {
    if (form != nullptr && form->visible()) form->close();
    put({{"C1", "Rice", "300"}, {"C1", "Wheat", "100"}});
    form = &openStock("Rice");
  };
  const auto enter = [&] { form->press(keys::Enter); };
  const auto alter = [&] {
    arrange();
    enter();
    type(form->txtpart, "Wheat");
    type(form->txtamount, "50");
  };
  const auto showsWhatIsStored = [&] {
    Rows seen;
    for (const auto& row : shown(form->vsf)) {
      seen.push_back({row[0], host().formatgen(row[2], "0")});
    }
    // A list that could not be read is empty.
    EXPECT_EQ(seen, form->txttotal.text().empty() ? Rows{} : stock());
  };
  const auto again = [&] {
    enter();
    showsWhatIsStored();
  };
  const auto deleteIt = [&] { remove(*form); };
  FailingDeed deed{.what = "altering into another line", .arrange = alter, .act = enter};
  deed.result = [&] { return stock(); };
  deed.next = {{"Enter again", again}};
  deed.place = "frmTrade";
  deed.stops = false;
  deed.check = showsWhatIsStored;
  failEachStatement(deed);
  const auto escape = [&] { form->press(keys::Escape); };
  deed.next = {{"Escape", escape, escape}, {"a deletion", deleteIt, deleteIt}};
  deed.check = {};
  deed.behind = 2;
  failEachStatement(deed);
  deed.what = "deleting";
  deed.arrange = arrange;
  deed.act = deleteIt;
  deed.next = {{"the same again", deleteIt}};
  deed.check = showsWhatIsStored;
  failEachStatement(deed);
}

TEST_F(StockTest, RefusesWhatTheEditorRefuses) {
  frmTrade& form = openStock();
  const char* const invalid = "Cannot save the entry due to invalid data.";
  const struct {
    const char *ledger, *group, *amount, *told, *icon;
  } cases[] = {{"", "CLOSING STOCK", "5", invalid, "none"},
               {"Rice", "", "5", invalid, "none"},
               {"Rice", "CLOSING STOCK", "", invalid, "none"},
               {"Rice", "CLOSING STOCK", "0", invalid, "none"},
               {"Rice", "CLOSING STOCK", "-5", invalid, "none"},
               {"Rice", "CLOSING STOCK", "1e3", invalid, "none"},
               // A group of the ledger master that is no stock.
               {"Rice", "RENT", "5", "Group does not exist.", "information"}};
  for (const auto& c : cases) {
    enter(form, c.ledger, c.group, c.amount);
    EXPECT_EQ(asked(), (Rows{{c.told, "OK", c.icon, "OK"}})) << c.amount;
    form.press(keys::Escape);
  }
  EXPECT_EQ(stock(), Rows{});
  EXPECT_TRUE(log().empty());
}

TEST_F(StockTest, TheYearsViewChoosesTheTable) {
  frmcrtb& form = EditorTest::open("C1", 2008);
  const struct {
    int view, button;
    std::string table;
  } cases[] = {{0, 0, current}, {1, 0, previous}, {2, 0, current}, {2, 1, previous}};
  for (const auto& c : cases) {
    form.click(form.mnuyrs[c.view]);
    ASSERT_TRUE(form.click(form.cmdclstock[c.button]));
    enter(opened(), "Rice", "CLOSING STOCK", "1");
    opened().close();
    EXPECT_EQ(value("select count(*) from " + stockOf(c.table)), "1") << c.view << c.button;
    exec("delete from " + stockOf(c.table));
  }
}

}  // namespace
}  // namespace quillet::support
