// Two stations on the same books: one writes in a year, numbers are nobody else's, and what a
// station has read holds when it writes.
#include <gtest/gtest.h>

#include <thread>

#include "data/errors.h"
#include "journal/frmjrnl.h"
#include "server/long_line.h"
#include "server/station.h"

namespace quillet::support {
namespace {

class StationsTest : public ::testing::Test {
 protected:
  struct Books {
    RealServer server;
    std::unique_ptr<Station> first, second;
    Books() {
      server.addAccount("anna", "anna");
      server.addAccount("ben", "ben");
      first = std::make_unique<Station>(server, "anna");
      second = std::make_unique<Station>(server, "ben");
      for (const char* client : {"A1", "B1"}) first->addYear(client, 2008);
    }
  };
  static Books& books() {
    static Books only;
    return only;
  }
  static Station& anna() { return *books().first; }
  static Station& ben() { return *books().second; }

  void SetUp() override { NEEDS_REAL_SERVERS(); }
  void TearDown() override {
    if (IsSkipped()) return;
    for (Station* station : {&anna(), &ben()}) {
      station->leave();
      station->notices();
      EXPECT_EQ(station->dialogs.takeFailure().value_or(""), "");
    }
  }
  static std::string balance(const std::string& client, const std::string& ledger) {
    return anna().value(
        "select sum(if(t.nid=2,-t.amt,t.amt)) from TAB_2 as t join Mast_Part as p on "
        "p.PartId=t.partid where t.code_no='" +
        client + "' and p.Particular='" + ledger + '\'');
  }
};

TEST_F(StationsTest, OneWritesInAYearAndTheOtherReads) {
  frmcrtb& writing = anna().open("A1", 2008);
  anna().enter("Cash", "BANK BALANCES", "100");
  EXPECT_EQ(writing.lbllock.caption(), "");

  ben().dialogs.queueAnswer(Answer::No);
  frmcrtb& reading = ben().open("A1", 2008);
  EXPECT_NE(reading.lbllock.caption().find("anna@"), std::string::npos);
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
  EXPECT_NE(before.lbllock.caption().find("ben@"), std::string::npos);
  ben().enter("Rent", "RENT", "30");
  // The line was altered from 100 meanwhile.
  before.txtamount.setText("150");
  before.focus(before.txtdrcr);
  before.press(keys::Enter);
  EXPECT_EQ(balance("B1", "Rent"), "130");
  EXPECT_NE(before.lbllock.caption().find("ben@"), std::string::npos);
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

TEST_F(StationsTest, WhoWasSilentForTooLongReadsAnew) {
  anna().open("A1", 2008);
  anna().enter("Asleep", "RENT", "1");
  anna().practice().database().execute(
      "update SuitePresence set Heard=sysdate(6)-interval 200 second");
  ben().open("A1", 2008);
  ben().enter("Asleep", "RENT", "2");
  ben().leave();
  EXPECT_TRUE(anna().practice().environment().yearLocks()->lost("A1", "31032009"));
  anna().enter("Asleep", "RENT", "4");
  EXPECT_EQ(balance("A1", "Asleep"), "7");
}

TEST_F(StationsTest, AClientThatIsGoneGetsNoYear) {
  anna().change(
      "insert into master(code_no,tbl_nm,count,f_yr,s_yr) values('Z9','TAB_3',3,'01042009',"
      "'31032010')");
  EXPECT_EQ(anna().value("select count(*) from master where code_no='Z9'"), "0");
  EXPECT_EQ(anna().notices().size(), 1U);
}

// --- lines to the server ------------------------------------------------------------------------

TEST_F(StationsTest, ACommitWhoseAnswerIsLostIsToldAsWhatItWas) {
  for (const auto when : {LongLine::Break::afterCommit, LongLine::Break::beforeCommit}) {
    LongLine line(books().server.port());
    Station far(line.port(), "ben");
    far.open("A1", 2008);
    far.enter("Far", "RENT", "10");
    const std::string before = balance("A1", "Far");
    line.breakAt(when);
    far.enter("Far", "RENT", "1");
    const bool stored = when == LongLine::Break::afterCommit;
    EXPECT_EQ(std::stoi(balance("A1", "Far")), std::stoi(before) + (stored ? 1 : 0));
    const auto notices = far.notices();
    ASSERT_EQ(notices.size(), 1U);
    EXPECT_NE(notices[0].find(stored ? "The last step was stored" : "Nothing of the last step"),
              std::string::npos)
        << notices[0];
    // What was typed is offered again where it was not stored.
    EXPECT_EQ(far.editor().txtpart.text(), stored ? "" : "Far");
    far.enter("Far", "RENT", "5");
    EXPECT_EQ(std::stoi(balance("A1", "Far")), std::stoi(before) + (stored ? 6 : 5));
  }
}

// At ten milliseconds a request each of these stays under half a second.
TEST_F(StationsTest, FarAwayFewRequestsServeADeed) {
  constexpr long most = 40;
  LongLine line(books().server.port());
  Station far(line.port(), "ben");
  const auto requests = [&](const auto& work) {
    const long before = line.requests();
    work();
    return line.requests() - before;
  };
  EXPECT_LT(requests([&] { far.open("A1", 2008); }), most);
  EXPECT_LT(requests([&] { far.enter("Far", "RENT", "10"); }), most);
  frmcrtb& editor = far.editor();
  EXPECT_LT(requests([&] { editor.click(editor.mnujournal); }), most);
  auto& journal = dynamic_cast<frmjrnl&>(*far.context().openForms.find("frmjrnl"));
  far.dialogs.answering = [](const Message&) { return Answer::Yes; };
  journal.click(journal.cmdadd);
  for (int i = 0; i < 10; ++i) {
    if (i > 0) journal.press(keys::Down);
    journal.focus(journal.cboside[i]);
    journal.press(i % 2 == 0 ? U'B' : U'T');
    Station::type(journal.txtledger[i], "Of voucher " + std::to_string(i));
    journal.press(keys::Tab);
    Station::type(journal.txtgroup[i], "RENT");
    journal.press(keys::Tab);
    Station::type(i % 2 == 0 ? journal.txtdramt[i] : journal.txtcramt[i], "100");
  }
  EXPECT_LT(requests([&] { journal.click(journal.cmdupdate); }), most);
  EXPECT_EQ(anna().value("select count(*) from JRNL_2 where code_no='A1'"), "10");
  journal.close();
}

}  // namespace
}  // namespace quillet::support
