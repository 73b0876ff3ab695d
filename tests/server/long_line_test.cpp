// Stations at the far end of a line: what is sent, what waits, and what is told when it breaks.
#include "server/long_line.h"

#include <thread>

#include "server/stations_fixture.h"
#include "suite/stock_form.h"

namespace quillet::support {
namespace {

class LongLineTest : public StationsTest {
 protected:
  LongLineTest() : StationsTest("F1") {}
};

TEST_F(LongLineTest, ACommitWhoseAnswerIsLostIsToldAsWhatItWas) {
  for (const auto when : {LongLine::Break::afterCommit, LongLine::Break::beforeCommit}) {
    LongLine line(books().server.port());
    Station far(line.port(), "ben");
    far.open("F1", 2008);
    far.enter("Far", "RENT", "10");
    const std::string before = balance("F1", "Far");
    line.breakAt(when);
    far.enter("Far", "RENT", "1");
    const bool stored = when == LongLine::Break::afterCommit;
    EXPECT_EQ(std::stoi(balance("F1", "Far")), std::stoi(before) + (stored ? 1 : 0));
    const auto notices = far.notices();
    ASSERT_EQ(notices.size(), 1U);
    EXPECT_NE(notices[0].find(stored ? "The last step was stored" : "Nothing of the last step"),
              std::string::npos)
        << notices[0];
    // What was typed is offered again where it was not stored.
    EXPECT_EQ(far.editor().txtpart.text(), stored ? "" : "Far");
    far.enter("Far", "RENT", "5");
    EXPECT_EQ(std::stoi(balance("F1", "Far")), std::stoi(before) + (stored ? 6 : 5));
  }
}

// At ten milliseconds a request each of these stays under half a second.
TEST_F(LongLineTest, FarAwayFewRequestsServeADeed) {
  constexpr long most = 40;
  LongLine line(books().server.port());
  Station far(line.port(), "ben");
  const auto requests = [&](const auto& work) {
    const long before = line.requests();
    work();
    return line.requests() - before;
  };
  EXPECT_LT(requests([&] { far.open("F1", 2008); }), most);
  EXPECT_LT(requests([&] { far.enter("Far", "RENT", "10"); }), most);
  frmjrnl* opened = nullptr;
  EXPECT_LT(requests([&] { opened = &far.openJournal(); }), most);
  frmjrnl& journal = *opened;
  far.pass(journal, 10);
  EXPECT_LT(requests([&] { journal.click(journal.cmdupdate); }), most);
  EXPECT_EQ(anna().value("select count(*) from JRNL_2 where code_no='F1'"), "10");
  journal.close();
}

// The turn is taken where something is stored, not by each key.
TEST_F(LongLineTest, KeysSendNothing) {
  LongLine line(books().server.port());
  Station far(line.port(), "ben");
  far.open("F1", 2008);
  frmcrtb& editor = far.editor();
  Station::type(editor.txtpart, "Far\r");
  Station::type(editor.txtgroup, "RENT\r");
  Station::type(editor.txtamount, "1\r");
  suite::SystemClock clock;
  suite::frmTrade stock(far.context().openForms, far.dialogs, clock,
                        far.practice().environment().yearLocks());
  const long before = line.requests();
  editor.press(U'D');
  EXPECT_EQ(line.requests(), before);
  stock.LoadData(*far.context().host, "F1", "TRADE_2");
  stock.show();
  stock.focus(stock.txtamount);
  const long opened = line.requests();
  for (const Key digit : {U'1', U'2'}) stock.press(digit);
  EXPECT_EQ(line.requests(), opened);
  stock.close();
}

// A person sees that the server is waited for, not that the program has stopped.
TEST_F(LongLineTest, WaitingIsTold) {
  LongLine line(books().server.port());
  Station far(line.port(), "ben", [](suite::Settings& settings) {
    for (const char* limit : {"ConnectSeconds", "AnswerSeconds"}) {
      settings.set("Server", limit, "2");
    }
  });
  far.open("F1", 2008);
  far.enter("Slow", "RENT", "10");
  EXPECT_EQ(far.waited(), 0);
  line.before(1, [] { std::this_thread::sleep_for(std::chrono::milliseconds(1500)); });
  far.enter("Slow", "RENT", "1");
  EXPECT_GT(far.waited(), 0);
  EXPECT_EQ(balance("F1", "Slow"), "11");
  // One that says nothing any more is waited for once, not with each key.
  line.before(0);
  line.fallSilent();
  far.enter("Slow", "RENT", "5");
  EXPECT_NE(far.notices().at(0).find("does not answer within 2 s"), std::string::npos);
  const auto begun = std::chrono::steady_clock::now();
  Station::type(far.editor().txtdrcr, "D\r");
  EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(2));
  line.fallSilent(false);
  std::this_thread::sleep_for(std::chrono::seconds(3));
  far.enter("Slow", "RENT", "5");
  EXPECT_EQ(balance("F1", "Slow"), "16");
  far.leave();
}

TEST_F(LongLineTest, ATakingOverWaitsForACommitOnItsWay) {
  LongLine line(books().server.port());
  Station far(line.port(), "anna");
  frmcrtb& editor = far.open("F1", 2008);
  far.enter("Held", "RENT", "100");
  editor.vsfm.setCurrent(editor.vsfm.find(0, "Held"));
  editor.doubleClick(editor.vsfm);
  editor.txtamount.setText("150");
  editor.focus(editor.txtdrcr);
  line.hold();
  std::thread saving([&] { editor.press(keys::Enter); });
  while (!line.holding()) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  std::thread letting([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    line.letGo();
  });
  ben().dialogs.queueAnswer(Answer::Yes);
  frmcrtb& taken = ben().open("F1", 2008);
  for (std::thread* each : {&saving, &letting}) each->join();
  EXPECT_EQ(balance("F1", "Held"), "150");
  EXPECT_EQ(taken.vsfm.cell(taken.vsfm.find(0, "Held"), 2), "150.00");
  far.leave();
}

}  // namespace
}  // namespace quillet::support
