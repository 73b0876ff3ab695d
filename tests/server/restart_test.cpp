// A server that is started anew between the acts of two stations, and amid them: what a person is
// told to be stored is there once, and the next deed is done.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>

#include "controls/pasted_cells.h"
#include "home/third.h"
#include "masters/frmtbledmas.h"
#include "review/frmimport.h"
#include "server/long_line.h"
#include "server/station.h"
#include "suite/stock_form.h"

namespace quillet::support {
namespace {

class Restarts : public ::testing::Test {
 protected:
  // What a person does: up to the last key, that key, and what is stored of it since then.
  struct Deed {
    const char* what;
    std::function<void()> prepare;
    std::function<void()> act;
    std::string count;  // SQL: one more after each
  };

  void SetUp() override {
    NEEDS_REAL_SERVERS();
    server_ = std::make_unique<RealServer>();
    for (const char* name : {"anna", "ben"}) server_->addAccount(name, name);
    line_ = std::make_unique<LongLine>(server_->port());
    anna_ = std::make_unique<Station>(line_->port(), "anna");
    ben_ = std::make_unique<Station>(*server_, "ben");
    anna_->addYear("A1", 2008);
    ben_->addYear("B1", 2008);
    keeper_ = std::thread([this] { keep(); });
  }
  void TearDown() override {
    if (!keeper_.joinable()) return;
    ben_.reset();
    anna_.reset();
    ends_ = true;
    keeper_.join();
  }
  Station& anna() { return *anna_; }

  long stored(const Deed& deed) { return std::stol(server_->value("select (" + deed.count + ")")); }
  void restart() {
    wanted_ = true;
    waitForServer();
  }
  void waitForServer() const {
    while (wanted_) std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  // The requests of the deed without a restart.
  long requestsOf(const Deed& deed) {
    const long count = stored(deed);
    deed.prepare();
    const long before = line_->requests();
    deed.act();
    const long all = line_->requests() - before;
    EXPECT_EQ(stored(deed), count + 1);
    return all;
  }
  static bool tells(const std::vector<std::string>& notices, const std::string& text) {
    return std::ranges::any_of(
        notices, [&](const std::string& notice) { return notice.find(text) != std::string::npos; });
  }
  // Before the nth request of the act; before the act for 0.
  void check(const Deed& deed, long nth) {
    SCOPED_TRACE(std::string(deed.what) + ", request " + std::to_string(nth));
    const long before = stored(deed);
    deed.prepare();
    anna().notices();
    if (nth == 0) restart();
    line_->before(nth, [this] { restart(); });
    deed.act();
    line_->before(0);
    waitForServer();
    const auto notices = anna().notices();
    const long now = stored(deed);
    if (now == before) {
      EXPECT_TRUE(tells(notices, "Nothing of the last step was stored")) << notices.size();
      deed.prepare();
      deed.act();
      for (const std::string& notice : anna().notices()) ADD_FAILURE() << notice;
      EXPECT_EQ(stored(deed), before + 1);
    } else {
      EXPECT_EQ(now, before + 1);
      EXPECT_TRUE(notices.empty() || tells(notices, "was stored, though") ||
                  tells(notices, "what came before it stands"))
          << notices.front();
    }
    // Another station, in a year of its own.
    ben_->practice().environment().lookAround();
    const std::string balance = "select amt from quillet.TAB_2 where code_no='B1'";
    const std::string was = server_->value(balance);
    ben_->enter("Ben's", "RENT", "1");
    EXPECT_EQ(std::stol(server_->value(balance)), (was.empty() ? 0 : std::stol(was)) + 1);
  }
  void check(const Deed& deed) {
    const long all = requestsOf(deed);
    for (const long nth : {0L, 1L, all / 2, all - 1, all}) {
      check(deed, nth);
    }
  }

  // A server ends with the thread that has started it.
  void keep() {
    for (; !ends_; std::this_thread::sleep_for(std::chrono::milliseconds(2))) {
      if (!wanted_) continue;
      server_->kill();
      server_->start();
      wanted_ = false;
    }
  }

  std::unique_ptr<RealServer> server_;
  std::unique_ptr<LongLine> line_;
  std::unique_ptr<Station> anna_, ben_;
  std::atomic<bool> wanted_ = false;  // the server is to be started anew
  std::atomic<bool> ends_ = false;
  std::thread keeper_;
};

TEST_F(Restarts, EachDeedIsWholeOrNotThere) {
  for (int n = 1; n <= 12; ++n) {
    suite::Client client;
    client.code = client.name = "N" + std::to_string(n);
    suite::addClient(anna().practice().database(), client);
  }
  ben_->open("B1", 2008);
  frmcrtb& editor = anna().open("A1", 2008);
  check({.what = "a line",
         .prepare =
             [&] {
               Station::type(editor.txtpart, "Line\r");
               Station::type(editor.txtgroup, "RENT\r");
               Station::type(editor.txtamount, "1\r");
               Station::type(editor.txtdrcr, "D");
             },
         .act = [&] { editor.press(keys::Enter); },
         .count = "select ifnull(sum(amt),0) from quillet.TAB_2 where code_no='A1'"});
  EXPECT_EQ(editor.vsfm.cell(1, 2), "6.00");

  frmjrnl& journal = anna().openJournal();
  check({.what = "a voucher",
         .prepare =
             [&] {
               if (journal.Frame1.visible()) anna().pass(journal, 2);
             },
         .act = [&] { journal.click(journal.cmdupdate); },
         .count = "select count(*) div 2 from quillet.JRNL_2 where code_no='A1'"});
  EXPECT_EQ(server_->value("select sum(Amount) from quillet.JRNL_2"), "0");
  EXPECT_EQ(journal.vsf.rows(), 12);
  journal.close();
  anna().dialogs.answering = {};

  int number = 0;
  frmtbledmas ledgers(anna().context());
  ledgers.showModal();
  check({.what = "a ledger",
         .prepare =
             [&] {
               if (!ledgers.cmdadd.enabled()) return;
               ledgers.click(ledgers.cmdadd);
               Station::type(ledgers.VTxt1, "Added " + std::to_string(++number));
             },
         .act = [&] { ledgers.click(ledgers.cmdupdate); },
         .count = "select count(*) from quillet.Mast_Part where Particular like 'Added %'"});
  ledgers.close();

  suite::SystemClock clock;
  suite::frmTrade stock(anna().context().openForms, anna().dialogs, clock,
                        anna().practice().environment().yearLocks());
  stock.LoadData(*anna().context().host, "A1", "TRADE_2");
  stock.show();
  check({.what = "a closing stock",
         .prepare =
             [&] {
               Station::type(stock.txtpart, "Stock");
               Station::type(stock.txtgroup, "CLOSING STOCK");
               Station::type(stock.txtamount, "1");
             },
         .act = [&] { stock.press(keys::Enter); },
         .count = "select round(ifnull(sum(amt),0)) from quillet.TRADE_2 where code_no='A1'"});
  EXPECT_EQ(stock.vsf.cell(1, 2), "6.00");
  stock.close();

  anna().dialogs.answering = [](const Message&) { return Answer::Yes; };
  const auto page = [&] { return dynamic_cast<frmimport*>(anna().context().openForms.active()); };
  check({.what = "an import",
         .prepare =
             [&] {
               if (page() != nullptr) return;
               pasteCells(editor.vsfm, "Particulars\tGroup\tDebit\tCredit\nPasted " +
                                           std::to_string(++number) + "\tRENT\t1\t\n");
             },
         .act = [&] { page()->click(page()->cmdimport); },
         .count = "select count(*) from quillet.TAB_2 t join quillet.Mast_Part p using(PartId) "
                  "where t.code_no='A1' and p.Particular like 'Pasted %'"});

  int clients = 0;
  auto& home = dynamic_cast<third&>(*anna().practice().forms().ObjThird());
  home.show();
  check({.what = "a year",
         .prepare =
             [&] {
               ++clients;
               home.click(home.mnucreate);
               home.ClGrd1.showClient("N" + std::to_string(clients));
               home.doubleClick(home.ClGrd1);
               home.focus(home.MaskEdBox1);
               home.press(keys::Down);
             },
         .act = [&] { home.press(keys::Enter); },
         .count = "select count(*) from quillet.master where code_no like 'N%'"});
  EXPECT_EQ(home.flexgrid2.rows(), 1);
  for (Station* station : {anna_.get(), ben_.get()}) {
    EXPECT_EQ(station->dialogs.takeFailure().value_or(""), "");
  }
}

}  // namespace
}  // namespace quillet::support
