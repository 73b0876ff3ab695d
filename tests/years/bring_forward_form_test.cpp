// The review of a year that is brought forward, from the home form and back.
#include "yearend/frmbringfwd.h"
#include "years/years_fixture.h"

namespace quillet::support {
namespace {

class BringForwardFormTest : public YearsTest {
 protected:
  using PracticeTest::type;
  BringForwardFormTest() {
    for (const auto& [name, primary] : {std::pair{"CAPITAL", 1},
                                        {"BANKS", 9},
                                        {"SALES", 15},
                                        {"RENT", 22},
                                        {"OPENING STOCK", 18},
                                        {"STOCK", 7}}) {
      group(name, primary);
    }
    old_ = addYear("C1", 2007,
                   {{"Asha", "CAPITAL", -600},
                    {"Ravi", "CAPITAL", -400},
                    {"Bank", "BANKS", 1500},
                    {"Sales", "SALES", -800},
                    {"Shop", "RENT", 300}});
    exec("insert into TRADE" + old_.substr(3) + "(code_no,partid,allid,amt) values('C1'," +
         std::to_string(ledger("Cloth")) + ',' + std::to_string(group("STOCK")) + ",100.01)");
  }
  frmbringfwd* page() { return dynamic_cast<frmbringfwd*>(context().openForms.active()); }
  frmbringfwd& review(int row = 1) {
    third& form = choose(&third::mnualter, "C1");
    form.flexgrid2.setCurrent(row);
    form.click(form.mnubringfwd);
    return *page();
  }
  static void share(frmbringfwd& form, const std::string& ledgerName, const std::string& percent) {
    form.vsfs.setCurrent(form.vsfs.find(0, ledgerName));
    form.click(form.mnushares);
    type(form.txtpercent, percent);
    form.press(keys::Enter);
  }
  Rows year() {
    return rows(
        "select particular,allgrp,amt,nid from TAB_2 t join Mast_Part p on "
        "p.PartId=t.partid join Mast_AllGrp g on g.ALLID=t.allid where code_no='C1' order "
        "by srno");
  }

  std::string old_;
};

TEST_F(BringForwardFormTest, ShowsEveryLineAndWritesWhatIsChosen) {
  third& home = this->home();
  home.click(home.mnubringfwd);
  EXPECT_EQ(messages().size(), 1U) << "no year is chosen";
  frmbringfwd& form = review();
  EXPECT_EQ(form.lblprofit.caption(), "Profit of the old year: 600.01");
  EXPECT_EQ(shown(form.vsfl),
            (Rows{{"1", "Asha", "CAPITAL", "600.00 CR", "600.00 CR", "Balance sheet"},
                  {"1", "Ravi", "CAPITAL", "400.00 CR", "400.00 CR", "Balance sheet"},
                  {"1", "Bank", "BANKS", "1,500.00 DR", "1,500.00 DR", "Balance sheet"},
                  {"1", "Sales", "SALES", "800.00 CR", "0.00", "Profit and loss: begins at zero"},
                  {"1", "Shop", "RENT", "300.00 DR", "0.00", "Profit and loss: begins at zero"},
                  {"1", "Opening Stock", "OPENING STOCK", "", "100.01 DR",
                   "Closing stock of the old year"}}));
  form.click(form.cmdbring);
  EXPECT_EQ(messages(), Texts{"Choose whose capital takes the profit."});
  // Digits in the list are those of the per cent, one partner after the other.
  EXPECT_EQ(form.active(), &form.vsfs);
  form.vsfs.setCurrent(1);
  press(form, "40\r35\r");
  EXPECT_EQ(form.vsfs.cell(1, 2) + '|' + form.vsfs.cell(2, 2), "40|35");
  form.click(form.cmdbring);
  EXPECT_EQ(messages().size(), 1U);
  EXPECT_EQ(form.active(), &form.vsfs);
  form.vsfs.setCurrent(1);
  press(form, "0\r0\r");
  // A third partner, who is new, and a per cent that is none.
  type(form.txtcapital, "Meena");
  form.click(form.cmdcapital);
  EXPECT_EQ(form.active(), &form.txtpercent);
  type(form.txtpercent, "a third");
  form.press(keys::Enter);
  EXPECT_EQ(messages().size(), 1U);
  share(form, "Meena", "33.3333");
  share(form, "Asha", "33.3333");
  EXPECT_EQ(form.lblstate.caption(),
            "The shares of the profit come to 66.6666 per cent. They have to come to 100.");
  share(form, "Ravi", "33.3334");
  EXPECT_EQ(form.lblstate.caption(), "Nothing stands in the way.");
  type(form.txtstock, "Stock of Cloth");
  form.focus(form.vsfl);
  form.click(form.chkzero);
  EXPECT_EQ(value("select count(*) from master"), "1") << "nothing is written before";
  form.click(form.cmdbring);
  EXPECT_EQ(messages(), Texts{"Brought forward into 2008-2009. Lines written: 5."});
  // Of 60,001 paise 20,000.31, 20,000.37 and 20,000.31: the odd one goes to Ravi.
  EXPECT_EQ(year(), (Rows{{"Asha", "CAPITAL", "800", "2"},
                          {"Ravi", "CAPITAL", "600.01", "2"},
                          {"Bank", "BANKS", "1500", "1"},
                          {"Stock of Cloth", "OPENING STOCK", "100.01", "1"},
                          {"Meena", "CAPITAL", "200", "2"}}));
  EXPECT_EQ(home.flexgrid2.current(), 2);
  EXPECT_EQ(context().table, "TAB_2");
  home.click(home.mnuopening);
  EXPECT_EQ(messages(), Texts{"The opening of 2008-2009 agrees with the closing of 2007-2008."});
}

TEST_F(BringForwardFormTest, OffersDifferencesAndLeavesWhatAPersonChanged) {
  addYear("C1", 2008);
  frmbringfwd& first = review();
  share(first, "Asha", "100");
  first.click(first.cmdbring);
  exec("update TAB_2 set amt=5000 where partid=" + std::to_string(ledger("Bank")));
  exec("update " + old_ + " set amt=1501 where partid=" + std::to_string(ledger("Bank")));
  exec("update " + old_ + " set amt=401 where partid=" + std::to_string(ledger("Ravi")));
  messages();
  frmbringfwd& form = review();
  EXPECT_EQ(form.vsfs.cell(1, 2), "100") << "as the last time";
  form.cboshow.choose(form.cboshow.find("Offered"));
  EXPECT_EQ(shown(form.vsfl),
            (Rows{{"1", "Ravi", "CAPITAL", "401.00 CR", "401.00 CR", "400.00 CR", "401.00 CR",
                   "Old year changed", "Balance sheet"},
                  {"", "Bank", "BANKS", "1,501.00 DR", "1,501.00 DR", "5,000.00 DR", "5,000.00 DR",
                   "Differs here", "Balance sheet"}}));
  form.press(keys::Escape);  // nothing was chosen: nothing is asked
  EXPECT_EQ(page(), nullptr);
  frmbringfwd& again = review();
  again.click(again.mnunext);
  again.click(again.mnutake);
  host().statements().failNext("insert into TAB_2", 1);
  // The year was brought to differ by what stands in the bank.
  dialogs.answering = [](const Message&) { return Answer::Yes; };
  const Rows before = books();
  again.click(again.cmdbring);
  EXPECT_EQ(books(), before);
  EXPECT_EQ(again.lblstate.caption().substr(0, 27), "Nothing was brought forward");
  EXPECT_EQ(trapped(), Texts{"frmbringfwd\tCMDBRING_CLICK"});
  again.click(again.cmdbring);
  EXPECT_EQ(value("select amt from TAB_2 where partid=" + std::to_string(ledger("Bank"))), "5001");
  // A statement that fails on the way in leaves the home form with a word of it.
  host().statements().failNext("TRADE_1");
  third& home = choose(&third::mnualter, "C1");
  home.flexgrid2.setCurrent(1);
  home.click(home.mnubringfwd);
  EXPECT_EQ(page(), nullptr);
  EXPECT_EQ(home.lblstatus.caption(), "The closing balances of 2007-2008 could not be read.");
  EXPECT_EQ(trapped(), Texts{"third\tMNUBRINGFWD_CLICK"});
  messages();
}

}  // namespace
}  // namespace quillet::support
