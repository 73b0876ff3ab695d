// Creating and merging over a year that exists.
#include "years/years_fixture.h"

namespace quillet::support {
namespace {

class OverwritingTest : public YearsTest {
 protected:
  third& begin() { return choose(&third::mnucreate, "C1"); }
  void deleteChosen() {
    deletion().click(deletion().cmddelete);
    if (deletionOpen()) deletion().click(deletion().cmdcancel);
  }
};

TEST_F(OverwritingTest, AsksFirstAndLeavesEverythingOnNo) {
  addYear("C1", 2008, {{"Cash", "BANKS", 5}});
  const auto before = held("C1");
  third& form = begin();
  host().refuse("CheckPass");
  typeYear(form, "01/04/2008");
  EXPECT_TRUE(messages().empty()) << "without the right there is nothing to be asked";
  answer({Answer::No});
  form.press(keys::Enter);
  EXPECT_EQ(asked(), (Rows{{"Duplicate date is not allowed !\r\n\r\n"
                            "Do you want to overwrite previously saved data ?",
                            "YesNo", "question", "No"}}));
  // Cancelled in the deletion form: nothing has changed either.
  answer({Answer::Yes});
  form.press(keys::Enter);
  deletion().click(deletion().cmdcancel);
  EXPECT_EQ(held("C1"), before);
  messages();

  form.click(form.mnualter);
  form.doubleClick(form.ClGrd1);
  Key enter = keys::Enter;
  form.MaskEdBox2.KeyPress(enter);
  const auto warned = dialogs.takeMessages();
  ASSERT_EQ(warned.size(), 1U);
  EXPECT_EQ(warned[0].message.text, "Duplicate date is not allowed.");
  EXPECT_EQ(warned[0].message.title, "Warning");
}

// Whatever was chosen to be deleted: one row, with the old table and number.
TEST_F(OverwritingTest, KeepsTableAndNumberAndOneRow) {
  addYear("C1", 2003);
  addYear("C1", 2008, {{"Cash", "BANKS", 5}});
  exec("delete from master where f_yr='01042003'");  // number 1 is free again
  const struct {
    const char* date;
    int option;
    const char* annex;
  } cases[] = {{"01/04/2008", 1, "a"},
               {"01/04/2008", 0, "NULL"},
               {"01/04/2008", 1, "a"},
               // A year that begins on another day keeps its row too, with the new date.
               {"15/06/2008", 1, "a"}};
  for (const auto& c : cases) {
    exec("update master set annex='a',d_of_s='01/01/2010' where f_yr='01042008'");
    overwrite(begin(), c.option, c.date);
    deletion().click(deletion().cmddelete);
    EXPECT_EQ(messages().back(), "No previous years available.");
    EXPECT_EQ(registry(), (Rows{{c.date, "31/03/2009", tab(2), "2", "01042008", "31032009"}}));
    EXPECT_EQ(context().table, tab(2));
    EXPECT_EQ(value("select count(*) from " + tab(2)), "0");
    EXPECT_EQ(value("select annex from master"), c.annex) << "what was not deleted stays";
  }
}

// For what is deleted and for both commands: whoever gives up in the middle and gives the same
// command again gets the year whole.
TEST_F(OverwritingTest, AFailureIsCompletedByTheNextTry) {
  addYear("C2", 2008, {{"Theirs", "BANKS", 1}});
  const struct {
    Button third::*command;
    std::size_t linesMade;
    int option;
  } cases[] = {{&third::mnucreate, 2, 1},
               {&third::mnucreate, 2, 0},
               {&third::mnumerge, 1, 1},
               {&third::mnumerge, 1, 0}};
  for (const auto& c : cases) {
    // Every question is answered with Yes.
    const auto chooseAgain = [&] {
      choose(c.command, "C1");
      for (int i = 0; i < 10; ++i) answer({Answer::Yes});
    };
    FailingDeed deed{.what = "lines " + std::to_string(c.linesMade) + ", option " +
                             std::to_string(c.option)};
    deed.arrange = [&] {
      emptyClient();
      addYear("C1", 2006, {{"Cash", "BANKS", 5}, {"Asha", "CAPITAL", -5}});
      addYear("C1", 2008, {{"Old", "BANKS", 7}});
      select("C1", c.option == 1 ? 2006 : 2008);
      chooseAgain();
    };
    deed.act = [&] {
      third& form = home();
      typeYear(form, "01/04/2008");
      if (deletionOpen()) {
        deletion().click(deletion().optMain[c.option]);
        deleteChosen();
      }
      if (form.flexgrid2.columns().at(0).tick) form.press(keys::Enter);
    };
    deed.result = [&] { return registryAndLines(tab(2)); };
    const auto again = [&] {
      chooseAgain();
      deed.act();
    };
    deed.next = {{"the same command", again}};
    deed.stops = false;
    deed.check = [&] { EXPECT_TRUE(inWorkWhole()) << context().table; };
    failEachStatement(deed);
    EXPECT_EQ(registryAndLines(tab(2)).size(), 2 + c.linesMade);
  }
}

TEST_F(OverwritingTest, WhatFailedOnTheWayToAnEmptyYearIsSaid) {
  addYear("C1", 2008);
  const std::pair<const char*, const char*> cases[] = {
      {"DELETE FROM JRNL_", "The deletion of 2008-2009 was not completed. Enter begins it again."},
      {"insert into master",
       "The trial balance of 2008-2009 was not created in full. Enter begins it again."}};
  for (const auto& [statement, said] : cases) {
    third& form = begin();
    overwrite(form, 0);
    host().statements().failNext(statement);
    deleteChosen();
    EXPECT_EQ(form.lblstatus.caption(), said);
  }
}

// Two people at once: the row goes while the deletion form is open. The year is registered anew.
TEST_F(OverwritingTest, ARowThatGoesMeanwhileIsWrittenAnew) {
  addYear("C1", 2008, {{"Old", "BANKS", 7}});
  addYear("C2", 2008);
  for (Button third::*command : {&third::mnucreate, &third::mnumerge}) {
    third& form = choose(command, "C1");
    overwrite(form, 1);
    exec("delete from master where code_no='C1'");
    deletion().click(deletion().cmddelete);
    EXPECT_EQ(registry(),
              (Rows{{"01/04/2008", "31/03/2009", tab(1), "1", "01042008", "31032009"}}));
    if (command != &third::mnumerge) continue;
    exec("delete from master where code_no='C1'");
    answer({Answer::Yes});
    form.press(keys::Enter);
    EXPECT_EQ(registry().size(), 1U) << "and again between listing and merging";
  }
}

}  // namespace
}  // namespace quillet::support
