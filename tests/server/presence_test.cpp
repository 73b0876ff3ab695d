// How long a station has a year: it is heard of over questions too, and an act that takes long
// loses nothing.
#include <thread>

#include "server/stations_fixture.h"
#include "suite/history/year_locks.h"

namespace quillet::support {
namespace {

using namespace std::chrono_literals;

class PresenceTest : public StationsTest {
 protected:
  PresenceTest() : StationsTest("P1") {}
  static YearLocks& locks() { return *anna().practice().environment().yearLocks(); }
  static suite::YearPresence& presence() {
    return dynamic_cast<suite::YearLockTable&>(locks()).presence();
  }
  // The time of Anna's watch, which goes on from test to test.
  static std::chrono::steady_clock::time_point& later() {
    static auto time = std::chrono::steady_clock::now();
    return time;
  }
  // Every station was heard of last that many seconds ago.
  static void setSilence(int seconds) {
    ben().practice().database().execute("update SuitePresence set Heard=sysdate(6)-interval " +
                                        std::to_string(seconds) + " second");
  }
  static int silence() {
    return std::stoi(
        ben().value("select max(timestampdiff(second,Heard,sysdate(6))) from "
                    "SuitePresence where Code_No='P1'"));
  }
};

TEST_F(PresenceTest, WhoWasSilentForTooLongReadsAnew) {
  anna().open("P1", 2008);
  anna().enter("Asleep", "RENT", "1");
  const auto sleep = [&](bool undisturbed) {
    setSilence(200);
    presence().beat(undisturbed, later() += 5min);
  };
  sleep(true);
  EXPECT_FALSE(locks().find("P1", "31032009")) << "nobody has done anything";
  sleep(false);
  ben().open("P1", 2008);
  ben().enter("Asleep", "RENT", "2");
  ben().leave();
  EXPECT_TRUE(locks().find("P1", "31032009")->lost);
  anna().enter("Asleep", "RENT", "4");
  EXPECT_EQ(balance("P1", "Asleep"), "7");
}

TEST_F(PresenceTest, WhatWasTypedBeforeASilenceStays) {
  frmcrtb& editor = anna().open("P1", 2008);
  anna().enter("Lid", "RENT", "1");
  for (const bool enters : {false, true}) {
    Station::type(editor.txtpart, "Tea\r");
    Station::type(editor.txtgroup, "RENT\r");
    Station::type(editor.txtamount, "50\r");
    setSilence(200);
    ben().open("P1", 2008);
    ben().enter("Lid", "RENT", "2");
    ben().leave();
    if (!enters) anna().practice().environment().lookAround();
    EXPECT_EQ(editor.txtpart.text(), "Tea");
    EXPECT_EQ(editor.txtamount.text(), "50.00");
    EXPECT_EQ(editor.active(), &editor.txtdrcr);
    Station::type(editor.txtdrcr, "D\r");
    EXPECT_EQ(balance("P1", "Tea"), enters ? "100" : "50");
  }
  EXPECT_EQ(balance("P1", "Lid"), "5");
  EXPECT_TRUE(anna().notices().empty()) << "all of it was stored";
}

TEST_F(PresenceTest, WhoThinksOverAQuestionIsThereAllTheTime) {
  frmcrtb& editor = anna().open("P1", 2008);
  anna().enter("Asked", "RENT", "1");
  std::vector<int> silences;
  anna().dialogs.answering = [&](const Message&) {
    for (const int seconds : {140, 200}) {
      setSilence(seconds);
      presence().beatOverQuestion(later() += 31s);
      silences.push_back(silence());
    }
    setSilence(0);
    return Answer::Yes;
  };
  editor.vsfm.setCurrent(editor.vsfm.rows());
  editor.click(editor.mnudelete);
  ASSERT_EQ(silences.size(), 2U);
  EXPECT_LT(silences[0], 100);
  EXPECT_GE(silences[1], 200) << "another station may have had it meanwhile";
  EXPECT_EQ(balance("P1", "Asked"), "");
  EXPECT_TRUE(anna().notices().empty());
}

TEST_F(PresenceTest, ALineThatWasAlteredMeanwhileIsNotWrittenOver) {
  frmcrtb& editor = anna().open("P1", 2008);
  anna().enter("Twice", "RENT", "4");
  for (const bool looks : {false, true}) {
    editor.vsfm.setCurrent(editor.vsfm.rows());
    editor.doubleClick(editor.vsfm);
    Station::type(editor.txtamount, "7\r");
    takeOver("P1", "31032009", [&] {
      ben().open("P1", 2008);
      ben().enter("Twice", "RENT", "5");
      ben().leave();
    });
    if (looks) anna().practice().environment().lookAround();
    anna().dialogs.takeMessages();
    Station::type(editor.txtdrcr, "D\r");
    EXPECT_EQ(balance("P1", "Twice"), looks ? "14" : "9");
    EXPECT_NE(editor.lblhint.caption().find("Not stored: 7"), std::string::npos);
    const auto boxes = anna().dialogs.takeMessages();
    if (looks) continue;
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_NE(boxes[0].message.text.find("Not stored: 7"), std::string::npos);
    EXPECT_TRUE(anna().notices().empty());
  }
}

// One row a year, and none of a year that nobody has open.
TEST_F(PresenceTest, AYearIsRecordedOnce) {
  const auto rows = [] {
    return anna().value(
        "select group_concat(Person order by row_id) from SuitePresence where Code_No='P1'");
  };
  frmcrtb& editor = anna().open("P1", 2008);
  ben().dialogs.queueAnswer(Answer::Yes);
  ben().open("P1", 2008);
  for (int i = 0; i < 2; ++i) {
    anna().practice().environment().lookAround();
    editor.click(editor.mnurefresh);
    EXPECT_EQ(rows().find("anna"), std::string::npos) << rows();
  }
  // An act that leaves the year and is taken back.
  ben().act([] {
    ben().unit().execute("update TAB_2 set amt=amt where code_no='P1'");
    ben().leave();
    EXPECT_EQ(ben().unit().query("select count(*) from SuitePresence")->integer(0), 0);
    const std::string own =
        std::to_string(ben().unit().query("select connection_id()")->integer(0));
    anna().practice().database().execute("kill " + own);
  });
  EXPECT_EQ(ben().notices().size(), 1U);
  ben().practice().environment().lookAround();
  anna().practice().environment().lookAround();
  EXPECT_NE(rows().find("anna"), std::string::npos) << rows();
  EXPECT_TRUE(editor.txtpart.enabled());
}

TEST_F(PresenceTest, OnlyWhatWasAskedAboutIsDeleted) {
  for (const bool stays : {false, true}) {
    frmcrtb& editor = anna().open("P1", 2008);
    anna().enter("Doomed", "RENT", "1");
    editor.vsfm.setCurrent(editor.vsfm.rows());
    anna().dialogs.answering = [&](const Message&) {
      ben().dialogs.queueAnswer(Answer::Yes);
      ben().open("P1", 2008);
      ben().enter("Doomed", "RENT", "8");
      if (!stays) ben().leave();
      return Answer::Yes;
    };
    editor.click(editor.mnudelete);
    anna().dialogs.answering = {};
    EXPECT_EQ(balance("P1", "Doomed"), stays ? "18" : "9");
    EXPECT_FALSE(anna().notices().empty());
    ben().leave();
    anna().leave();
  }
}

TEST_F(PresenceTest, NoVoucherIsDeletedThatWasHadByAnotherOverTheQuestion) {
  for (const bool taken : {true, false}) {
    anna().open("P1", 2008);
    frmjrnl& journal = anna().openJournal();
    if (taken) {
      anna().pass(journal, 2);
      journal.click(journal.cmdupdate);
    }
    journal.vsf.setCurrent(1);
    anna().dialogs.answering = [&](const Message&) {
      if (taken) takeOver("P1", "31032009", [] {});
      return Answer::Yes;
    };
    journal.click(journal.Command1);
    EXPECT_EQ(anna().notices().size(), taken ? 1U : 0U);
    EXPECT_EQ(anna().value("select count(*) from JRNL_2 where code_no='P1'"), taken ? "2" : "0");
    anna().dialogs.answering = [](const Message&) { return Answer::Yes; };
    journal.close();
    anna().leave();
  }
}

TEST_F(PresenceTest, AnActThatTakesLongLosesNothing) {
  anna().open("P1", 2008);
  for (const bool before : {false, true}) {
    setSilence(before ? 151 : 149);
    anna().act([&] {
      anna().unit().execute("update TAB_2 set amt=amt where code_no='P1'");
      anna().unit().execute(
          "insert into TAB_2 select 900,'P1',min(PartId),1,0.55,1 from Mast_Part");
      std::this_thread::sleep_for(2500ms);
    });
    EXPECT_EQ(anna().notices().size(), before ? 1U : 0U);
    anna().leave();
    anna().open("P1", 2008);
  }
  EXPECT_EQ(anna().value("select count(*) from TAB_2 where code_no='P1' and amt=0.55"), "1");
}

TEST_F(PresenceTest, WhoReadsAYearIsAskedOnceWhetherToTakeItOver) {
  anna().open("P1", 2008);
  const auto asked = [] {
    long count = 0;
    for (const auto& each : ben().dialogs.takeMessages()) {
      count += each.message.text.find("Take it over ?") != std::string::npos ? 1 : 0;
    }
    return count;
  };
  for (int opening = 1; opening <= 2; ++opening) {
    ben().dialogs.answering = [](const Message&) { return Answer::No; };
    ben().open("P1", 2008);
    EXPECT_EQ(asked(), 1) << opening;
    ben().openJournal().close();
    EXPECT_EQ(asked(), 0) << "the editor reads it";
    ben().leave();
  }
}

}  // namespace
}  // namespace quillet::support
