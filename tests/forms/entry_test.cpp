// Entering, merging, altering and deleting lines through the editor's fields.
#include <gtest/gtest.h>

#include "forms/editor_fixture.h"

namespace quillet::support {
namespace {

using Statements = std::vector<std::string>;

class EntryTest : public EditorTest {
 protected:
  EntryTest() : table(addYear("C1", 2008)), form(open("C1", 2008)) {}

  using EditorTest::stored;
  Rows stored() { return stored(table); }

  std::string table;
  frmcrtb& form;
};

TEST_F(EntryTest, TheSamePairIsMergedUnderANewSerialNumber) {
  enter(form, "Office Rent", "RENT", "12000", "D");
  EXPECT_EQ(form.vsfp.find(0, "Office Rent"), 1) << "a new ledger joins the list";
  enter(form, "Bank", "BANKS", "1", "D");
  const std::string part = std::to_string(ledger("Office Rent"));
  const std::string all = std::to_string(group("RENT"));
  statements();
  enter(form, "office rent", "rent", "2000", "c");
  EXPECT_EQ(statements(),
            (Statements{"select mast_gunder.ggid from mast_gunder,mast_allgrp where "
                        "mast_allgrp.allgrp='rent' and mast_allgrp.gid = mast_gunder.gid",
                        "SELECT ALLID FROM MAST_ALLGRP WHERE ALLGRP='rent'",
                        "select * from TAB_1 where code_no='C1' and partid = " + part +
                            " and allid = " + all,
                        "Delete from TAB_1 where code_no='C1' and srno=1", "flush tables",
                        "select max(srno) as maxsr from TAB_1 where code_no = 'C1'",
                        "insert into TAB_1 values(3,'C1'," + part + "," + all + ",10000,1)",
                        "flush tables", "Select * From TAB_1 where code_no='C1'"}));
  EXPECT_EQ(stored(),
            (Rows{{"2", "Bank", "BANKS", "1", "1"}, {"3", "Office Rent", "RENT", "10000", "1"}}));
  enter(form, "Office Rent", "RENT", "10000.01", "CR");
  EXPECT_EQ(stored().back(), (std::vector<std::string>{"3", "Office Rent", "RENT", "0.01", "2"}));
}

TEST_F(EntryTest, TheRowsOfAPairBecomeOneOrNone) {
  enter(form, "Cash", "BANKS", "0.1", "D");
  enter(form, "Cash", "BANKS", "0.2", "D");
  EXPECT_EQ(stored(), (Rows{{"1", "Cash", "BANKS", "0.3", "1"}}));
  enter(form, "Cash", "BANKS", "0.3", "C");
  EXPECT_EQ(stored(), Rows{});
  EXPECT_EQ(form.vsfm.rows(), 0);
  put(table, "1", "Cash", "BANKS", "10,1");
  put(table, "2", "Cash", "BANKS", "4,2");
  enter(form, "Cash", "BANKS", "1", "D");
  EXPECT_EQ(stored(), (Rows{{"1", "Cash", "BANKS", "7", "1"}}));
}

TEST_F(EntryTest, InvisibleCharactersAndBlanksDoNotMakeALedger) {
  enter(form, "\u200BRent\u00A0 Paid\uFEFF ", " sa\u200Bles", "1", "C");
  EXPECT_EQ(stored(), (Rows{{"1", "Rent Paid", "SALES", "1", "2"}}));
  // Names that were stored otherwise go on working, typed plainly or taken from the list.
  exec("insert into Mast_Part values(70,'Old\u200B  Rent'),(71,' Fees')");
  exec("insert into Mast_AllGrp values(80,22,' OLD  GROUP','Y')");
  form.click(form.mnuall);
  form.click(form.mnurefresh);
  open("C1", 2008);
  type(form.txtpart, "old r");
  form.press(keys::Down);
  form.press(keys::Up);
  EXPECT_EQ(form.txtpart.text(), "Old\u200B  Rent");
  for (const char* name : {"old rent", "Old\u200B  Rent", "fees", "Old \u200BRent"}) {
    enter(form, name, "old group", "2", "D");
  }
  EXPECT_EQ(rows("select partid,allid,amt from TAB_1 where srno>1 order by partid"),
            (Rows{{"70", "80", "6"}, {"71", "80", "2"}}));
  EXPECT_EQ(messages(), Statements());
  enter(form, "\u200B", "RENT", "1", "D");
  EXPECT_EQ(messages(), (Statements{"Please specify Particulars.",
                                    "Cannot save the entry due to invalid data."}));
}

TEST_F(EntryTest, ANameThatTheDatabaseTakesForAnotherIsAskedAbout) {
  exec("insert into Mast_Part values(70,'m²')");
  open("C1", 2008);
  const std::string question =
      "There is 'm²', and the database cannot tell 'M2' from it.\r\n\r\nDo you mean 'm²'?";
  dialogs.queueAnswer(Answer::No);
  enter(form, "M2", "RENT", "10", "D");
  EXPECT_EQ(messages(), Statements{question});
  EXPECT_EQ(form.txtpart.text(), "M2");
  EXPECT_EQ(form.active(), &form.txtpart);
  EXPECT_NE(form.lblhint.caption().find("Choose a name"), std::string::npos);
  EXPECT_TRUE(stored().empty());
  EXPECT_EQ(value("select count(*) from Mast_Part"), "1");
  yes();
  type(form.txtdrcr, "D");
  form.press(keys::Enter);
  EXPECT_EQ(messages(), Statements{question});
  EXPECT_EQ(stored(), (Rows{{"1", "m²", "RENT", "10", "1"}}));
  enter(form, "M²", "RENT", "1", "D");
  EXPECT_EQ(messages(), Statements()) << "only case differs";
  // A group is never taken for another.
  exec("insert into Mast_AllGrp values(80,22,'G²','Y')");
  open("C1", 2008);
  enter(form, "m²", "G2", "1", "D");
  EXPECT_EQ(messages(), (Statements{"Group does not Exist.", "Group does not exist."}));
}

TEST_F(EntryTest, RefusesWhatIsNotALine) {
  const std::string invalid = "Cannot save the entry due to invalid data.";
  const std::string side = "Only 'C' or 'c' and 'D' or 'd' are allowed.";
  const struct {
    const char *ledger, *group, *amount, *side;
    Statements messages;
  } cases[] = {
      {"", "RENT", "1", "D", {"Please specify Particulars.", invalid}},
      {"x", "", "1", "D", {"Specify a Group.", invalid}},
      {"x", "NOWHERE", "1", "D", {"Group does not Exist.", "Group does not exist."}},
      {"x", "RENT", "", "D", {invalid}},
      {"x", "RENT", "0", "D", {invalid}},
      {"x", "RENT", "0.004", "D", {invalid}},
      {"x", "RENT", "abc", "D", {invalid}},
      {"x", "RENT", "1e15", "D", {invalid}},
      {"x", "RENT", "99999999999999.99", "D", {invalid}},
      {"x", "RENT", "1", "", {side}},
      {"x", "RENT", "1", "x", {side}},
  };
  for (const auto& c : cases) {
    enter(form, c.ledger, c.group, c.amount, c.side);
    EXPECT_EQ(messages(), c.messages) << c.ledger << '|' << c.group << '|' << c.amount;
    EXPECT_EQ(form.active(), &form.txtdrcr) << "what was typed stays for correction";
    form.press(keys::Escape);
    EXPECT_TRUE(form.txtgroup.text().empty());
  }
  for (const auto& [typed, why] :
       {std::pair("1e15", " is not an amount: type digits and at most one point."),
        std::pair("-99999999999999.99",
                  " is too large: type at most 13 digits before the point.")}) {
    fill(form, "x", "RENT", typed, "D");
    EXPECT_EQ(form.lblhint.caption(), '"' + std::string(typed) + '"' + why);
    form.press(keys::Escape);
  }
  EXPECT_TRUE(stored().empty());
  EXPECT_TRUE(messages().empty()) << "giving an entry up asks for nothing";
  EXPECT_EQ(value("select count(*) from mast_part"), "0");
  // The box is full at what its column holds, and says so.
  type(form.txtpart, std::string(101, 'x'));
  EXPECT_EQ(form.lblhint.caption(), "A ledger name holds at most 100 characters.");
}

TEST_F(EntryTest, KeepsAwkwardNamesAndAmountsExactly) {
  const struct {
    const char *ledger, *typed, *shown, *stored, *side;
  } cases[] = {{"%_\\", "1,23,456.50", "123456.50", "123456.5", "1"},
               {"\\", "2.675", "2.68", "2.68", "1"},
               {"'); drop table TAB_1; --", ".5", "0.50", "0.5", "1"},
               {"日本 (東京)", "007", "7.00", "7", "1"},
               {"<b>&amp;", "1000000000000000", "1000000000000000.00", "1000000000000000", "1"},
               {R"(O'Brien \ "Söhne" 🙂)", "-5", "5.00", "5", "2"}};
  for (const auto& c : cases) {
    enter(form, c.ledger, "RENT", c.typed, "D");
    const std::string where = " from TAB_1 where srno=(select max(srno) from TAB_1)";
    EXPECT_EQ(value("select amt" + where),
              value("select cast('" + std::string(c.stored) + "' as double)"))
        << c.typed;
    EXPECT_EQ(value("select nid" + where), c.side) << c.typed;
    EXPECT_EQ(form.vsfm.cell(form.vsfm.rows(), 0), c.ledger);
    EXPECT_EQ(form.vsfm.cell(form.vsfm.rows(), 2), c.shown);
  }
  EXPECT_EQ(messages(), Statements{});
}

TEST_F(EntryTest, TheSideIsProposedFromTheGroup) {
  group("LOOSE", 99);
  open("C1", 2008);
  for (const auto& [name, side] : {std::pair{"BANKS", "DR"},
                                   {"RENT", "DR"},
                                   {"CAPITAL", "CR"},
                                   {"SALES", "CR"},
                                   {" RENT ", "DR"},
                                   {"LOOSE", ""}}) {
    form.press(keys::Escape);
    type(form.txtpart, "x");
    type(form.txtgroup, name);
    form.focus(form.txtdrcr);
    EXPECT_EQ(form.txtdrcr.text(), side) << name;
  }
}

TEST_F(EntryTest, TheListsFollowTheTyping) {
  exec("delete from mast_part");
  addYear("C1", 2007, {{"Rent", "RENT", 1}, {"Rent Received", "SALES", -2}, {"Salary", "RENT", 1}});
  dialogs.queueAnswer(Answer::No);
  frmcrtb& fresh = open("C1", 2008);
  messages();
  fresh.click(fresh.mnuinsert);
  EXPECT_TRUE(fresh.vsfp.visible());
  fresh.press(U'r');
  EXPECT_EQ(fresh.vsfp.cell(fresh.vsfp.current(), 0), "Rent");
  EXPECT_EQ(fresh.txtpart.text(), "r") << "a new ledger may be called so";
  fresh.press(keys::Down);
  EXPECT_EQ(fresh.txtpart.text(), "Rent Received");
  fresh.press(keys::Up);
  EXPECT_EQ(fresh.txtpart.text(), "Rent");
  fresh.press(keys::Enter);
  EXPECT_FALSE(fresh.vsfp.visible());
  EXPECT_EQ(fresh.active(), &fresh.txtgroup);
  fresh.press(U's');
  fresh.press(keys::Enter);
  EXPECT_EQ(fresh.txtgroup.text(), "SALES") << "the beginning of a group stands for it";
  EXPECT_EQ(fresh.active(), &fresh.txtamount);
  EXPECT_TRUE(messages().empty());
}

TEST_F(EntryTest, AlteringReplacesTheLine) {
  enter(form, "Debtor", "BANKS", "100", "C");
  enter(form, "Rent", "RENT", "40", "D");
  statements();
  alter(form, "Debtor", "150");
  EXPECT_EQ(statements()[1], "Delete from TAB_1 where code_no='C1' and srno=1");
  EXPECT_EQ(stored(),
            (Rows{{"2", "Rent", "RENT", "40", "1"}, {"3", "Debtor", "BANKS", "150", "2"}}))
      << "a line that stays in its group keeps its side";
  EXPECT_EQ(form.active(), &form.vsfm);
  EXPECT_EQ(form.vsfm.cell(form.vsfm.current(), 0), "Debtor");

  // Onto the pair of another line: both become one.
  form.press(keys::Enter);
  enter(form, "Rent", "RENT", "150", "D");
  EXPECT_EQ(stored(), (Rows{{"1", "Rent", "RENT", "190", "1"}}));

  form.click(form.mnualter);
  form.press(keys::Escape);
  enter(form, "New", "RENT", "1", "D");
  EXPECT_EQ(stored().size(), 2U) << "an alteration given up leaves no trace";
}

TEST_F(EntryTest, TheDeleteKeyDeletesTheLine) {
  enter(form, "Rent", "RENT", "40", "D");
  enter(form, "Bank", "BANKS", "5", "C");
  form.vsfm.setCurrent(1);
  form.focus(form.vsfm);
  yes();
  statements();
  form.press(keys::Delete);
  EXPECT_EQ(statements(), (Statements{"delete from TAB_1 where code_no='C1' and srno=1",
                                      "flush tables", "Select * From TAB_1 where code_no='C1'"}));
  EXPECT_EQ(stored(), (Rows{{"2", "Bank", "BANKS", "5", "2"}}));
  EXPECT_EQ(form.vsfm.current(), 1);
}

TEST_F(EntryTest, BothYearsAlterWhereTheLineIsAndDeleteInBothTables) {
  const std::string last = addYear("C1", 2007, {{"Rent", "RENT", 30}, {"Old", "BANKS", 9}});
  enter(form, "Rent", "RENT", "40", "D");
  enter(form, "Fresh", "BANKS", "1", "D");
  open("C1", 2008).click(form.mnuyrs[2]);
  alter(form, "Old", "11");
  EXPECT_EQ(stored(last).back()[3], "11") << "a line of last year alone stays there";
  statements();
  remove(form, "Rent");
  const auto sent = statements();
  EXPECT_EQ(sent[0], "delete from " + table + " where code_no='C1' and srno=1");
  EXPECT_EQ(sent[2], "delete from " + last + " where code_no='C1' and srno=1");
  EXPECT_EQ(shown(form.vsfm).size(), 2U);
}

// A line goes into the year in view, wherever the view has been before.
TEST_F(EntryTest, ALineGoesIntoTheYearInView) {
  const std::string last = addYear("C1", 2007, {{"Old", "BANKS", 9}});
  const std::string other = addYear("C2", 2008);
  enter(form, "Now", "RENT", "1", "D");
  open("C1", 2008);
  const struct {
    const char* ledger;
    int view;
    const std::string& table;
  } cases[] = {{"A", 1, last}, {"B", 0, table}, {"C", 2, table}, {"D", 1, last}};
  for (const auto& c : cases) {
    form.vsfm.setCurrent(1);
    form.click(form.mnuyrs[c.view]);
    enter(form, c.ledger, "RENT", "1", "D");
    EXPECT_EQ(stored(c.table).back()[1], c.ledger);
    EXPECT_EQ(form.vsfm.cell(form.vsfm.find(0, c.ledger), 2), "1.00");
  }
  // The editor was left in the view of the previous year, which the other client does not have.
  open("C2", 2008);
  enter(form, "E", "RENT", "1", "D");
  EXPECT_EQ(stored(other, "C2").size(), 1U);
  EXPECT_EQ(log(), Statements{});
}

// Whatever statement of a save fails: what is stored is shown, Enter again ends where the save
// would have ended, and any other deed begins with the books as they were before the save.
TEST_F(EntryTest, AfterAFailedSaveTheBooksEndRight) {
  const std::string last = addYear("C1", 2007, {{"Rent", "RENT", 7}});
  addYear("C2", 2008, {{"Other", "BANKS", 77}});
  const struct {
    const char *ledger, *group, *figures;
  } lines[] = {{"Rent", "RENT", "100,1"},
               {"Bank", "BANKS", "5,2"},
               {"Rent", "RENT", "11,2"},
               {"Rent", "RENT", "100,1"}};
  const struct {
    const char* what;
    std::vector<std::size_t> lines;  // by their serial numbers
    int altered;                     // row, 0 for a new line
    const char *ledger, *group, *amount, *side;
    bool allDeeds = false;
  } saves[] = {
      {"a new pair", {1, 2}, 0, "Fresh", "BANKS", "10", "D"},
      {"a pair that is there", {1, 2}, 0, "Rent", "RENT", "40", "C"},
      {"a pair of two rows", {1, 2, 3}, 0, "Rent", "RENT", "40", "C"},
      {"a pair that comes to nothing", {1, 2}, 0, "Rent", "RENT", "100", "C"},
      {"an altered amount", {1, 2}, 1, "Rent", "RENT", "150", "D"},
      {"a line altered onto another's pair", {1, 2}, 2, "Rent", "RENT", "5", "C", true},
      {"the only line", {4}, 1, "Rent", "BANKS", "90", "D"},
  };
  const auto back = [&](const std::string& client) {
    return [&, client] {
      open(client, 2008);
      open("C1", 2008);
    };
  };
  const auto refreshAndEnter = [&] {
    form.click(form.mnurefresh);
    form.press(keys::Enter);
  };
  const auto otherYear = [&] {
    form.click(form.mnuyrs[1]);
    enter(form, "Rent", "RENT", "1", "D");
    form.click(form.mnuyrs[0]);
  };
  const auto afterEscape = [&](const std::function<void()>& act) {
    return [&, act] {
      form.press(keys::Escape);
      act();
    };
  };
  std::vector<Continuation> others{
      {"Escape", [&] { form.press(keys::Escape); }},
      {"closing and opening", back("C1")},
      {"F5 and Enter", refreshAndEnter},
      {"another line", [&] { enter(form, "Bank", "BANKS", "3", "D"); }},
      {"the other year", otherYear},
      {"another client", back("C2")},
      {"altering", afterEscape([&] { alter(form, "Rent", "8"); })},
      {"deleting", afterEscape([&] { remove(form, "Rent"); })},
      {"the group view", [&] { form.click(form.mnugroup); }},
      {"the journal", [&] { lookIntoJournal(form); }}};
  for (Continuation& other : others) other.instead = other.act;
  for (const auto& save : saves) {
    FailingDeed deed{.what = save.what, .act = [&] { form.press(keys::Enter); }};
    deed.arrange = [&] {
      exec("delete from " + last + " where partid<>" + std::to_string(ledger("Rent")));
      exec("update " + last + " set amt=7");
      exec("delete from " + table);
      for (const std::size_t i : save.lines) {
        const auto& line = lines[i - 1];
        put(table, std::to_string(i), line.ledger, line.group, line.figures);
      }
      open("C1", 2008);
      if (save.altered != 0) {
        form.vsfm.setCurrent(save.altered);
        form.click(form.mnualter);
      }
      fill(form, save.ledger, save.group, save.amount, save.side);
    };
    deed.result = [&] {
      return joined(
          {stored(table), stored(last), shown(form.vsfm), shown(form.vsf1), totals(form)});
    };
    deed.check = [&] { EXPECT_EQ(shown(form.vsfm), toBeShown(table)); };
    deed.place = "frmcrtb\tTXTDRCR_KEYPRESS";
    deed.stops = false;
    deed.behind = 1;
    deed.next = {{"Enter", deed.act}};
    failEachStatement(deed);
    // Behind its insert the line is stored: there is nothing to go back from.
    deed.behind = 2;
    deed.next = {others[0], others[1]};
    if (save.allDeeds) deed.next = others;
    failEachStatement(deed);
  }
}

// Nothing is lost without a word when the way back fails too, or leads into other books.
TEST_F(EntryTest, WhatCannotBePutBackIsNamed) {
  const std::string line = "Rent, RENT, 100.00 DR\r\nwas taken out by a save that failed. ";
  const std::string changed =
      line + "The books have changed since. Please enter it again if it is missing.";
  const std::string later = line + "It could not be written back. Opening the editor tries again.";
  const auto secondFailure = [&] { host().statements().failNext("insert into"); };
  const auto halfPosted = [&] {
    exec("create trigger refuses before insert on TAB_1 for each row signal sqlstate '45000'");
    form.click(form.mnujournal);
    EXPECT_EQ(&form, context().desk.active()) << "nothing is posted onto such books";
    messages();
    context().unposted.add({"TAB_1", "C1"}, {ledger("Rent"), group("RENT")}, 5);
    form.close();
    exec("drop trigger refuses");
  };
  const auto yearGone = [&] {
    exec("delete from TAB_1");
    exec("delete from master where code_no='C1'");
  };
  const struct {
    const char* what;
    std::function<void()> between;
    Statements told;
    const char* rows;  // and their sum, after the editor was closed and opened
  } cases[] = {
      {"nothing", [] {}, {}, "1 100"},
      {"a second failure", secondFailure, {later}, "1 100"},
      {"failures and half a voucher", halfPosted, {later}, "1 105"},
      {"entered elsewhere", [&] { put(table, "3", "Rent", "RENT", "100,1"); }, {changed}, "1 100"},
      {"no group", [&] { exec("delete from mast_allgrp where allgrp='RENT'"); }, {changed}, "0 0"},
      {"no year", yearGone, {}, "0 0"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    exec("delete from TAB_1");
    exec("delete from master");
    addYear("C1", 2008);
    group("RENT", 22);
    open("C1", 2008);
    enter(form, "Rent", "RENT", "100", "D");
    host().statements().failNext("insert into");
    enter(form, "Rent", "RENT", "40", "C");
    EXPECT_EQ(stored(), Rows{});
    c.between();
    form.close();
    EXPECT_EQ(messages(), c.told);
    form.show();
    EXPECT_EQ(value("select concat(count(*),' ',ifnull(sum(amt),0)) from TAB_1"), c.rows);
    form.close();
    messages();
  }
  // One that had neither ledger nor group goes back as it was.
  addYear("C1", 2008);
  exec("insert into TAB_1 values(9,'C1',9999,8888,55,1)");
  open("C1", 2008);
  form.vsfm.setCurrent(1);
  form.click(form.mnualter);
  fill(form, "Found", "RENT", "55", "D");
  host().statements().failNext("insert into TAB_1");
  form.press(keys::Enter);
  EXPECT_EQ(value("select count(*) from TAB_1"), "0");
  form.press(keys::Enter);
  EXPECT_EQ(stored(), (Rows{{"1", "Found", "RENT", "55", "1"}}));
  // A year that was deleted is not offered for import while the editor closes.
  addYear("C1", 2007, {{"Old", "BANKS", 9}});
  open("C1", 2008);
  host().statements().failNext("insert into TAB_1");
  enter(form, "Found", "RENT", "5", "D");
  exec("delete from master where tbl_nm='TAB_1'");
  form.close();
  EXPECT_EQ(messages(), Statements{});
}

// A line that still cannot be put back waits: nothing else changes the lines until it can.
TEST_F(EntryTest, WhileALineCannotBePutBackTheOthersStay) {
  const std::string asked = "Do you want to delete the selected record?";
  const std::string told =
      "Rent, RENT, 100.00 DR\r\nwas taken out by a save that failed. It could not be written back. "
      "Please try again.";
  const std::vector<std::string> rent{"1", "Rent", "RENT", "100", "1"};
  const std::vector<std::string> bank{"2", "Bank", "BANKS", "5", "2"};
  const auto enterAgain = [&] { form.press(keys::Enter); };
  const auto removeBank = [&] {
    form.press(keys::Escape);
    remove(form, "Bank");
  };
  const auto moveBank = [&] {
    if (!form.famGroups.visible()) form.click(form.mnugroup);
    chooseMove(form, "BANKS", "SALES");
    form.click(form.cmdupdate);
  };
  const struct {
    const char* what;
    std::function<void()> act;
    Statements refused;
    Rows result;
  } cases[] = {{"Enter", enterAgain, {}, {bank, {"3", "Rent", "RENT", "60", "1"}}},
               {"deleting", removeBank, {asked, told}, {rent}},
               {"moving a group", moveBank, {told}, {rent, {"2", "Bank", "SALES", "5", "2"}}},
               {"the journal", [&] { lookIntoJournal(form); }, {told}, {rent, bank}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    exec("delete from " + table);
    open("C1", 2008);
    enter(form, "Rent", "RENT", "100", "D");
    enter(form, "Bank", "BANKS", "5", "C");
    exec("create trigger full before insert on " + table +
         " for each row signal sqlstate '45000' set message_text='full'");
    enter(form, "Rent", "RENT", "40", "C");
    messages();
    c.act();
    EXPECT_EQ(messages(), c.refused);
    EXPECT_EQ(stored(), Rows{bank});
    EXPECT_EQ(form.lblhint.caption(),
              "What a save that failed has taken out could not be put back. The next save tries "
              "again.");
    exec("drop trigger full");
    dialogs.clear();
    c.act();
    EXPECT_EQ(stored(), c.result);
    form.close();
    messages();
  }
}

// A row that has no serial number, or shares it, is a line like any other.
TEST_F(EntryTest, LinesWithoutANumberOfTheirOwnAreLikeAnyOther) {
  const std::string last = addYear("C1", 2007, {{"Old", "BANKS", 9}});
  exec("update " + last + " set srno=null");
  const auto lines = [&](const std::string& of) {
    return rows("select particular,amt from " + of +
                " t join mast_part p on p.partid=t.partid where code_no='C1' order by 1,2");
  };
  const Rows whole{{"A", "10"}, {"B", "11"}, {"C", "12"}, {"D", "13"}, {"D", "13"}, {"E", "15"}};
  const char* const numbers[] = {"0", "null", "5", "5", "5", "6"};
  const auto begin = [&](int view) {
    exec("delete from " + table);
    for (std::size_t i = 0; i < whole.size(); ++i) {
      put(table, numbers[i], whole[i][0], "RENT", whole[i][1] + ",1");
    }
    open("C1", 2008).click(form.mnuyrs[view]);
  };
  for (const int view : {0, 2}) {
    for (const auto& line : whole) {
      SCOPED_TRACE(line[0] + " in view " + std::to_string(view));
      Rows left = whole;
      left.erase(std::find(left.begin(), left.end(), line));
      begin(view);
      EXPECT_EQ(form.vsfm.rows(), view == 2 ? 7 : 6);
      remove(form, line[0]);
      EXPECT_EQ(lines(table), left);
      EXPECT_EQ(form.vsfm.rows(), view == 2 ? 6 : 5);
      begin(view);
      form.vsfm.sortBy(2);
      pick(form, line[0]);
      form.click(form.mnualter);
      type(form.txtpart, "Z");
      form.focus(form.txtdrcr);
      form.press(keys::Enter);
      left.push_back({"Z", line[1]});
      EXPECT_EQ(lines(table), left);
    }
  }
  // Nor is it taken for its neighbours while the lines cannot be read.
  begin(0);
  pick(form, "C");
  form.click(form.mnualter);
  fill(form, "Z", "RENT", "12", "D");
  exec("create trigger kept before delete on " + table +
       " for each row signal sqlstate '45000' set message_text='kept'");
  host().statements().failNext("Select * From " + table);
  form.press(keys::Enter);
  EXPECT_EQ(form.vsfm.rows(), 0);
  exec("drop trigger kept");
  form.press(keys::Enter);
  EXPECT_EQ(lines(table),
            (Rows{{"A", "10"}, {"B", "11"}, {"D", "13"}, {"D", "13"}, {"E", "15"}, {"Z", "12"}}));
  begin(0);
  form.click(form.mnugroup);
  chooseMove(form, "RENT", "SALES");
  form.click(form.cmdupdate);
  EXPECT_EQ(form.cbogroup.items(), Statements{"SALES"});
  EXPECT_EQ(form.vsf3.rows(), 6);
  open("C1", 2008).click(form.mnuyrs[1]);
  remove(form, "Old");
  EXPECT_EQ(lines(last), Rows{});
}

// A deletion, a transfer and an import that fail leave on the screen what they left in the tables.
TEST_F(EntryTest, AfterAFailureTheScreenShowsWhatIsStored) {
  const std::string last = addYear("C1", 2007);
  const auto books = [&](const Statements& lastLedgers, const Statements& ledgers) {
    for (const std::string& of : {last, table}) {
      exec("delete from " + of);
      int srno = 0;
      for (const std::string& name : of == last ? lastLedgers : ledgers) {
        put(of, std::to_string(++srno), name, "RENT", "3,1");
      }
    }
    open("C1", 2008);
  };
  FailingDeed deed{.what = "deleting in both years", .act = [&] {
                     remove(form, "Rent");
                     dialogs.clear();
                   }};
  deed.arrange = [&] {
    books({"Rent", "Bank"}, {"Cash", "Rent", "Bank"});
    form.click(form.mnuyrs[2]);
  };
  deed.result = [&] { return joined({stored(table), stored(last), held(form)}); };
  deed.next = {{"again", deed.act}};
  deed.place = "frmcrtb\tMNUDELETE_CLICK";
  deed.stops = false;
  deed.behind = 2;
  deed.check = [&] {
    const Rows before = held(form);
    form.click(form.mnurefresh);
    EXPECT_EQ(before, held(form));
  };
  failEachStatement(deed);

  deed.what = "moving a group";
  deed.arrange = [&] {
    books({}, {"Cash", "Rent"});
    form.click(form.mnugroup);
    chooseMove(form, "RENT", "BANKS");
  };
  deed.act = [&] { form.click(form.cmdupdate); };
  const auto move = [&] {
    if (form.cbogroup.find("RENT") == 0) return;
    chooseMove(form, "RENT", "BANKS");
    form.click(form.cmdupdate);
  };
  deed.next = {{"again", move}};
  deed.place = "frmcrtb\tCMDUPDATE_CLICK";
  deed.behind = 4;
  failEachStatement(deed);

  deed.what = "importing";
  deed.arrange = [&] {
    books({"Rent", "Bank"}, {"Cash"});
    exec("delete from " + table);
    yes();
  };
  deed.act = [&] { form.click(form.mnurefresh); };
  const auto refresh = [&] {
    if (value("select count(*) from " + table) == "0") yes();
    form.click(form.mnurefresh);
  };
  deed.next = {{"again", refresh}};
  deed.place = "frmcrtb\tLOADTRIALBAL";
  deed.behind = 1;
  deed.check = {};
  failEachStatement(deed);
}

// A save that ends well, and the lines cannot be read then: the next entry's fields say so.
TEST_F(EntryTest, LinesThatCannotBeReadAfterASaveAreSaid) {
  enter(form, "Bank", "BANKS", "5", "D");
  const std::string last = addYear("C1", 2007, {{"Old", "BANKS", 9}});
  open("C1", 2008).click(form.mnuyrs[2]);
  host().statements().failNext("Select * From " + last);
  enter(form, "Rent", "RENT", "1", "D");
  EXPECT_EQ(form.vsfm.rows(), 0);
  EXPECT_EQ(form.active(), &form.txtpart);
  EXPECT_EQ(form.lblhint.caption(), "The lines could not be read. F5 tries again.");
  form.click(form.mnurefresh);
  EXPECT_EQ(form.vsfm.rows(), 3);
  EXPECT_EQ(form.lblhint.caption(), "");
}

TEST_F(EntryTest, ALedgerThatCannotBeMadeIsNamed) {
  exec("rename table mast_part to mast_part_away");
  enter(form, "Nobody", "RENT", "1", "D");
  exec("rename table mast_part_away to mast_part");
  EXPECT_EQ(asked(), (Rows{{"Failed to Create Master [Nobody].", "OK", "information", "OK"}}));
  EXPECT_TRUE(stored().empty());
}

}  // namespace
}  // namespace quillet::support
