// Acts are logged, and taken back from what the server keeps.
#include "suite/history/taking_back.h"

#include <gtest/gtest.h>

#include <fstream>

#include "suite/check/act_log_rules.h"
#include "suite/history/act_inverse.h"
#include "suite/history/pruning.h"
#include "support/practice.h"

namespace quillet::support {
namespace {

using suite::ActRow;
using suite::Instant;

class TakingBackTest : public PracticeTest {
 protected:
  TakingBackTest() {
    addYear("C1", 2008, {{"Cash", "BANKS", 100}, {"Rent", "RENT", -40}});
    select("C1", 2008);
  }

  // One act of those statements; its row in the log.
  ActRow act(const Texts& statements) {
    {
      const Act running(context().openForms.acts, [] { return ActName{"A Form", "Save"}; });
      for (const std::string& sql : statements) practice.environment().unit().execute(sql);
    }
    return lastAct();
  }
  ActRow lastAct() {
    const RecordsetPtr rows = practice.database().query(std::string("select ") + ActRow::columns +
                                                        " from SuiteAct order by At desc limit 1");
    return ActRow::from(*rows);
  }
  suite::TakingBack& takingBack() { return practice.environment().takingBack(); }
  Texts takeBack(const ActRow& which) {
    const Act running(context().openForms.acts);
    return takingBack().takeBack(takingBack().inverseOf(which));
  }
  std::string lastToTakeBack() {
    const auto last = takingBack().last("C1", "31032009");
    return last ? suite::wordsFor(*last) : "";
  }
  Rows lines(const std::string& client = "C1", const std::string& table = "TAB_1") {
    return rows("select srno,partid,amt,nid from " + table + " where code_no='" + client +
                "' order by srno");
  }
  static std::string line(int srno, const std::string& rest, const std::string& table = "TAB_1") {
    return "insert into " + table + " values(" + std::to_string(srno) + ",'C1'," + rest + ")";
  }
  const Rows before_{{"1", "1", "100", "1"}, {"2", "2", "40", "2"}};
};

TEST_F(TakingBackTest, AnActIsLoggedAndTakenBackAndForth) {
  const ActRow altered = act(
      {"delete from TAB_1 where code_no='C1' and srno=1", line(3, "1,1,250,1"), "flush tables"});
  EXPECT_EQ(altered.form + '|' + altered.command + '|' + altered.client + '|' + altered.secondDate +
                '|' + altered.tables,
            "A Form|Save|C1|31032009|tab_1");
  EXPECT_FALSE(altered.person.empty() || altered.station.empty());
  const Rows after = lines();
  EXPECT_TRUE(takeBack(altered).empty());
  EXPECT_EQ(lines(), before_);
  const ActRow back = lastAct();
  EXPECT_EQ(back.takesBack, altered.at);
  EXPECT_EQ(back.hash, back.hashAfter(altered.hash)) << "the hashes are a chain";
  EXPECT_EQ(lastToTakeBack(), "");
  EXPECT_TRUE(takeBack(back).empty());
  EXPECT_EQ(lines(), after) << "what was taken back can be brought back";
  EXPECT_EQ(lastToTakeBack(), suite::wordsFor(altered));
}

TEST_F(TakingBackTest, WhatLaterActsHaveDoneStandsInTheWay) {
  const ActRow first =
      act({"delete from TAB_1 where code_no='C1' and srno=1", line(3, "1,1,250,1")});
  const ActRow second =
      act({"delete from TAB_1 where code_no='C1' and srno=3", line(4, "1,1,300,1")});
  const ActRow third = act({"delete from TAB_1 where code_no='C1' and srno=2"});
  const Rows stood = lines();
  const Texts conflicts = takeBack(first);
  ASSERT_EQ(conflicts.size(), 1U) << ::testing::PrintToString(conflicts);
  EXPECT_TRUE(conflicts[0].starts_with("The line of Cash under BANKS (client C1) was changed"))
      << conflicts[0];
  EXPECT_EQ(lines(), stood);
  EXPECT_EQ(lastAct().at, third.at) << "nothing was logged";
  // Nothing else depends on the third.
  for (const ActRow* each : {&third, &second, &first}) EXPECT_TRUE(takeBack(*each).empty());
  EXPECT_EQ(lines(), before_);

  const ActRow deleted = act({"delete from TAB_1 where code_no='C1' and srno=1"});
  act({line(5, "1,1,7,1")});
  EXPECT_EQ(takeBack(deleted),
            Texts{"The line of Cash under BANKS (client C1) was made again since."});
  act({"delete from TAB_1 where code_no='C1' and partid=1",
       "delete from Mast_Part where PartId=1"});
  EXPECT_EQ(takeBack(deleted), Texts{"The ledger Cash is not there any more."});
  act({"insert into Mast_Part values(1,'Another')"});
  EXPECT_EQ(takeBack(deleted), Texts{"The ledger Cash is not there any more."})
      << "its number went to another one";
}

TEST_F(TakingBackTest, NumbersThatWentToOthersAreGivenAnew) {
  const ActRow gone = act({"delete from TAB_1 where code_no='C1' and srno=2"});
  act({line(2, "1,2,7,1")});
  EXPECT_TRUE(takeBack(gone).empty());
  EXPECT_EQ(lines(), (Rows{{"1", "1", "100", "1"}, {"2", "1", "7", "1"}, {"3", "2", "40", "2"}}));

  const auto voucher = [](const std::string& amount) {
    return "insert into JRNL_1 values('C1',5,1,'2008-06-01',1,1," + amount +
           ",'n'),('C1',5,2,'2008-06-01',2,2,-" + amount + ",'n')";
  };
  act({voucher("10")});
  const ActRow erased = act({"delete from JRNL_1 where code_no='C1' and VID=5"});
  act({voucher("20"), "update JRNL_1 set code_no='C2'"});
  EXPECT_TRUE(takeBack(erased).empty());
  EXPECT_EQ(rows("select VID,LSrNo,Amount from JRNL_1 order by VID,LSrNo"),
            (Rows{{"5", "1", "20"}, {"5", "2", "-20"}, {"6", "1", "10"}, {"6", "2", "-10"}}))
      << "vouchers of all clients are numbered together";

  // A value that a form keeps goes back with the act, unless it was set again.
  const auto keep = [&](const char* text) {
    const Act running(context().openForms.acts);
    host().SetMiscOthInf("S", "N", text, "C1", "");
  };
  keep("first");
  keep("second");
  const ActRow second = lastAct();
  EXPECT_TRUE(takeBack(second).empty());
  EXPECT_EQ(host().GetMiscOthInf("S", "N", ""), "first");
  keep("third");
  const ActRow third = lastAct();
  keep("fourth");
  EXPECT_TRUE(takeBack(third).empty());
  EXPECT_EQ(host().GetMiscOthInf("S", "N", ""), "fourth");
}

TEST_F(TakingBackTest, ADeletedYearComesBackUnderAFreeNumber) {
  exec("insert into TRADE_1(code_no,partid,allid,amt) values('C1',1,1,5)");
  const ActRow deleted = act({"delete from TAB_1 where code_no='C1'",
                              "delete from TRADE_1 where"
                              " code_no='C1'",
                              "delete from master where code_no='C1' and count=1"});
  EXPECT_EQ(deleted.client + deleted.secondDate, "C131032009");
  act({"insert into master(code_no,tbl_nm,count,s_yr) values('C1','TAB_1',1,'31032012')",
       line(1, "2,1,9,1")});
  EXPECT_TRUE(takeBack(deleted).empty());
  EXPECT_EQ(rows("select s_yr,count,tbl_nm from master order by s_yr"),
            (Rows{{"31032009", "2", "TAB_2"}, {"31032012", "1", "TAB_1"}}));
  EXPECT_EQ(lines("C1", "TAB_2"), before_);
  EXPECT_EQ(lines("C1", "TAB_1").size(), 1U);
  EXPECT_EQ(value("select amt from TRADE_2"), "5");

  EXPECT_EQ(takeBack(deleted).size(), 1U) << "it is there";
  // Of a year that is gone no single line comes back.
  const ActRow line = act({"delete from TAB_1 where code_no='C1'"});
  act({"delete from master where count=1"});
  act({"insert into master(code_no,tbl_nm,count,s_yr) values('C1','TAB_1',1,'31032015')"});
  EXPECT_EQ(takeBack(line).size(), 1U);
  EXPECT_EQ(lines("C1", "TAB_1").size(), 0U);
}

TEST_F(TakingBackTest, LedgersAndGroupsComeAndGoWithTheirUse) {
  const ActRow entered = act({"insert into Mast_Part values(77,'New')", line(3, "77,1,5,1")});
  EXPECT_TRUE(takeBack(entered).empty());
  EXPECT_EQ(lines(), before_);
  EXPECT_EQ(host().GetPart_MastPartId(77), "New") << "a ledger without lines stays";
  EXPECT_EQ(takingBack().inverseOf(entered).words(), "The line of New under BANKS (client C1).");

  const ActRow made = act({"insert into Mast_Part values(78,'Alone')"});
  act({line(3, "78,1,5,1")});
  EXPECT_EQ(takeBack(made), Texts{"The ledger Alone has lines by now."});
  act({"delete from TAB_1 where code_no='C1' and partid=78"});
  EXPECT_TRUE(takeBack(made).empty());
  EXPECT_EQ(host().GetPart_MastPartId(78), "");

  act({"insert into Mast_AllGrp values(3,1,'Spare','Y')"});
  const ActRow spare = act({"delete from Mast_AllGrp where ALLID=3"});
  act({"insert into Mast_AllGrp values(3,1,'Theirs','Y')"});
  EXPECT_EQ(takeBack(spare), Texts{"The number of the group Spare now belongs to Theirs."});

  // A merge touches the books of several clients.
  exec("insert into TAB_1 values(1,'C2',1,2,8,1),(2,'C2',1,1,9,1)");
  const Rows stood = rows("select * from TAB_1 order by code_no,srno");
  const ActRow merged =
      act({"update TAB_1 set allid=1 where allid=2", "delete from Mast_AllGrp where ALLID=2"});
  EXPECT_EQ(merged.client, "") << "nobody's in particular";
  EXPECT_TRUE(takeBack(merged).empty());
  EXPECT_EQ(rows("select * from TAB_1 order by code_no,srno"), stood);
  EXPECT_EQ(value("select ALLGRP from Mast_AllGrp where ALLID=2"), "RENT");
  EXPECT_EQ(takeBack(lastAct()), Texts{}) << "the other row of the pair stood all the time";
}

// An act of a time before the last one is logged behind it all the same.
TEST_F(TakingBackTest, AClockThatIsSetBackLosesNothing) {
  suite::ActLog& log = practice.environment().actLog();
  const ActRow first = act({"update TAB_1 set amt=101 where code_no='C1' and srno=1"});
  Instant last = first.at;
  for (const long hours : {1L, 24L, 0L}) {
    log.now = [&, hours] { return first.at - hours * 3'600'000'000L; };
    const ActRow next = act({"update TAB_1 set amt=amt+1 where code_no='C1' and srno=1"});
    EXPECT_EQ(next.at, last + 1);
    last = next.at;
  }
  log.now = suite::instantNow;
  EXPECT_EQ(frontEnd.notices().open().size(), 1U) << "told once";
  frontEnd.notices().close();
  const auto amountAt = [&](Instant at) {
    return value("select amt from TAB_1 for system_time as of timestamp'" + suite::instantText(at) +
                 "' where code_no='C1' and srno=1");
  };
  EXPECT_EQ(amountAt(first.at - 1), "100");
  for (const long act : {0L, 1L, 2L, 3L}) {
    EXPECT_EQ(amountAt(first.at + act), std::to_string(101 + act));
  }
}

TEST_F(TakingBackTest, WhatCannotBeLoggedIsNotDone) {
  exec("rename table SuiteAct to SuiteActGone");
  {
    const Act running(context().openForms.acts);
    practice.environment().unit().execute("delete from TAB_1 where code_no='C1'");
  }
  exec("rename table SuiteActGone to SuiteAct");
  EXPECT_EQ(lines(), before_);
  EXPECT_EQ(frontEnd.notices().open().size(), 1U);
  frontEnd.notices().close();
  log();
}

TEST_F(TakingBackTest, OldHistoryIsPrunedIntoAFile) {
  const TemporaryFolder folder;
  suite::Database& database = practice.database();
  const auto prune = [&](Date before, const char* name) {
    return suite::pruneHistory(database, practice.environment().actLog(), {2026, 5, 1}, before,
                               folder.path() / name);
  };
  suite::ActLog& log = practice.environment().actLog();
  exec("set timestamp=1400000000");
  exec("insert into TAB_2 values(1,'C1',1,1,5,1)");
  exec("set timestamp=1500000000");
  exec("update TAB_2 set amt=6");
  exec("insert into SuiteAct(At,Command,Tables,Hash) values(now(6),'Old\tone','tab_2','x')");
  exec("set timestamp=default");
  act({"delete from TAB_2"});
  EXPECT_THROW(prune({2018, 5, 2}, "young"), std::runtime_error);
  std::ofstream(folder.path() / "there") << "x";
  EXPECT_THROW(prune({2018, 5, 1}, "there"), std::runtime_error);
  EXPECT_THROW(prune({2018, 5, 1}, "no/folder"), std::runtime_error);
  EXPECT_EQ(value("select count(*) from TAB_2 for system_time all where amt in (5,6)"), "2");

  EXPECT_EQ(prune({2018, 5, 1}, "removed").acts, 1);
  EXPECT_EQ(value("select amt from TAB_2 for system_time all where amt in (5,6)"), "6")
      << "it stood after that day";
  std::ifstream file(folder.path() / "removed");
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  EXPECT_NE(text.find("\ntab_2\t1\tC1\t1\t1\t5\t1\t"), std::string::npos) << text;
  EXPECT_NE(text.find("\tOld\\tone\t"), std::string::npos) << text;
  EXPECT_EQ(lastAct().command, "Prune the history");
  EXPECT_NE(lastAct().reason.find("1 acts before 01/05/2018"), std::string::npos);
  EXPECT_TRUE(log.keeps());
  suite::check::Examined examined;
  suite::check::examineActLog(database, examined);
  EXPECT_TRUE(examined.findings.empty()) << "of what was pruned";
}

}  // namespace
}  // namespace quillet::support
