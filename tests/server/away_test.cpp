// A station that loses a year, its server or its time: what was typed stays, a person is told once
// and in plain words, and the others are not concerned.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "books/line_import.h"
#include "server/long_line.h"
#include "server/stations_fixture.h"

namespace quillet::support {
namespace {

class AwayTest : public ::testing::Test {
 protected:
  // A server of their own, which they end.
  static TwoStations& books() {
    static TwoStations only({"A1"});
    return only;
  }
  static Station& anna() { return *books().first; }
  static Station& ben() { return *books().second; }

  void SetUp() override { NEEDS_REAL_SERVERS(); }
  void TearDown() override {
    if (!IsSkipped()) books().tidy();
  }
  static void look(Station& station) { station.practice().environment().lookAround(); }
  // What stands in the fields.
  static std::string typed(frmcrtb& editor) {
    return editor.txtpart.text() + '|' + editor.txtgroup.text() + '|' + editor.txtamount.text();
  }
  static void typeHalf(Station& station) {
    Station::type(station.editor().txtpart, "Typed\r");
    Station::type(station.editor().txtgroup, "RENT\r");
    Station::type(station.editor().txtamount, "12\r");
  }
  static void takeOver() {
    ben().dialogs.queueAnswer(Answer::Yes);
    ben().open("A1", 2008);
  }
};

TEST_F(AwayTest, WhoIsTakenOverWhileTypingLosesNothingAndPressesNothing) {
  for (const bool saves : {false, true}) {
    SCOPED_TRACE(saves);
    frmcrtb& editor = anna().open("A1", 2008);
    anna().enter("Before", "RENT", "1");
    EXPECT_NE(editor.lblsaved.caption(), "");
    typeHalf(anna());
    takeOver();
    if (saves) {
      Station::type(editor.txtdrcr, "D\r");
    } else {
      look(anna());
    }
    EXPECT_EQ(typed(editor), "Typed|RENT|12.00");
    EXPECT_FALSE(editor.txtpart.enabled());
    EXPECT_EQ(editor.active(), &editor.vsfm);
    EXPECT_TRUE(!saves || editor.lblsaved.caption().empty());
    EXPECT_EQ(anna().value("select count(*) from Mast_Part where Particular='Typed'"), "0");
    ben().leave();
    anna().leave();
  }
}

TEST_F(AwayTest, AServerThatIsAwayIsToldOnceAndKeepsNobodyWaiting) {
  frmcrtb& editor = anna().open("A1", 2008);
  typeHalf(anna());
  books().server.kill();
  look(anna());
  const auto begun = std::chrono::steady_clock::now();
  for (int i = 0; i < 5; ++i) look(anna());
  EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(3));
  auto notices = anna().notices();
  ASSERT_EQ(notices.size(), 1U);
  EXPECT_NE(notices[0].find("The connection to the database server is lost."), std::string::npos);
  EXPECT_EQ(notices[0].find("gone away"), std::string::npos) << notices[0];
  books().server.start();
  look(anna());
  look(ben());
  notices = anna().notices();
  ASSERT_EQ(notices.size(), 1U);
  EXPECT_NE(notices[0].find("is open again"), std::string::npos);
  EXPECT_EQ(typed(editor), "Typed|RENT|12.00");
  Station::type(editor.txtdrcr, "D\r");
  EXPECT_TRUE(anna().notices().empty());
  EXPECT_EQ(anna().value("select count(*) from TAB_2 where amt=12"), "1");
}

// Its hosts drop what is sent to them. Whoever does nothing is kept waiting for no more than a
// moment, and a station goes to the host that comes back.
TEST_F(AwayTest, ASilentServerKeepsNobodyWaitingWhoDoesNothing) {
  using Clock = std::chrono::steady_clock;
  LongLine first(books().server.port());
  LongLine second(books().server.port());
  Station far(
      "127.0.0.1:" + std::to_string(first.port()) + ",127.0.0.1:" + std::to_string(second.port()),
      "ben", [](suite::Settings& settings) {
        for (const char* limit : {"ConnectSeconds", "AnswerSeconds"}) {
          settings.set("Server", limit, "1");
        }
      });
  far.change("delete from TAB_2 where code_no='A1'");
  frmcrtb& editor = far.open("A1", 2008);
  // Whoever waits for an answer does so for a second; a busy machine may hold up a look, too.
  int longLooks = 0;
  // The texts that are told within that time, or up to the first one.
  const auto looking = [&](std::chrono::seconds longest, bool toTheFirst) {
    std::vector<std::string> told;
    for (const auto end = Clock::now() + longest; Clock::now() < end;) {
      const auto begun = Clock::now();
      look(far);
      if (Clock::now() - begun > std::chrono::milliseconds(900)) ++longLooks;
      for (std::string& each : far.notices()) told.push_back(std::move(each));
      if (toTheFirst && !told.empty()) break;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return told;
  };
  for (const int round : {1, 2}) {
    typeHalf(far);
    for (LongLine* line : {&first, &second}) line->fallSilent();
    auto told = looking(std::chrono::seconds(4), false);
    EXPECT_LE(longLooks, 1);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told[0].find("does not answer within 1 s"), std::string::npos) << told[0];
    (round == 1 ? second : first).fallSilent(false);
    told = looking(std::chrono::seconds(10), true);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told[0].find("is open again"), std::string::npos) << told[0];
    EXPECT_EQ(typed(editor), "Typed|RENT|12.00");
    Station::type(editor.txtdrcr, "D\r");
    EXPECT_TRUE(far.notices().empty());
    EXPECT_EQ(far.value("select amt from TAB_2 as t join Mast_Part as p using(PartId) where "
                        "p.Particular='Typed'"),
              std::to_string(12 * round));
  }
  // Neither does a question that stands wait; what a person does then waits for the answer, and is
  // told.
  typeHalf(far);
  for (LongLine* line : {&first, &second}) line->fallSilent();
  const auto begun = Clock::now();
  dynamic_cast<suite::YearLockTable&>(*far.practice().environment().yearLocks())
      .presence()
      .beatOverQuestion(begun + std::chrono::seconds(31));
  EXPECT_LT(Clock::now() - begun, std::chrono::milliseconds(900));
  Station::type(editor.txtdrcr, "D\r");
  const auto told = far.notices();
  ASSERT_EQ(told.size(), 1U);
  EXPECT_NE(told[0].find("Nothing of the last step was stored"), std::string::npos) << told[0];
  for (LongLine* line : {&first, &second}) line->fallSilent(false);
  EXPECT_EQ(typed(editor), "Typed|RENT|12.00");
  Station::type(editor.txtdrcr, "D\r");
  EXPECT_TRUE(far.notices().empty());
  far.leave();
}

TEST_F(AwayTest, ActsHaveTheServersTimeAndWhoeversClockIsWrongIsTold) {
  constexpr suite::Instant hour = 3600LL * 1'000'000;
  for (const suite::Instant off : {hour, -hour}) {
    suite::ActLog& log = ben().practice().environment().actLog();
    log.now = [off] { return suite::instantNow() + off; };
    ben().change("insert into SuiteMisc(Section,Name,Value) values('C','x','0')");
    anna().change("delete from SuiteMisc where Section='C'");
    EXPECT_EQ(anna().value("select abs(timestampdiff(second,max(At),sysdate(6)))<60 from SuiteAct"),
              "1");
    EXPECT_TRUE(anna().notices().empty());
    EXPECT_EQ(ben().notices().size(), off > 0 ? 1U : 0U) << "told once";
    log.now = suite::instantNow;
  }
}

TEST_F(AwayTest, ALongImportSendsFewRequests) {
  constexpr int count = 500;
  LongLine line(books().server.port());
  Station far(line.port(), "ben");
  std::vector<ImportedLine> lines;
  const long group = std::stol(far.value("select ALLID from Mast_AllGrp where ALLGRP='RENT'"));
  far.change("insert into Mast_Part(PartId,Particular) values(900,'Imported  7')");
  for (int i = 0; i < count; ++i) {
    lines.push_back({.ledger = "Imported " + std::to_string(i),
                     .allId = group,
                     .balance = Money::rounded(i + 1)});
  }
  const long before = line.requests();
  ImportEnd end = ImportEnd::stopped;
  const auto import = [&] {
    far.act([&] {
      LineImport lineImport(*far.context().host, {"TAB_2", "A1"});
      end = lineImport.run(lines, TrialBalance(*far.context().host, {"TAB_2", "A1"}).lines());
    });
  };
  import();
  EXPECT_EQ(end, ImportEnd::done);
  EXPECT_LT(line.requests() - before, 60);
  const std::string imported =
      "select concat(count(*),' ',count(distinct t.partid),' ',sum(amt)) from TAB_2 as t join "
      "Mast_Part as p on p.PartId=t.partid where p.Particular like 'Imported%' and t.code_no='A1'";
  EXPECT_EQ(far.value(imported).substr(0, 8), "500 500 ");
  EXPECT_EQ(far.value("select partid from TAB_2 where amt=8 and code_no='A1' and allid=" +
                      std::to_string(group)),
            "900")
      << "a name in another spelling is found";
  import();
  EXPECT_EQ(end, ImportEnd::done);
  EXPECT_EQ(far.value(imported).substr(0, 8), "500 500 ");
}

}  // namespace
}  // namespace quillet::support
