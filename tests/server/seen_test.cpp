// What another station has changed since a form showed it is not written over unseen.
#include "books/closing_stock.h"
#include "deletion/frmdelwhatinTB.h"
#include "masters/frmgrpRM.h"
#include "masters/frmgrpmas.h"
#include "masters/frmtbledmas.h"
#include "server/stations_fixture.h"
#include "suite/client_form.h"
#include "suite/stock_form.h"

namespace quillet::support {
namespace {

class SeenTest : public StationsTest {
 protected:
  SeenTest() : StationsTest("S1") {}

  using Steps = std::function<void()>;
  static constexpr const char* lastDate = "31032009";

  // Changed at Ben's desk while Anna's form shows it.
  struct Case {
    const char* what;
    Form& form;
    Steps begin;   // and shows what is there
    Steps change;  // in the fields
    Steps elsewhere;
    Steps save;
    std::function<std::string()> shown;
    std::string stored;  // what asks for it
    std::string theirs, own;
  };
  static void check(const Case& each) {
    SCOPED_TRACE(each.what);
    each.begin();
    each.change();
    each.elsewhere();
    each.save();
    const auto told = anna().dialogs.takeMessages();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told[0].message.text.find("Somebody else has"), std::string::npos)
        << told[0].message.text;
    EXPECT_EQ(each.shown(), each.theirs);
    EXPECT_EQ(anna().value(each.stored), each.theirs);
    // What has been seen is changed.
    each.change();
    each.save();
    EXPECT_TRUE(anna().dialogs.takeMessages().empty());
    EXPECT_EQ(anna().value(each.stored), each.own);
    EXPECT_TRUE(anna().notices().empty());
  }
  static Steps change(const std::string& sql) {
    return [sql] { ben().change(sql); };
  }
  static void pick(Grid& grid, const std::string& text) {
    ASSERT_GT(grid.find(0, text), 0) << text;
    grid.setCurrent(grid.find(0, text));
  }
  static void leave(Form& form) {
    anna().dialogs.queueAnswer(Answer::Yes);
    form.close();
    anna().dialogs.clear();
  }
};

TEST_F(SeenTest, LedgersGroupsAndMappings) {
  anna().change("insert into Mast_Part values(801,'Old Name')");
  anna().change("insert into Mast_AllGrp(ALLID,GID,ALLGRP,UserGrp) values(901,22,'Old Group','Y')");
  frmtbledmas ledgers(anna().context());
  ledgers.showModal();
  check({.what = "a ledger",
         .form = ledgers,
         .begin =
             [&] {
               pick(ledgers.vsf, "Old Name");
               ledgers.click(ledgers.cmdmodify);
             },
         .change = [&] { Station::type(ledgers.VTxt1, "Name by Anna"); },
         .elsewhere = change("update Mast_Part set Particular='Name by Ben' where PartId=801"),
         .save = [&] { ledgers.click(ledgers.cmdupdate); },
         .shown = [&] { return ledgers.VTxt1.text(); },
         .stored = "select Particular from Mast_Part where PartId=801",
         .theirs = "Name by Ben",
         .own = "NAME BY ANNA"});
  // What is about to be replaced goes by the names that it has.
  pick(ledgers.vsf, "NAME BY ANNA");
  ledgers.click(ledgers.cmdlink);
  ben().change("update Mast_Part set Particular='Target' where PartId=801");
  anna().practice().environment().lookAround();
  EXPECT_NE(ledgers.lbllink.caption().find("'Target'"), std::string::npos);
  leave(ledgers);

  frmgrpmas groups(anna().context());
  groups.showModal();
  check({.what = "a group",
         .form = groups,
         .begin =
             [&] {
               pick(groups.vsf, "Old Group");
               groups.click(groups.cmdmodify);
             },
         .change = [&] { Station::type(groups.Text1, "Group by Anna"); },
         .elsewhere = change("update Mast_AllGrp set GID=21 where ALLID=901"),
         .save = [&] { groups.click(groups.cmdupdate); },
         .shown = [&] { return std::to_string(groups.Combo1.chosenData()); },
         .stored = "select GID from Mast_AllGrp where ALLID=901",
         .theirs = "21",
         .own = "21"});
  EXPECT_EQ(anna().value("select ALLGRP from Mast_AllGrp where ALLID=901"), "Group by Anna");
  groups.click(groups.cmdMap);
  const long head = [&] {
    groups.cboSVI.choose(4);
    return groups.cboSVI.chosenData();
  }();
  check({.what = "a mapping",
         .form = groups,
         .begin = [&] { pick(groups.vsMap, "Group by Anna"); },
         .change = [&] { groups.cboSVI.choose(4); },
         .elsewhere = change("insert into AllGrp_Map values('#?#COMMON#?#',901,7777,'Heads',0,'')"),
         .save = [&] { groups.click(groups.cmdMapSet); },
         .shown =
             [&] {
               return groups.vsMap.cell(groups.vsMap.current(), 2) ==
                              "Heads (no such "
                              "head)"
                          ? "7777"
                          : groups.vsMap.cell(groups.vsMap.current(), 2);
             },
         .stored = "select SVIMapId from AllGrp_Map where AllId=901",
         .theirs = "7777",
         .own = std::to_string(head)});
  leave(groups);
}

TEST_F(SeenTest, RawMaterials) {
  const std::string group = anna().value("select min(ALLID) from Mast_AllGrp where GID=18");
  anna().change("insert into RMGRP_2 values('S1',1,1," + group + ",0,0,0,1)");
  frmgrpRM form(anna().context());
  form.INITDATA({"S1", "Client S1", "TAB_2", "01042008", lastDate});
  form.showModal();
  check({.what = "an item",
         .form = form,
         .begin =
             [&] {
               form.vsfM.setCurrent(1);
               form.click(form.cmdmodifyM);
             },
         .change = [&] { form.cbohead.choose(3); },
         .elsewhere =
             [] {
               takeOver("S1", lastDate, change("update RMGRP_2 set GrpSr=2 where Code_No='S1'"));
             },
         .save = [&] { form.click(form.cmdupdateM); },
         .shown = [&] { return std::to_string(form.cbohead.chosenData()); },
         .stored = "select GrpSr from RMGRP_2 where Code_No='S1'",
         .theirs = "2",
         .own = "3"});
  // An order that is being made is not lost over what others do.
  anna().change("insert into RMGRP_2 values('S1',2,2,0,0,0,0,2)");
  form.click(form.cmdgrpM);
  form.click(form.cmdbackG);
  form.click(form.cmdsortorder);
  form.vsfM.setCurrent(2);
  form.click(form.cmdup);
  ben().change("insert into Mast_Part values(802,'Meanwhile')");
  anna().dialogs.queueAnswer(Answer::Yes);
  form.click(form.cmdsortorder);
  EXPECT_EQ(anna().value("select group_concat(SrNo order by GrpOrder) from RMGRP_2 where "
                         "Code_No='S1'"),
            "2,1");
  anna().dialogs.takeMessages();

  form.click(form.cmdgrpM);
  check({.what = "a head",
         .form = form,
         .begin =
             [&] {
               pick(form.vsfG, "FINISHED GOODS");
               form.click(form.cmdmodifyG);
             },
         .change = [&] { Station::type(form.txthead, "By Anna"); },
         .elsewhere = change("update RawMatGrpM set GrpHead='By Ben' where GrpId=2"),
         .save = [&] { form.click(form.cmdupdateG); },
         .shown = [&] { return form.txthead.text(); },
         .stored = "select GrpHead from RawMatGrpM where GrpId=2",
         .theirs = "By Ben",
         .own = "By Anna"});
  leave(form);
}

TEST_F(SeenTest, ClientsAndStocks) {
  suite::SystemClock clock;
  suite::frmClient client(anna().context().openForms, anna().unit(), anna().dialogs, clock,
                          [] { return tableNumbers; });
  check({.what = "a client",
         .form = client,
         .begin = [&] { client.alter("S1", {}); },
         .change = [&] { Station::type(client.txtfather, "Anna's"); },
         .elsewhere = change("update Main_Info1 set address='Ben Street' where code_no='S1'"),
         .save = [&] { client.click(client.cmdsave); },
         .shown = [&] { return client.txtaddress.text(); },
         .stored = "select address from Main_Info1 where code_no='S1'",
         .theirs = "Ben Street",
         .own = "Ben Street"});
  EXPECT_EQ(anna().value("select father from Main_Info1 where code_no='S1'"), "Anna's");

  anna().change(
      "insert into TRADE_2(code_no,partid,allid,amt) select 'S1',min(p.PartId),"
      "min(g.ALLID),100 from Mast_Part p,Mast_AllGrp g where g.GID=7");
  suite::frmTrade stock(anna().context().openForms, anna().dialogs, clock,
                        anna().practice().environment().yearLocks());
  stock.LoadData(*anna().context().host, "S1", "TRADE_2");
  stock.show();
  const Steps begin = [&] {
    stock.vsf.setCurrent(1);
    stock.doubleClick(stock.vsf);
  };
  check(
      {.what = "a closing stock",
       .form = stock,
       .begin = begin,
       .change =
           [&] {
             if (stock.txtpart.text().empty()) begin();
             Station::type(stock.txtamount, "150");
           },
       .elsewhere =
           [] { takeOver("S1", lastDate, change("update TRADE_2 set amt=70 where code_no='S1'")); },
       .save = [&] { stock.press(keys::Enter); },
       .shown = [&] { return stock.vsf.cell(1, 2).substr(0, 2); },
       .stored = "select round(amt) from TRADE_2 where code_no='S1'",
       .theirs = "70",
       .own = "150"});
  stock.close();
}

TEST_F(SeenTest, AVoucherThatIsBeingModified) {
  anna().open("S1", 2008);
  frmjrnl& journal = anna().openJournal();
  const auto stored = [] { return anna().value("select count(*) from JRNL_2 where code_no='S1'"); };
  const auto pass = [&] {
    anna().pass(journal, 2);
    journal.click(journal.cmdupdate);
    EXPECT_EQ(stored(), "2");
  };
  pass();
  journal.focus(journal.vsf);
  journal.vsf.setCurrent(1);
  journal.press(keys::Enter);
  ASSERT_TRUE(journal.Frame2.visible());
  takeOver("S1", lastDate, change("delete from JRNL_2 where code_no='S1'"));
  anna().dialogs.takeMessages();
  journal.click(journal.cmdupdate);
  const auto told = anna().dialogs.takeMessages();
  ASSERT_EQ(told.size(), 1U);
  EXPECT_NE(told[0].message.text.find("Another station had the year"), std::string::npos);
  EXPECT_EQ(stored(), "0");
  EXPECT_TRUE(journal.Frame1.visible());
  EXPECT_EQ(journal.vsf.rows(), 0);
  EXPECT_EQ(journal.lbllock.caption(), "");
  // The next deed is done.
  pass();
  journal.close();
}

TEST_F(SeenTest, AYearThatIsBeingDeleted) {
  anna().addYear("D1", 2009);
  frmdelwhatinTB form(ben().context());
  const YearKeys keys{"01042009", "31032010"};
  ASSERT_TRUE(form.INITDATA(
      "delete", *Registry(*ben().context().host).year("D1", keys, YearSelect::home), "Client D1"));
  form.showModal();
  form.click(form.optMain[0]);
  // Its table is another year's by now.
  anna().change("update master set f_yr='01042007',s_yr='31032008' where code_no='D1'");
  anna().open("D1", 2007);
  anna().change(
      "insert into TAB_3(srno,code_no,partid,allid,amt,nid) select 1,'D1',min(p.PartId),"
      "min(g.ALLID),7,1 from Mast_Part p,Mast_AllGrp g");
  anna().leave();
  ben().dialogs.answering = [](const Message&) { return Answer::Yes; };
  form.click(form.cmddelete);
  EXPECT_EQ(anna().value("select count(*) from TAB_3 where code_no='D1'"), "1");
  EXPECT_FALSE(form.visible());
  EXPECT_EQ(ben().notices().size(), 1U);
}

}  // namespace
}  // namespace quillet::support
