// Locked years: nothing changes their figures, by whatever command, statement or station.
#include <gtest/gtest.h>

#include <functional>

#include "suite/check/books_check.h"
#include "suite/history/taking_back.h"
#include "suite/passwords.h"
#include "years/year_locks_fixture.h"

namespace quillet::support {
namespace {

// Whatever sends it: an act that reaches a locked year is taken back as a whole.
TEST_F(YearLocksTest, NoStatementReachesALockedYear) {
  exec("insert into RmSchSetup(Code_No,FYr) values('C1',2009)");
  exec("insert into PRFA(Code_No,RCOUNT) values('C1',1)");
  group("SPARE", 22);
  lock();
  const struct {
    const char* sql;
    bool passes;
  } acts[] = {
      {"insert into TAB_1 values(9,'C1',1,1,5,1)", false},
      {"insert into TAB_1 values(9,'C2',1,1,5,1),(9,'c1',1,1,5,1)", false},
      {"update TAB_1 set amt=amt+1 where code_no='C1'", false},
      {"update tab_1 set partid=77", false},
      {"delete from TAB_1 where code_no='C1'", false},
      {"delete from JRNL_1 where VID=1", false},
      {"update TRADE_1 set amt=8", false},
      {"delete from RMGRP_1", false},
      {"insert into SHARE_1(code_no) values('C1')", false},
      {"delete from RmSchSetup where Code_No='C1'", false},
      {"insert into DeferTax_Bal(CODE_NO,FYear) values('C1',2009)", false},
      {"update PRFA set details='x'", false},
      {"update master set annex='x' where code_no='C1' and count=1", false},
      {"delete from master", false},
      {"delete from SuiteYearLock", false},
      {"update TAB_1 set code_no='C1' where code_no='C2'", false},
      {"update TAB_1 set amt=amt,code_no='c1'", false},
      {"update master set code_no='C1',s_yr='31032009' where code_no='C2'", false},
      {"insert into TAB_1(row_id,srno,code_no,partid,allid,amt,nid) values(-1,9,'C1',1,1,5,1)",
       false},
      {"update Mast_Part p join TAB_1 t on t.partid=p.PartId set t.amt=t.amt+1", false},
      {"delete t from Mast_Part p join TAB_1 t on t.partid=p.PartId", false},
      {"/* all */ delete from `TAB_1`", false},
      {"execute immediate 'delete from TAB_1'", false},
      {"drop table TAB_1", false},
      {"truncate table tab_1", false},
      {"alter table `JRNL_1` drop column VNar", false},
      {"rename table TRADE_2 to TRADE_3, TRADE_1 to TRADE_2", false},
      {"create or replace table RMGRP_1(a int)", false},
      {"drop table if exists Mast_Part", false},
      {"drop database if exists none", false},
      {"execute immediate 'drop table TAB_1'", false},
      {"drop table if exists TAB_77", true},
      {"create temporary table if not exists TAB_78(a int)", true},
      {"update Mast_AllGrp set GID=2 where ALLGRP='RENT'", false},
      {"update Mast_AllGrp set GID=2 where ALLGRP='STOCK'", false},
      {"update Mast_AllGrp set GID=2 where ALLGRP='SPARE'", true},
      {"update Mast_AllGrp set ALLGRP='Rents' where ALLGRP='RENT'", true},
      {"insert into TAB_1 values(9,'C2',1,1,5,1)", true},
      {"update TAB_1 set amt=amt+1 where code_no='C2'", true},
      {"insert into TAB_2 values(9,'C1',1,1,5,1)", true},
      {"update Mast_Part set Particular='Renamed' where Particular='Cash'", true},
      {"insert into DeferTax_Bal(CODE_NO,FYear) values('C1',2010)", true},
      {"update master set annex='x' where code_no='C1' and count=2", true},
  };
  for (const auto& [sql, passes] : acts) {
    const auto state = [&] {
      Rows all = books();
      for (const char* table :
           {"RmSchSetup", "PRFA", "DeferTax_Bal", "SHARE_1", "SuiteYearLock", "Mast_AllGrp"}) {
        for (auto& row : rows(std::string("select * from ") + table)) all.push_back(row);
      }
      return all;
    };
    const Rows before = state();
    act(sql);
    const Texts told = notices();
    EXPECT_EQ(told.empty(), passes) << sql;
    if (!passes) {
      EXPECT_EQ(state(), before) << sql;
    }
    if (!told.empty() && !names(told[0])) {
      EXPECT_NE(std::string(sql).find("SuiteYearLock"), std::string::npos) << told[0];
    }
    log();
  }
  // Outside of acts the statement itself fails. What is put back within one act is no change.
  EXPECT_THROW(practice.environment().unit().execute("delete from TAB_1"), RunTimeError);
  {
    const Act running(context().openForms.acts);
    suite::UnitOfWork& unit = practice.environment().unit();
    unit.execute("insert into TAB_1 values(9,'C1',1,1,5,1)");
    unit.execute("delete from TAB_1 where code_no='C1' and srno=9");
  }
  EXPECT_EQ(notices(), Texts());
  {
    const Act running(context().openForms.acts);
    suite::UnitOfWork& unit = practice.environment().unit();
    unit.execute("delete from TAB_1 where code_no='C1'");
    EXPECT_THROW(unit.execute("create table SomeTable(a int)"), RunTimeError) << "it would commit";
  }
  EXPECT_EQ(notices().size(), 1U);
  EXPECT_NE(value("select count(*) from TAB_1 where code_no='C1'"), "0");
  {
    const Act running(context().openForms.acts);
    locks().unlock("C1", "31032009", "Late invoice");
    practice.environment().unit().execute("delete from TAB_1 where code_no='C1'");
  }
  EXPECT_EQ(notices().size(), 1U) << "unlocking and changing is not one act";
  EXPECT_EQ(locked().size(), 1U);
  log();
}

TEST_F(YearLocksTest, LockingAsksForAReasonAndUnlockingForTheRight) {
  suite::Passwords::set(practice.database(), suite::PasswordKind::right, "UnlockYear", "key");
  frmlock& first = open(&third::mnulockyear);
  first.press(keys::Enter);
  EXPECT_EQ(messages().back(), "Please type the reason why the year is locked.");
  PracticeTest::type(first.txtreason, "Audited");
  first.press(keys::Enter);
  EXPECT_EQ(locked(), (Rows{{"C1", "31032009", "Audited"}}));
  EXPECT_EQ(home().lblstatus.caption(), "The year 2008-2009 is locked.");
  home().click(home().mnulockyear);
  EXPECT_NE(home().lblstatus.caption().find("is locked already: Audited"), std::string::npos);

  frmlock& second = open(&third::mnuunlockyear);
  PracticeTest::type(second.txtreason, "Late invoice");
  host().refuse("CheckPass");
  second.press(keys::Enter);
  EXPECT_EQ(locked().size(), 1U);
  dialogs.queuePassword("key");
  second.press(keys::Enter);
  EXPECT_EQ(locked(), Rows());
  EXPECT_EQ(rows("select Client,Yr,Reason from SuiteAct where Tables='suiteyearlock' order by At"),
            (Rows{{"C1", "31032009", "Audited"}, {"C1", "31032009", "Late invoice"}}));
  act("delete from TAB_1 where code_no='C1'");
  EXPECT_EQ(notices(), Texts());
  exec("delete from SuitePassword");
}

// Merging and replacing in the masters needs the right, or nothing of it is done.
TEST_F(YearLocksTest, TheMastersNameTheLockedYearsAndNeedTheRight) {
  group("WAGES", 22);
  lock();
  frmtbledmas ledgers(context());
  frmgrpmas groups(context());
  const struct {
    const char* deed;
    std::function<void()> run;
  } deeds[] = {
      {"The replacement",
       [&] {
         ledgers.show();
         ledgers.Option1[2].clicked();
         ledgers.vsf.setCurrent(ledgers.vsf.find(0, "Asha"));
         ledgers.click(ledgers.cmdlink);
         ledgers.vsf.tick(ledgers.vsf.find(0, "Cash"), true);
         ledgers.click(ledgers.cmdlink);
         ledgers.close();
       }},
      {"The move to another primary group",
       [&] {
         groups.show();
         groups.vsf.setCurrent(groups.vsf.find(0, "RENT"));
         groups.click(groups.cmdmodify);
         groups.Combo1.choose(groups.Combo1.find("Expenses"));
         groups.click(groups.cmdupdate);
         if (groups.cmdcancel.enabled()) groups.click(groups.cmdcancel);
         groups.close();
       }},
      {"The merge",
       [&] {
         groups.show();
         groups.click(groups.cmdMerge);
         groups.vsM.tick(groups.vsM.find(0, "RENT"), true);
         groups.vsMW.setCurrent(groups.vsMW.find(0, "WAGES"));
         groups.click(groups.cmdMergeGroup);
         groups.click(groups.cmdMergeBack);
         groups.close();
       }},
  };
  for (const auto& [deed, run] : deeds) {
    std::string asked;
    const auto answer = [&](bool anyway) {
      dialogs.answering = [&asked, anyway](const Message& message) {
        const bool locked = message.text.find("that are locked") != std::string::npos;
        if (locked) asked = message.text;
        return !locked || anyway ? Answer::Yes : Answer::No;
      };
    };
    const Rows before = books();
    for (const bool anyway : {false, true}) {
      answer(anyway);
      if (anyway) host().refuse("CheckPass");
      run();
      EXPECT_EQ(asked.find(deed), 0U) << asked;
      EXPECT_NE(asked.find("Asha Traders (C1), 01/04/2008 - 31/03/2009: Audited"),
                std::string::npos)
          << asked;
      EXPECT_EQ(books(), before) << deed;
    }
    run();
    EXPECT_NE(books(), before) << deed;
    EXPECT_EQ(value("select Reason from SuiteAct order by At desc limit 1").find(deed), 0U);
    EXPECT_EQ(notices(), Texts()) << deed;
    EXPECT_EQ(log(), Texts()) << deed;
    dialogs.answering = {};
    messages();
  }
  EXPECT_EQ(locked().size(), 1U);
}

TEST_F(YearLocksTest, NothingIsTakenBackInALockedYear) {
  select("C1", 2008);
  suite::TakingBack& takingBack = practice.environment().takingBack();
  const auto newest = [&] { return takingBack.acts("C1", 1).at(0).row; };
  const Texts ownCommands{"Lock and unlock by their own commands."};
  const std::string id = value("select max(row_id) from TAB_1 where code_no='C1'");
  act("delete from TAB_1 where code_no='C1'");
  const suite::ActRow deletion = newest();
  act("update Mast_AllGrp set GID=2 where ALLGRP='STOCK'");
  const suite::ActRow move = newest();
  lock();
  EXPECT_EQ(takingBack.conflicts(takingBack.inverseOf(newest())), ownCommands);
  const Rows before = books();
  for (const suite::ActRow& each : {deletion, move}) {
    const Act running(context().openForms.acts);
    const Texts conflicts = takingBack.takeBack(takingBack.inverseOf(each));
    ASSERT_EQ(conflicts.size(), 1U) << each.tables;
    EXPECT_TRUE(names(conflicts[0])) << conflicts[0];
  }
  EXPECT_EQ(notices(), Texts());
  // What stands again has its old id, and is held to the lock all the same.
  {
    const Act running(context().openForms.acts);
    practice.environment().actLog().note({.takesBack = deletion.at});
    practice.environment().unit().execute(
        "insert into TAB_1(row_id,srno,code_no,partid,allid,amt,nid) values(" + id +
        ",1,'C1',1,1,6,1)");
  }
  EXPECT_EQ(notices().size(), 1U);
  EXPECT_EQ(books(), before);
  log();

  locks().unlock("C1", "31032009", "Late invoice");
  EXPECT_EQ(takingBack.conflicts(takingBack.inverseOf(newest())), ownCommands);
  ASSERT_TRUE(takingBack.last("C1", "31032009"));
  EXPECT_EQ(takingBack.last("C1", "31032009")->at, deletion.at) << "the locks are passed over";
  EXPECT_EQ(takingBack.conflicts(takingBack.inverseOf(deletion)), Texts());
}

TEST_F(YearLocksTest, NothingIsBroughtForwardOrMendedInALockedYear) {
  addYear("C1", 2007, {{"Asha", "CAPITAL", -6}, {"Cash", "RENT", 6}});
  exec("update TAB_1 set srno=5 where code_no='C1'");
  lock();
  const Rows before = books();
  third& form = choose(&third::mnualter, "C1");
  form.flexgrid2.setCurrent(form.flexgrid2.rows());
  for (int row = 1; row <= form.flexgrid2.rows(); ++row) {
    if (shown(form.flexgrid2)[row - 1][0].find("2007") != std::string::npos) {
      form.flexgrid2.setCurrent(row);
    }
  }
  form.click(form.mnubringfwd);
  const Texts said = messages();
  ASSERT_FALSE(said.empty());
  EXPECT_TRUE(names(said.back())) << said.back();
  EXPECT_EQ(context().openForms.active(), &form);

  const auto mend = [&] {
    return suite::check::mendBooks(practice, [] { return std::string("backup"); });
  };
  const Texts failed = mend().failed;
  ASSERT_EQ(failed.size(), 1U);
  EXPECT_TRUE(names(failed[0])) << failed[0];
  EXPECT_EQ(books(), before);
  locks().unlock("C1", "31032009", "Late invoice");
  EXPECT_EQ(mend().failed, Texts());
  EXPECT_NE(books(), before);
  EXPECT_EQ(value("select Command from SuiteAct order by At desc limit 1"), "Mend the Books");
}

}  // namespace
}  // namespace quillet::support
