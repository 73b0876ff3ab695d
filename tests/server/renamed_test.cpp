// Names that another station changes while they stand in the fields of an entry.
#include <thread>

#include "server/long_line.h"
#include "server/stations_fixture.h"
#include "suite/stock_form.h"

namespace quillet::support {
namespace {

class RenamedTest : public StationsTest {
 protected:
  RenamedTest() : StationsTest("N1") {}
  static void rename(const std::string& ledger, const std::string& name) {
    ben().change("update Mast_Part set Particular='" + name + "' where Particular='" + ledger +
                 '\'');
  }
  static void typeUpToSide(frmcrtb& editor, const char* ledger, const char* amount) {
    if (ledger != nullptr) {
      Station::type(editor.txtpart, std::string(ledger) + '\r');
      Station::type(editor.txtgroup, "RENT\r");
    }
    Station::type(editor.txtamount, std::string(amount) + '\r');
  }
  static void typeRest(suite::frmTrade& stock, const char* amount) {
    Station::type(stock.txtgroup,
                  anna().value("select ALLGRP from Mast_AllGrp where GID=7 limit 1") + '\r');
    Station::type(stock.txtamount, amount);
  }
};

TEST_F(RenamedTest, AnEntryGoesOnWithTheLedgerThatWasChosen) {
  frmcrtb& editor = anna().open("N1", 2008);
  anna().enter("First Name", "RENT", "100");
  const auto lines = [] {
    return anna().value(
        "select group_concat(p.Particular,' ',t.amt order by p.Particular) from TAB_2 as t join "
        "Mast_Part as p on p.PartId=t.partid where t.code_no='N1'");
  };
  // A new line.
  typeUpToSide(editor, "First Name", "5");
  rename("First Name", "Second Name");
  anna().practice().environment().lookAround();
  EXPECT_EQ(editor.txtpart.text(), "Second Name");
  EXPECT_NE(editor.lblhint.caption().find("\"Second Name\" now"), std::string::npos);
  Station::type(editor.txtdrcr, "D\r");
  EXPECT_EQ(lines(), "Second Name 105");
  // A line that is altered, and a name that is changed in the last moment.
  editor.vsfm.setCurrent(1);
  editor.doubleClick(editor.vsfm);
  typeUpToSide(editor, nullptr, "300");
  rename("Second Name", "Third Name");
  ben().change("update Mast_AllGrp set ALLGRP='RENT PAID' where ALLGRP='RENT'");
  Station::type(editor.txtdrcr, "D\r");
  EXPECT_EQ(lines(), "Third Name 300");
  EXPECT_TRUE(anna().notices().empty());
  // One that is gone does not come back as a new one.
  ben().change("insert into Mast_Part values(950,'Short Lived')");
  anna().practice().environment().lookAround();
  typeUpToSide(editor, "Short Lived", "6");
  ben().change("delete from Mast_Part where PartId=950");
  anna().dialogs.takeMessages();
  Station::type(editor.txtdrcr, "D\r");
  const auto boxes = anna().dialogs.takeMessages();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_NE(boxes[0].message.text.find("deleted or merged"), std::string::npos);
  EXPECT_EQ(editor.active(), &editor.txtpart);
  EXPECT_EQ(editor.txtpart.text(), "");
  EXPECT_EQ(lines(), "Third Name 300");
  ben().change("update Mast_AllGrp set ALLGRP='RENT' where ALLGRP='RENT PAID'");
}

TEST_F(RenamedTest, SoDoesTheClosingStock) {
  anna().change("insert into Mast_Part values(960,'Raw Silk')");
  suite::SystemClock clock;
  suite::frmTrade stock(anna().context().openForms, anna().dialogs, clock,
                        anna().practice().environment().yearLocks());
  stock.LoadData(*anna().context().host, "N1", "TRADE_2");
  stock.show();
  const auto silks = [] {
    return anna().value(
        "select group_concat(PartId,' ',Particular) from Mast_Part where "
        "Particular like '% Silk'");
  };
  Station::type(stock.txtpart, "Raw Silk\r");
  typeRest(stock, "70");
  rename("Raw Silk", "Pure Silk");
  stock.press(keys::Enter);
  EXPECT_EQ(silks(), "960 Pure Silk");
  EXPECT_EQ(stock.vsf.rows(), 0) << "it is to be chosen again";
  Station::type(stock.txtpart, "Pure Silk\r");
  stock.focus(stock.txtamount);
  stock.press(keys::Enter);
  ASSERT_EQ(stock.vsf.rows(), 1) << stock.lblhint.caption();
  stock.vsf.setCurrent(1);
  stock.doubleClick(stock.vsf);
  stock.focus(stock.txtamount);
  rename("Pure Silk", "Real Silk");
  stock.press(keys::Enter);
  EXPECT_EQ(silks(), "960 Real Silk");
  EXPECT_EQ(stock.vsf.cell(1, 0), "Real Silk");
  stock.close();
}

// A save that is taken back restores what was typed: a ledger that was renamed while it was on its
// way is chosen again, one that the save itself had made stays to be made again.
TEST_F(RenamedTest, SoDoesAClosingStockThatWasTakenBack) {
  anna().change("insert into Mast_Part values(970,'Raw Jute')");
  LongLine line(books().server.port());
  Station far(line.port(), "ben");
  suite::SystemClock clock;
  suite::frmTrade stock(far.context().openForms, far.dialogs, clock,
                        far.practice().environment().yearLocks());
  stock.LoadData(*far.context().host, "N1", "TRADE_2");
  stock.show();
  for (const bool listed : {true, false}) {
    Station::type(stock.txtpart, listed ? "Raw Jute\r" : "New Jute\r");
    typeRest(stock, "80");
    line.hold();
    std::thread saving([&] { stock.press(keys::Enter); });
    while (!line.holding()) std::this_thread::sleep_for(std::chrono::milliseconds(5));
    books().server.root().execute(
        "update quillet.Mast_Part set Particular='Old Jute' where PartId=970");
    line.breakAt(LongLine::Break::beforeCommit);
    line.letGo();
    saving.join();
    EXPECT_EQ(far.notices().size(), 1U);
    EXPECT_EQ(stock.txtpart.text(), listed ? "" : "New Jute") << stock.lblhint.caption();
    EXPECT_EQ(stock.txtamount.text(), "80");
    Station::type(stock.txtpart, listed ? "Old Jute\r" : "New Jute\r");
    stock.focus(stock.txtamount);
    stock.press(keys::Enter);
    EXPECT_GT(stock.vsf.find(0, listed ? "Old Jute" : "New Jute"), 0) << stock.lblhint.caption();
  }
  EXPECT_EQ(far.value("select group_concat(Particular order by Particular) from Mast_Part where "
                      "Particular like '% Jute'"),
            "New Jute,Old Jute");
  stock.close();
}

}  // namespace
}  // namespace quillet::support
