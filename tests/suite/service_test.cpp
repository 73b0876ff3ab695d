// The service object: statements, ledgers, passwords, settings, screens, progress.
#include <gtest/gtest.h>

#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "data/errors.h"
#include "suite/service_object.h"
#include "support/practice.h"

namespace quillet::suite {
namespace {

using Texts = std::vector<std::string>;

class ServiceTest : public support::PracticeTest {
 protected:
  void setPassword(PasswordKind kind, const std::string& code, const std::string& password) {
    Passwords::set(practice.database(), kind, code, password);
  }
};

TEST_F(ServiceTest, RecordsWhatTheModuleSendsAndNothingElse) {
  statements();
  host().ConQuery("insert into Mast_Part values(1,'Cash')");
  context().query("select * from Mast_Part");
  host().GetPart_MastPartId(1);
  host().GetMax_MastPartId("Bank");
  host().CheckPass("delete");
  EXPECT_THROW(host().ConQuery("nonsense"), RunTimeError);
  EXPECT_EQ(statements(), (Texts{"insert into Mast_Part values(1,'Cash')",
                                 "select * from Mast_Part", "nonsense"}));
  host().statements().record(false);
  host().ConQuery("flush tables");
  EXPECT_EQ(statements(), Texts{});
}

TEST_F(ServiceTest, EscapedTextComesBackAsItWas) {
  std::mt19937 random(7);
  const std::string alphabet = "'\"\\%_;-#`\n\r\t aZ09\x1A";
  for (int i = 0; i < 300; ++i) {
    std::string text = "अ";
    const std::size_t length = random() % 90;
    while (text.size() < length) text += alphabet[random() % alphabet.size()];
    text += "|";
    exec("delete from Mast_Part");
    exec("insert into Mast_Part values(1,'" + host().TruncVarSQL(text) + "')");
    ASSERT_EQ(value("select Particular from Mast_Part"), text);
  }
  const std::string attack = "x'); delete from Mast_Part; -- ";
  host().ConQuery("insert into Mast_Part values(2," + host().quoted(attack) + ")");
  EXPECT_EQ(value("select count(*) from Mast_Part"), "2");
  EXPECT_EQ(host().TruncVarSQL(std::string(5000, 'x')).size(), 5000U) << "never cut";
}

TEST_F(ServiceTest, FindsOrMakesLedgersByName) {
  EXPECT_EQ(host().GetMax_MastPartId("Cash"), 1);
  EXPECT_EQ(host().GetMax_MastPartId("  CASH "), 1);
  EXPECT_EQ(host().GetMax_MastPartId("Bank", false), 0);
  exec("insert into Mast_Part values(41,'Old')");
  EXPECT_EQ(host().GetMax_MastPartId(" Bank "), 42);
  EXPECT_EQ(value("select Particular from Mast_Part where PartId=42"), "Bank");
  for (int i = 0; i < 2; ++i) EXPECT_EQ(host().GetMax_MastPartId("O'Brien \\ Sons"), 43);
  for (const std::string& none :
       {std::string(), std::string(3, ' '), std::string(101, 'x'), std::string("broken \xFF")}) {
    EXPECT_EQ(host().GetMax_MastPartId(none), 0) << none;
  }
  std::string longest;
  for (int i = 0; i < 100; ++i) longest += "अ";
  EXPECT_EQ(host().GetMax_MastPartId(longest), 44) << "characters count, not bytes";
}

TEST_F(ServiceTest, LedgerNamesFollowEveryChange) {
  exec("insert into Mast_Part values(1,'Cash'),(2,'Bank')");
  EXPECT_EQ(host().GetPart_MastPartId(1), "Cash");
  EXPECT_EQ(host().GetPart_MastPartId(9), "");
  const Sql changes[] = {"Update Mast_Part Set Particular='Till' Where PartId=1",
                         "  update `MAST_PART` set Particular='Till2' where PartId=1",
                         "Delete from Mast_Part Where PartId=1",
                         "Insert into Mast_Part(PartId,Particular) values(1,'New')"};
  const Texts names = {"Till", "Till2", "", "New"};
  for (std::size_t i = 0; i < std::size(changes); ++i) {
    host().ConQuery(changes[i]);
    EXPECT_EQ(host().GetPart_MastPartId(1), names[i]) << changes[i].text();
  }
  host().GetMax_MastPartId("Fresh");
  EXPECT_EQ(host().GetPart_MastPartId(3), "Fresh");
}

// One query for the list, however many names are asked for: a server that is asked nothing answers
// nothing wrong, so the table is changed behind the service's back.
TEST_F(ServiceTest, LedgerNamesCostNoQueryEach) {
  exec("insert into Mast_Part values(1,'Cash'),(2,'Bank')");
  host().GetPart_MastPartId(1);
  practice.database().execute("delete from Mast_Part");
  host().ConQuery("Insert into AllGrp_Map(Code_No) Select Particular from mast_part");
  EXPECT_EQ(host().GetPart_MastPartId(2), "Bank");
}

TEST_F(ServiceTest, AsksForPasswordsThatAreSet) {
  EXPECT_TRUE(host().CheckClpass("C1"));
  EXPECT_TRUE(dialogs.takePrompts().empty());

  setPassword(PasswordKind::client, "C1", "geheim ü");
  setPassword(PasswordKind::right, "delete", "other");
  EXPECT_EQ(value("select count(*) from SuitePassword where Hash like '$argon2id$%'"), "2");

  dialogs.queuePassword("wrong");
  dialogs.queuePassword("geheim ü");
  EXPECT_TRUE(host().CheckClpass("C1"));
  dialogs.queuePassword(std::nullopt);
  EXPECT_FALSE(host().CheckClpass("c1")) << "cancelled";
  for (int i = 0; i < 3; ++i) dialogs.queuePassword("other");
  EXPECT_FALSE(host().CheckClpass("C1")) << "three tries";
  EXPECT_EQ(dialogs.left(), 0U);
  EXPECT_TRUE(host().CheckClpass("C2"));
  dialogs.queuePassword("other");
  EXPECT_TRUE(host().CheckPass("delete"));
  EXPECT_TRUE(host().CheckPass("overwrite"));

  setPassword(PasswordKind::client, "C1", "");
  EXPECT_TRUE(host().CheckClpass("C1"));
}

TEST_F(ServiceTest, RefusesOnceWhenTold) {
  host().refuse("CheckPass");
  EXPECT_TRUE(host().CheckClpass("C1"));
  EXPECT_FALSE(host().CheckPass("delete"));
  EXPECT_TRUE(host().CheckPass("delete"));
  host().refuse("CheckClpass");
  EXPECT_FALSE(host().CheckClpass("C1"));
  EXPECT_THROW(host().refuse("Anything"), std::invalid_argument);
}

TEST_F(ServiceTest, FormatsByTheFormatsKind) {
  EXPECT_EQ(host().formatgen(-0.001, "#,##0.00"), "0.00");
  EXPECT_EQ(host().formatgen(std::string("2008-04-01"), "DD/MM/YYYY"), "01/04/2008");
  EXPECT_EQ(host().formatgen(std::string("2008-04-01"), "d-m-yyyy"), "1-4-2008");
  EXPECT_EQ(host().formatgen(std::string("12.345"), "###0.00"), "12.35");
  EXPECT_EQ(host().formatgen(std::string("no date"), "DD/MM/YYYY"), "no date");
  EXPECT_EQ(host().date_prob_handle("1-4-08"), "01/04/2008");
  EXPECT_EQ(host().convertdate("32/04/2008"), "");
}

TEST_F(ServiceTest, KeepsSettingsAndMiscellaneousValues) {
  EXPECT_EQ(host().GetSettingINI("Settings", "Nothing", "fallback"), "fallback");
  host().SaveSettingINI("Settings", "TBSort", "2");
  host().vLstSelClCode("C'7");
  practice.restartModule();
  EXPECT_EQ(host().GetSettingINI("settings", "tbsort", "1"), "2");
  EXPECT_EQ(host().vLstSelClCode(), "C'7");

  EXPECT_EQ(host().GetMiscOthInf("S", "GRP_MAP_ALL", "N"), "N");
  host().SetMiscOthInf("S", "GRP_MAP_ALL", "it's \\ Y", "C1", "2008");
  host().SetMiscOthInf("S", "GRP_MAP_ALL", "later", "C2", "2008");
  EXPECT_EQ(host().GetMiscOthInf("S", "GRP_MAP_ALL", "N"), "later");
  host().SetMiscOthInf("S", "GRP_MAP_ALL", "it's \\ Y", "C1", "2008");
  EXPECT_EQ(host().GetMiscOthInf("s", "grp_map_all", "N"), "it's \\ Y");
}

// Whoever walks the tables by their numbers misses no year, whatever became of the settings.
TEST_F(ServiceTest, TablesHaveNumbersAndNoYearStandsAboveTheHighest) {
  EXPECT_EQ(host().GetTbCount(), support::tableNumbers);
  EXPECT_EQ(host().GETTBNAME(7), "7");
  for (const long none : {0, -1}) EXPECT_EQ(host().GETTBNAME(none), "") << none;
  Settings& settings = practice.settings();
  const std::string kept = settings.get("Suite", "TableCount");
  const struct {
    const char* set;
    long registered;
    long made;  // a table of that number is there
    long count;
  } cases[] = {{"7", 0, 0, 7},        {"2", 5, 0, 5},      {"2", 0, 12, 2},     {"-3", 0, 0, 1},
               {"100000", 5, 0, 999}, {"", 0, 0, 40},      {"many", 41, 0, 41}, {"", 0, 120, 120},
               {"", 130, 120, 130},   {"2", 70000, 0, 999}};
  for (const auto& c : cases) {
    settings.set("Suite", "TableCount", c.set);
    exec("delete from master");
    exec("insert into master(code_no,count) values('C1',1),('C2'," + std::to_string(c.registered) +
         "),('C3',null)");
    const std::string made = "TAB_" + std::to_string(c.made);
    if (c.made > 0) exec("create table " + made + "(code_no varchar(20))");
    EXPECT_EQ(host().GetTbCount(), c.count) << c.set << ", " << c.registered << ", " << c.made;
    if (c.made > 0) exec("drop table " + made);
  }
  settings.set("Suite", "TableCount", kept);
}

TEST_F(ServiceTest, ARecordsetNeedsTheOpenConnection) {
  class Other : public Connection {
  } other;
  EXPECT_THROW(host().RecordsetQuery("select 1", other, CursorType::static_, LockType::readOnly),
               RunTimeError);
}

TEST_F(ServiceTest, FitsFormsToTheScreen) {
  struct Case {
    Screen screen;
    double font;
  };
  Form& form = *practice.forms().ObjThird();
  for (const Case& c :
       {Case{{1366, 768}, 1.0}, Case{{1920, 1080}, 1.0}, Case{{2560, 1440}, 4.0 / 3},
        Case{{3840, 2160}, 2.0}, Case{{800, 600}, 1.0}}) {
    frontEnd.size = c.screen;
    host().resize_for_resolution(form);
    EXPECT_NEAR(form.size.font, c.font, 0.001) << c.screen.width;
    EXPECT_LT(form.size.width, 1.0);
    EXPECT_GE(form.size.width * c.screen.width, std::min(1300.0, 0.95 * c.screen.width));
    EXPECT_GE(form.size.height * c.screen.height, std::min(700.0, 0.9 * c.screen.height));
  }
  EXPECT_NEAR(host().vScreenRatX(), 800 / 1366.0, 1e-9);
  frontEnd.size = {};
  EXPECT_EQ(host().vScreenRatY(), 1.0);
}

TEST_F(ServiceTest, ProgressReachesTheScreenAFewTimesOnly) {
  host().progress(true);
  EXPECT_TRUE(frontEnd.busy);
  Progress& progress = host().objProgress();
  progress.Text1("Loading Ledger List....");
  EXPECT_EQ(frontEnd.progress, "Loading Ledger List....");
  frontEnd.updates = 0;
  progress.Max(20000);
  for (int i = 0; i < 20000; ++i) progress.update_pg();
  EXPECT_EQ(frontEnd.done, 20000);
  EXPECT_EQ(frontEnd.total, 20000);
  EXPECT_LT(frontEnd.updates, 200);
  progress.update_pg();
  EXPECT_EQ(frontEnd.done, 20000) << "never past the end";
  host().progress(false);
  EXPECT_FALSE(frontEnd.busy);
}

TEST_F(ServiceTest, APopupMenuGoesToTheFrontEnd) {
  frontEnd.queuePopup(2);
  EXPECT_EQ(host().PopupMenuObj().choose({"One", "Two"}), 2);
  EXPECT_EQ(frontEnd.menu, (Texts{"One", "Two"}));
}

}  // namespace
}  // namespace quillet::suite
