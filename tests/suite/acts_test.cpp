// What an act changes is kept as a whole or taken back as a whole, whatever ends it.
#include "controls/acts.h"

#include <gtest/gtest.h>

#include <fstream>

#include "data/errors.h"
#include "suite/disk_watch.h"
#include "support/practice.h"

namespace quillet::support {
namespace {

namespace fs = std::filesystem;

class ActsTest : public PracticeTest {
 protected:
  using Steps = std::function<void()>;
  void act(const Steps& steps) {
    const Act running(context().openForms.acts);
    steps();
  }
  void addLedger() { host().ConQuery("insert into Mast_Part values(1,'Cash')"); }
  std::string ledgers() { return value("select count(*) from Mast_Part"); }
  bool transactionIsOpen() { return value("select @@in_transaction") == "1"; }
  void loseConnection() {
    EXPECT_THROW(exec("kill " + value("select connection_id()")), RunTimeError);
  }
  Texts notices() {
    Texts texts = frontEnd.notices().open();
    frontEnd.notices().close();
    return texts;
  }
};

TEST_F(ActsTest, TheOutermostEventEndsTheTransaction) {
  addLedger();
  EXPECT_FALSE(transactionIsOpen()) << "outside of acts each statement counts by itself";
  act([&] {
    host().GetPart_MastPartId(1);
    EXPECT_FALSE(transactionIsOpen()) << "reading needs none";
    act([&] { host().ConQuery("delete from Mast_Part"); });
    host().ConQuery("flush tables");
    host().ConQuery("Create Table If Not Exists Ledger_Temp (Part Varchar(100))");
    host().ConQuery("Drop Table If Exists Ledger_Temp");
    EXPECT_TRUE(transactionIsOpen());
  });
  EXPECT_FALSE(transactionIsOpen());
  EXPECT_EQ(ledgers(), "0");
  EXPECT_EQ(statements().size(), 5U) << "what is not sent as it stands is recorded all the same";
}

// A person who reads that something is done finds it done after a power cut; what depends on an
// answer is done with it.
TEST_F(ActsTest, OnlyABoxThatTellsIsCommittedFor) {
  for (const auto& [buttons, open] : {std::pair{Buttons::OK, false}, {Buttons::YesNo, true}}) {
    dialogs.queueAnswer(buttons == Buttons::OK ? Answer::OK : Answer::Yes);
    act([&] {
      host().ConQuery("delete from Mast_Part");
      context().MsgBox("?", buttons);
      EXPECT_EQ(transactionIsOpen(), open);
    });
  }
}

TEST_F(ActsTest, ALostConnectionTakesTheActBackAndIsRenewed) {
  const Steps breaks[] = {
      [&] {
        addLedger();
        loseConnection();  // the commit fails
      },
      [&] {
        addLedger();
        loseConnection();
        EXPECT_THROW(host().ConQuery("delete from Mast_Part"), RunTimeError);
        EXPECT_THROW(addLedger(), RunTimeError) << "the rest of the act is refused";
      },
  };
  for (const Steps& steps : breaks) {
    long made = 0;
    act([&] {
      made = host().GetMax_MastPartId("Brand New");
      host().ConQuery("delete from Mast_Part");
      steps();
    });
    EXPECT_EQ(ledgers(), "0");
    EXPECT_EQ(host().GetPart_MastPartId(made), "") << "the name is forgotten";
    const Texts told = notices();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told[0].find("Nothing of the last step was stored"), std::string::npos) << told[0];
    EXPECT_EQ(log().size(), 1U);
    act([&] { addLedger(); });
    EXPECT_EQ(ledgers(), "1");
    exec("delete from Mast_Part");
  }
}

// What the module remembers beside the database goes back with it.
TEST_F(ActsTest, TheContextGoesBackWithTheAct) {
  const ClientTable books{"TAB_1", "C1"};
  context().unposted.add(books, {1, 1}, Money::rounded(5));
  select("C1", 2008);
  const std::string before = context().firstDate;
  act([&] {
    context().unposted.add(books, {1, 1}, Money::rounded(2));
    context().forgetYear();
    host().statements().failNext("", 0, 1213);
    EXPECT_THROW(addLedger(), RunTimeError);
  });
  EXPECT_EQ(context().unposted.of(books, {1, 1}), Money::rounded(5));
  EXPECT_EQ(context().firstDate, before);
  EXPECT_EQ(notices().size(), 1U);
}

TEST_F(ActsTest, FilesGoWhenTheActStands) {
  const fs::path file = practice.folder().documents() / "Annex_1.rtf";
  const auto write = [&](const char* text) { std::ofstream(file) << text; };
  const auto remove = [&] {
    addLedger();
    EXPECT_TRUE(context().fileRemover.remove(file));
    EXPECT_TRUE(fs::exists(file));
  };
  write("old");
  act([&] {
    remove();
    loseConnection();
  });
  EXPECT_TRUE(fs::exists(file));
  act(remove);
  EXPECT_FALSE(fs::exists(file));
  EXPECT_EQ(value("select State from SuiteRemoval"), "kept");
  notices();
  const auto at = suite::instantFrom(value("select At from SuiteRemoval"));
  EXPECT_EQ(value("select count(*) from SuiteAct where Tables='mast_part' and At='" +
                  suite::instantText(at) + '\''),
            "1");
  suite::UnitOfWork unit(practice.database());
  suite::FileRemoval removal(unit, practice.folder().documents(), practice.folder().keptFiles());
  removal.removeOld();
  removal.bringBack(at);
  EXPECT_TRUE(removal.carryOut().empty());
  EXPECT_TRUE(fs::exists(file)) << "it comes back with the act";
  removal.removeAgain(at);
  EXPECT_TRUE(removal.carryOut().empty());
  EXPECT_FALSE(fs::exists(file)) << "it goes once more when that is taken back";
  removal.bringBack(suite::instantFrom(value("select At from SuiteRemoval")));
  EXPECT_TRUE(removal.carryOut().empty());
  EXPECT_TRUE(fs::exists(file));
  exec("update SuiteRemoval set At=now(6)-interval 91 day");
  removal.removeOld();
  EXPECT_EQ(value("select count(*) from SuiteRemoval"), "0");
  EXPECT_TRUE(fs::exists(file));

  // A file of that name that was made since, and a name that leads elsewhere.
  write("a new one");
  exec(
      "insert into SuiteRemoval(File,Identity) values('Annex_1.rtf','1 3 0 0'),"
      "('../settings.ini','')");
  EXPECT_TRUE(suite::FileRemoval(unit, practice.folder().documents(), practice.folder().keptFiles())
                  .carryOut()
                  .empty());
  EXPECT_TRUE(fs::exists(file));
  EXPECT_TRUE(fs::exists(practice.folder().settings()));
  fs::remove(file);
}

TEST(DiskWatch, WarnsOnceEachTimeTheRoomGetsTight) {
  const TemporaryFolder folder;
  std::ofstream(folder.path() / "ibdata1") << std::string(1000, ' ');
  std::uintmax_t room = 2000;
  suite::DiskWatch watch(folder.path(), [&](const fs::path&) { return room; });
  EXPECT_FALSE(watch.warning());
  for (int i = 0; i < 2; ++i) {
    room = 1998;
    EXPECT_TRUE(watch.warning());
    EXPECT_FALSE(watch.warning());
    room = 2000;
    EXPECT_FALSE(watch.warning());
  }
}

}  // namespace
}  // namespace quillet::support
