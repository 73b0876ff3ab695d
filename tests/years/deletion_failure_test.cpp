// What is left of a deletion on the screen, done or failed in the middle.
#include "years/years_fixture.h"

namespace quillet::support {
namespace {

class DeletionFailureTest : public YearsTest {};

TEST_F(DeletionFailureTest, AnEditorOpenOnTheYearClosesWithIt) {
  addYear("C1", 2007, {{"Cash", "BANKS", 5}});
  addYear("C1", 2008, {{"Cash", "BANKS", 7}});
  select("C1", 2007);
  Form& editor = *practice.forms().ObjCreate();
  for (const bool onTheYear : {false, true}) {
    if (onTheYear) {
      select("C1", 2008);
      answer({Answer::No});  // to the import into the year that is empty by now
    }
    editor.close();
    editor.show();
    if (onTheYear) {
      frmdelwhatinTB& refused = openDeletion();
      refused.click(refused.cmdcancel);
      EXPECT_TRUE(editor.visible());
    }
    remove(1);
    EXPECT_EQ(editor.visible(), !onTheYear);
    messages();
  }
}

// A deletion that failed in the middle and is not tried again has happened all the same.
TEST_F(DeletionFailureTest, GivenUpInTheMiddleItsTracesAreShown) {
  addYear("C1", 2007, {{"Cash", "BANKS", 5}});
  const std::string table = addYear("C1", 2008, {{"Cash", "BANKS", 7}});
  select("C1", 2008);
  Form& editor = *practice.forms().ObjCreate();
  editor.show();
  const struct {
    const char* failing;
    long spared;
    int years;  // left in the list
    const char* said;
  } cases[] = {
      {"flush tables", 0, 2, "The deletion of 2008-2009 was not completed. Delete it again."},
      {"DELETE FROM JRNL_", 0, 2, "The deletion of 2008-2009 was not completed. Delete it again."},
      {"flush tables", 36, 1, "Trial balance of 2008-2009 deleted."}};
  for (const auto& c : cases) {
    frmdelwhatinTB& box = openDeletion();
    box.click(box.optMain[0]);
    answer({Answer::Yes});
    host().statements().failNext(c.failing, c.spared);
    context().unposted.add({table, "C1"}, {1, 1}, Money::ofPaise(250));
    box.click(box.cmddelete);
    EXPECT_TRUE(context().unposted.books().empty()) << "there is nothing left to post it into";
    ASSERT_EQ(log().size(), 1U) << c.failing;
    box.click(box.cmdcancel);
    EXPECT_FALSE(editor.visible()) << "its next line would go into what was removed";
    EXPECT_EQ(inWork(), (Texts{"C1", "", "", ""}));
    EXPECT_EQ(home().flexgrid2.rows(), c.years);
    EXPECT_EQ(home().lblstatus.caption(), c.said);
    messages();
  }
}

TEST_F(DeletionFailureTest, AFailureAnywhereIsLoggedOnceAndTheSecondTryCompletes) {
  const std::string n = host().GETTBNAME(1);
  const Texts some{"FIXED_" + n, "JRNL_" + n, "LIST_" + n, "master"};
  FailingDeed deed{.what = "deleting"};
  deed.arrange = [&] {
    exec("delete from master");
    addYear("C1", 2008, {{"Cash", "BANKS", 5}});
    for (int each : {0, 1, 2}) exec("insert into " + some[each] + "(code_no) values('C1')");
    openDeletion().click(deletion().optMain[0]);
  };
  deed.act = [&] {
    answer({Answer::Yes});
    deletion().click(deletion().cmddelete);
  };
  deed.result = [&] {
    Rows left;
    for (const std::string& each : some) left.push_back(rows("select count(*) from " + each)[0]);
    return left;
  };
  deed.next = {{"the same command", deed.act, {}, [&] { EXPECT_FALSE(deletionOpen()); }}};
  deed.place = "frmdelwhatinTB\tCMDDELETE_CLICK";
  deed.behind = 1;  // the home form's list
  deed.check = [&] { ASSERT_TRUE(deletionOpen()); };
  failEachStatement(deed);
  EXPECT_TRUE(held("C1").empty());
}

TEST_F(DeletionFailureTest, AYearThatCannotBeLookedIntoIsNotOffered) {
  addYear("C1", 2008);
  for (const char* statement : {"FIXED_", "NewFATRo", "NewFATRa"}) {
    third& form = choose(&third::mnudelete, "C1");
    answer({Answer::Yes});
    host().statements().failNext(statement);
    form.press(keys::Enter);
    EXPECT_FALSE(deletionOpen());
    EXPECT_EQ(trapped(), Texts{"frmdelwhatinTB\tINITDATA"});
    EXPECT_EQ(form.lblstatus.caption(), "The trial balance of 2008-2009 could not be looked into.");
  }
}

}  // namespace
}  // namespace quillet::support
