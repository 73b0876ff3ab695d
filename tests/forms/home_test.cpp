// The home form: years, commands, clean-up.
#include "data/year.h"
#include "forms/home_fixture.h"
#include "suite/history/instant.h"

namespace quillet::support {
namespace {

TEST_F(HomeTest, AClientAndAYearOpenTheEditor) {
  addYear("C1", 2007, {{"Asha", "CAPITAL", -5}});
  addYear("C1", 2008, {{"Asha", "CAPITAL", -6}, {"Loan", "CAPITAL", 0.1}, {"Cash", "BANKS", 5.9}});
  exec("insert into JRNL_1 (code_no,VID,VDate) values ('C1',1,'2008-03-31'),('C1',2,'2007-05-01')");
  const std::string changed = "2026-03-31 09:15:00.000001";
  exec("insert into SuiteAct(At,Client,Yr) values('" + changed +
       "','C1','31032008'),('2026-03-30','C1','31032008'),('2026-03-31 10:00','C2','31032009')");
  third& form = home();
  form.click(form.mnualter);
  EXPECT_EQ(form.mode(), "alter");
  press(form, "asha");
  statements();
  form.press(keys::Enter);
  const auto figures = [](const std::string& n, const std::string& table) {
    return "Select " + n +
           ",Count(*),Sum(If(Nid=1,Amt,0)),Sum(If(Nid=2,Amt,0)),(Select Max(VDate) From JRNL_" +
           table + " Where Code_No='C1') From TAB_" + table + " Where Code_No='C1'";
  };
  EXPECT_EQ(statements(),
            (Texts{"select code_no,f_year_dt,s_year_dt,f_yr,s_yr from master where code_no='C1' "
                   "order by s_yr",
                   "select * from master where code_no='C1' ORDER BY s_yr",
                   figures("0", "1") + " Union All " + figures("1", "2")}));
  EXPECT_EQ(shown(form.flexgrid2),
            (Rows{{"01/04/2007", "31/03/2008", "1", "0.00", "5.00", "5.00 Credit",
                   suite::localTime(suite::instantFrom(changed)).substr(0, 16)},
                  {"01/04/2008", "31/03/2009", "3", "6.00", "6.00", "Agrees", ""}}));
  exec("delete from SuiteAct where Hash is null");
  EXPECT_EQ(form.active(), &form.flexgrid2);
  EXPECT_EQ(host().vLstSelClCode(), "C1");
  form.press(keys::Up);
  form.press(keys::Enter);
  EXPECT_EQ(statements().front(),
            "select * from master where code_no='C1' and f_yr='01042007' and s_yr='31032008'");
  auto& editor = static_cast<frmcrtb&>(*practice.forms().ObjCreate());
  EXPECT_TRUE(editor.visible());
  EXPECT_EQ(editor.vsfm.cell(1, 2), "5.00");
  // Another year while the editor is open: it changes over.
  form.press(keys::Down);
  form.doubleClick(form.flexgrid2);
  EXPECT_EQ(editor.vsfm.cell(1, 2), "6.00");
  EXPECT_TRUE(editor.visible());
  // Back in the list it tells what was done meanwhile, and a person goes on where they were.
  form.status("Said before.");
  form.focus(form.cmdchanges);
  editor.show();
  enter(editor, "Cash", "BANKS", "50", "D");
  editor.close();
  EXPECT_EQ(form.flexgrid2.cell(2, 5), "50.00 Debit");
  EXPECT_EQ(form.flexgrid2.current(), 2);
  EXPECT_EQ(form.active(), &form.cmdchanges);
  EXPECT_EQ(form.lblstatus.caption(), "Said before.");
}

// The context's client and year, and the form's message.
TEST_F(HomeTest, AnotherClientClearsTheYear) {
  addYear("C1", 2007);
  addYear("C1", 2008);
  addYear("C2", 2008);
  const auto inWork = [&] {
    const Context& c = context();
    return c.clientCode + ' ' + c.table + ' ' + c.firstDate + ' ' + c.secondDate;
  };
  const char* opened = "C1 TAB_2 01042008 31032009";
  third& form = choose(&third::mnualter);
  form.press(keys::Enter);
  EXPECT_EQ(inWork(), opened);
  host().refuse("CheckClpass");
  choose(&third::mnualter, 2);
  EXPECT_EQ(inWork(), opened);
  choose(&third::mnualter);
  EXPECT_EQ(inWork(), opened) << "no other client";
  choose(&third::mnualter, 2);
  EXPECT_EQ(inWork(), "C2   ");
  // A year that may not be opened is not the one in work either.
  choose(&third::mnualter);
  form.press(keys::Enter);
  exec("update master set d_of_s='x' where code_no='C1' and count=1");
  form.press(keys::Up);
  host().refuse("CheckPass");
  form.press(keys::Enter);
  EXPECT_EQ(inWork(), "C1   ");
  // Nor is one without a table, and that is said.
  exec("update master set d_of_s=null,tbl_nm='' where code_no='C1' and count=1");
  form.press(keys::Enter);
  EXPECT_EQ(inWork(), "C1   ");
  EXPECT_EQ(form.lblstatus.caption(), "No table is named for the trial balance of 2007-2008.");
  // The host goes on to another client: the list stays what it is.
  practice.forms().VClCode("C2");
  form.press(keys::Down);
  form.press(keys::Enter);
  EXPECT_EQ(inWork(), opened);
  practice.forms().ObjCreate()->close();
  // Where the years cannot be read nothing of another client's is left, and that is said.
  for (const bool failing : {true, false}) {
    if (failing) host().statements().failNext("from master");
    choose(&third::mnualter, 2);
    EXPECT_EQ(form.flexgrid2.rows(), failing ? 0 : 1);
    EXPECT_EQ(form.lblstatus.caption(), failing ? "The years could not be read." : "");
  }
}

TEST_F(HomeTest, AYearThatIsGoneIsSaidAndTheListReadAnew) {
  for (Button third::*command :
       {&third::mnualter, &third::mnudelete, &third::mnualpha, &third::mnusumm}) {
    exec("delete from master");
    addYear("C1", 2007);
    addYear("C1", 2008);
    third& form = choose(command);
    SCOPED_TRACE(form.mode());
    select("C1", 2008);
    exec("delete from master where f_yr='01042008'");
    if (form.mode() == "delete") yes();
    form.press(keys::Enter);
    EXPECT_EQ(messages().back(),
              "The Trial Balance of 'Asha Traders' for F.Y. 2008-2009 does not exist any more.");
    EXPECT_EQ(form.flexgrid2.rows(), 1);
    EXPECT_EQ(form.flexgrid2.cell(1, 0), "01/04/2007");
    EXPECT_EQ(form.flexgrid2.current(), 1);
    EXPECT_EQ(context().table, "");
    EXPECT_EQ(context().openForms.active(), &form);
  }
}

// --- what is said in the status line
// --------------------------------------------------------------

TEST_F(HomeTest, WhatWasDoneIsSaidUntilTheNextCommandOrClient) {
  addYear("C1", 2008);
  third& form = home();
  const std::function<void()> ways[] = {[&] { form.click(form.mnucreate); },
                                        [&] { form.doubleClick(form.ClGrd1); },
                                        [&] {
                                          form.click(form.cmdledmas);
                                          context().openForms.active()->close();
                                        }};
  for (const auto& way : ways) {
    form.click(form.mnualter);
    form.click(form.mnurefresh);
    EXPECT_NE(form.lblstatus.caption(), "");
    way();
    EXPECT_EQ(form.lblstatus.caption(), "");
  }
  messages();
}

TEST_F(HomeTest, WhatFailedIsSaidUntilItHolds) {
  addYear("C1", 2008, {{"Asha", "CAPITAL", -6}});
  third& form = home();
  const auto years = [&] { choose(&third::mnualpha); };
  const auto alter = [&] { form.click(form.mnualter); };
  const char* const clients = "The clients could not be read.";
  const struct {
    const char* statement;
    std::function<void()> before, deed;
    const char *place, *said;
  } cases[] = {
      {"MAST_PART", [] {}, [&] { form.click(form.mnurefresh); }, "MNUREFRESH_CLICK",
       "The ledger master was not looked through to its end."},
      {"TempClTbl", years, [&] { form.press(keys::Escape); }, "FORM_KEYDOWN", clients},
      {"TempClTbl", alter, [&] { form.activate(); }, "FORM_ACTIVATE", clients},
      {"mast_allgrp", years, [&] { form.press(keys::Enter); }, "FLEXGRID2_DBLCLICK",
       "The trial balance of 2008-2009 could not be printed."},
      {"from master", alter, [&] { form.doubleClick(form.ClGrd1); }, "CLGRD1_DBLCLICK",
       "The years could not be read."},
      {"Count(*)", alter, [&] { form.doubleClick(form.ClGrd1); }, "YEARFIGURES",
       "What the years hold could not be read."},
  };
  for (const auto& c : cases) {
    c.before();
    host().statements().failNext(c.statement);
    c.deed();
    EXPECT_EQ(form.lblstatus.caption(), c.said);
    EXPECT_EQ(log(), Texts{std::string("2009-06-15 12:00:00\t1105\tA statement with \"") +
                           c.statement + "\" was made to fail.\tMariaDB\tthird\t" + c.place});
    EXPECT_FALSE(frontEnd.busy);
    if (form.ClGrd1.shown()) form.activate();
    if (c.said == clients) {
      EXPECT_EQ(form.lblstatus.caption(), "");
    }
  }
}

// --- the other commands -------------------------------------------------------------------------

TEST_F(HomeTest, RefreshKeepsOneNameOfEachLedger) {
  exec(
      "insert into mast_part (partid,particular) values (1,'Cash'),(1,'Cash at o''Brien\\\\'),"
      "(1,'Kasse'),(2,'Bank')");
  third& form = home();
  statements();
  form.click(form.mnurefresh);
  EXPECT_EQ(form.lblstatus.caption(), "2 second names removed from the ledger master.");
  EXPECT_EQ(value("select count(*) from mast_part"), "2");
  const auto sent = statements();
  EXPECT_EQ(sent[0],
            "SELECT PARTID,PARTICULAR, count(partid) as cntr FROM MAST_PART group by partid");
  EXPECT_EQ(sent[2].substr(0, 58), "Delete from MAST_PART where PARTID=1 and PARTICULAR<>'Cash");
  EXPECT_EQ(sent[3], "flush tables");
  const std::string kept = value("select lower(particular) from mast_part where partid=1");
  form.click(form.mnurefresh);
  EXPECT_EQ(form.lblstatus.caption(), "The ledger master holds no second names.");
  // Rows that the database takes for equal, and a name beside none. What has no name at all in one
  // of its rows stays as it is and is said.
  exec(
      "insert into mast_part (partid,particular) values (1,'Cash'),(1,'cash'),(1,'CASH '),(3,''),"
      "(3,'Rent'),(3,''),(4,'Loan'),(4,null)");
  form.click(form.mnurefresh);
  EXPECT_EQ(form.lblstatus.caption(),
            "5 second names removed from the ledger master. 1 ledger still in it with several "
            "rows.");
  EXPECT_EQ(rows("select partid,lower(trim(particular)) from mast_part order by partid,particular"),
            (Rows{{"1", kept}, {"2", "bank"}, {"3", "rent"}, {"4", "NULL"}, {"4", "loan"}}));
  EXPECT_TRUE(messages().empty());
}

// Whether the clean-up went through or not, an editor left open behind proposes what is left.
TEST_F(HomeTest, RefreshReachesAnOpenEditor) {
  addYear("C1", 2008, {{"Bank", "BANKS", 5}});
  third& form = home();
  frmcrtb& editor = open("C1", 2008);
  for (const bool failing : {true, false}) {
    exec("insert into mast_part (partid,particular) values (1,'Bank zwo'),(1,'Banque')");
    editor.close();
    editor.show();
    EXPECT_EQ(editor.vsfp.rows(), 3);
    if (failing) host().statements().failNext("flush tables");
    form.click(form.mnurefresh);
    EXPECT_EQ(log().size(), failing ? 1U : 0U);
    EXPECT_EQ(editor.vsfp.rows(), 1);
  }
}

TEST_F(HomeTest, HelpAndBack) {
  third& form = home();
  form.click(form.mnuhelp);
  EXPECT_EQ(frontEnd.topics, (Texts{"2-2"}));
  form.click(form.mnuexit);
  EXPECT_FALSE(form.visible());
}

}  // namespace
}  // namespace quillet::support
