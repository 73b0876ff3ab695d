// Two stations on the same books: one writes in a year, numbers are nobody else's, and what a
// station has read holds when it writes.
#include <thread>

#include "data/errors.h"
#include "server/stations_fixture.h"

namespace quillet::support {
namespace {

TEST_F(StationsTest, OneWritesInAYearAndTheOtherReads) {
  frmcrtb& writing = anna().open("A1", 2008);
  anna().enter("Cash", "BANK BALANCES", "100");
  EXPECT_EQ(writing.lbllock.caption(), "");

  ben().dialogs.queueAnswer(Answer::No);
  frmcrtb& reading = ben().open("A1", 2008);
  EXPECT_NE(reading.lbllock.caption().find("by anna, "), std::string::npos);
  EXPECT_FALSE(reading.txtpart.enabled());

  // What is stored there is shown here, when a person comes back to the program.
  anna().enter("Cash", "BANK BALANCES", "50");
  ben().practice().environment().lookAround();
  EXPECT_EQ(reading.vsfm.cell(1, 2), "150.00");

  // Once nobody has the year, whoever reads it can write, and sees what was stored last.
  anna().enter("Bank", "BANK BALANCES", "3");
  writing.close();
  ben().practice().environment().lookAround();
  EXPECT_EQ(reading.lbllock.caption(), "");
  EXPECT_EQ(reading.vsfm.rows(), 2);
  ben().enter("Cash", "BANK BALANCES", "7");
  EXPECT_EQ(balance("A1", "Cash"), "157");
  reading.close();
}

TEST_F(StationsTest, WhoWasTakenOverDoesNotWriteOverWhatCameSince) {
  frmcrtb& before = anna().open("B1", 2008);
  anna().enter("Rent", "RENT", "100");
  before.vsfm.setCurrent(1);
  before.doubleClick(before.vsfm);
  ben().dialogs.queueAnswer(Answer::Yes);
  frmcrtb& after = ben().open("B1", 2008);
  anna().practice().environment().lookAround();
  EXPECT_NE(before.lbllock.caption().find("by ben, "), std::string::npos);
  ben().enter("Rent", "RENT", "30");
  // The line was altered from 100 meanwhile.
  before.txtamount.setText("150");
  before.focus(before.txtdrcr);
  before.press(keys::Enter);
  EXPECT_EQ(balance("B1", "Rent"), "130");
  EXPECT_NE(before.lbllock.caption().find("by ben, "), std::string::npos);
  before.close();
  after.close();
}

TEST_F(StationsTest, NumbersOfLedgersAreNobodyElses) {
  ben().dialogs.answering = {};
  anna().open("A1", 2008);
  ben().open("B1", 2008);
  for (int i = 0; i < 5; ++i) {
    anna().enter("Of Anna " + std::to_string(i), "RENT", "1");
    ben().enter("Of Ben " + std::to_string(i), "RENT", "1");
    anna().enter("Of Both " + std::to_string(i), "RENT", "1");
    ben().enter("Of Both " + std::to_string(i), "RENT", "1");
  }
  EXPECT_EQ(anna().value("select count(*) from Mast_Part where Particular like 'Of %'"), "15");
  EXPECT_EQ(anna().value("select count(distinct PartId)-count(*) from Mast_Part"), "0");
}

// Whoever reads, lets another station write, and writes then.
TEST_F(StationsTest, WhatWasReadHoldsWhenAnActWrites) {
  anna().change("insert into SuiteMisc(Section,Name,Value) values('T','a','1'),('T','b','1')");
  const std::string a = "select Value from SuiteMisc where Section='T' and Name='a'";
  const std::string b = "select Value from SuiteMisc where Section='T' and Name='b'";
  const auto copy = [&](const std::string& from) {
    anna().act([&] {
      const std::string read = anna().unit().query(from)->text(0);
      ben().change("update SuiteMisc set Value=Value+1 where Section='T' and Name='b'");
      const std::string set = "update SuiteMisc set Value='" + read + "0' where Name='a'";
      if (from == a) return anna().unit().execute(set);
      EXPECT_THROW(anna().unit().execute(set), RunTimeError);
    });
  };
  copy(a);
  EXPECT_EQ(anna().value(a), "10");
  EXPECT_TRUE(anna().notices().empty()) << "what others changed was not read";
  copy(b);
  EXPECT_EQ(anna().value(a), "10");
  EXPECT_EQ(anna().notices().size(), 1U);
}

// The server ends one of two transactions that wait for each other.
TEST_F(StationsTest, AnActThatGaveWayIsDoneAgainUnnoticed) {
  anna().change("insert into SuiteMisc(Section,Name,Value) values('D','x','0'),('D','y','0')");
  const auto set = [](const std::string& name, const std::string& value) {
    return "update SuiteMisc set Value=concat(Value,'" + value + "') where Section='D' and Name='" +
           name + '\'';
  };
  suite::ClientConnection& other = books().server.root();
  other.execute("use quillet");
  other.execute("begin");
  // More than the act has changed: the act gives way.
  other.execute("update Mast_AllGrp set GID=GID");
  other.execute("update Mast_AllGrp set UserGrp=if(UserGrp='Y','N','Y')");
  other.execute(set("y", "o"));
  std::thread waiting;
  anna().act([&] {
    anna().unit().execute(set("x", "a"));
    waiting = std::thread([&] {
      other.execute(set("x", "o"));
      other.execute("update Mast_AllGrp set UserGrp=if(UserGrp='Y','N','Y')");
      other.execute("commit");
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    anna().unit().execute(set("y", "a"));
  });
  waiting.join();
  EXPECT_EQ(anna().value("select group_concat(Value order by Name) from SuiteMisc where "
                         "Section='D'"),
            "0oa,0oa");
  EXPECT_TRUE(anna().notices().empty());
}

TEST_F(StationsTest, ALedgerThatWasDeletedMeanwhileIsNotEntered) {
  anna().change("insert into Mast_Part values(777,'Gone')");
  ben().open("B1", 2008);
  anna().change("delete from Mast_Part where PartId=777");
  ben().change("insert into TAB_2 values(99,'B1',777,1,5,1)");
  EXPECT_EQ(anna().value("select count(*) from TAB_2 where partid=777"), "0");
  EXPECT_EQ(ben().notices().size(), 1U);
}

TEST_F(StationsTest, AYearThatIsGoneTakesNoLines) {
  anna().change("insert into TAB_2 values(98,'Z9',1,1,5,1)");
  EXPECT_EQ(anna().value("select count(*) from TAB_2 where code_no='Z9'"), "0");
  EXPECT_EQ(anna().notices().size(), 1U);
  // The tables of the registry's schedules have other columns.
  anna().change("insert into Trade_Details(code_no) values('A1')");
  EXPECT_TRUE(anna().notices().empty());
}

TEST_F(StationsTest, AYearThatWasTakenOverAndDeletedTakesNoLines) {
  for (const std::string client : {"E1", "E2"}) {
    SCOPED_TRACE(client);
    for (const int year : {2008, 2009}) anna().addYear(client, year);
    anna().dialogs.queueAnswer(Answer::No);
    frmcrtb& editor = anna().open(client, 2009);
    anna().enter("Before", "RENT", "1");
    Station::type(editor.txtpart, "Late\r");
    Station::type(editor.txtgroup, "RENT\r");
    Station::type(editor.txtamount, "33\r");
    anna().dialogs.takeMessages();
    const std::string of = " where code_no='" + client + "'";
    takeOver(client, "31032010", [&] {
      ben().change("delete from TAB_3" + of);
      ben().change((client == "E1" ? "delete from master"
                                   : "update master set f_yr='01042007',s_yr='31032008'") +
                   of + " and s_yr='31032010'");
    });
    Station::type(editor.txtdrcr, "D\r");
    EXPECT_NE(editor.lbllock.caption(), "");
    EXPECT_FALSE(editor.txtpart.enabled());
    EXPECT_TRUE(anna().dialogs.takeMessages().empty()) << "nothing is asked amid a save";
    anna().practice().environment().lookAround();
    EXPECT_FALSE(editor.txtpart.enabled());
    EXPECT_EQ(anna().value("select count(*) from TAB_3" + of), "0");
  }
}

TEST_F(StationsTest, AClientThatIsGoneGetsNoYear) {
  anna().change(
      "insert into master(code_no,tbl_nm,count,f_yr,s_yr) values('Z9','TAB_3',3,'01042009',"
      "'31032010')");
  EXPECT_EQ(anna().value("select count(*) from master where code_no='Z9'"), "0");
  EXPECT_EQ(anna().notices().size(), 1U);
}

}  // namespace
}  // namespace quillet::support
