// Entering, merging, altering and deleting lines through the editor's fields.
#include <gtest/gtest.h>

#include "forms/editor_fixture.h"

namespace quillet::support {
namespace {

using Statements = std::vector<std::string>;

class EntryTest : public EditorTest {
 protected:
  EntryTest() : table(addYear("C1", 2008)), form(open("C1", 2008)) {}

  Rows stored() { return EditorTest::stored(table); }
  std::string onlyMessage(Icon icon) {
    const auto asked = dialogs.takeMessages();
    if (asked.size() != 1) return std::to_string(asked.size()) + " messages";
    EXPECT_EQ(asked[0].message.icon, icon);
    EXPECT_EQ(asked[0].message.buttons, Buttons::OK);
    return asked[0].message.text;
  }

  std::string table;
  frmcrtb& form;
};

TEST_F(EntryTest, ALineIsStoredShownAndTheFieldsAreClear) {
  enter(form, "Office Rent", "RENT", "12000", "D");
  EXPECT_EQ(stored(), (Rows{{"1", "Office Rent", "RENT", "12000", "1"}}));
  EXPECT_EQ(shown(form.vsfm), (Rows{{"Office Rent", "RENT", "12000.00", "DR"}}));
  EXPECT_EQ(form.txttotdeb[0].text(), "12,000.00");
  EXPECT_EQ(
      form.txtpart.text() + form.txtgroup.text() + form.txtamount.text() + form.txtdrcr.text(), "");
  EXPECT_EQ(form.active(), &form.txtpart);
  EXPECT_EQ(form.vsfp.find(0, "Office Rent"), 1) << "a new ledger joins the list";
  EXPECT_TRUE(messages().empty());
}

TEST_F(EntryTest, TheSamePairIsMergedUnderANewSerialNumber) {
  enter(form, "Office Rent", "RENT", "12000", "D");
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

TEST_F(EntryTest, WhatNetsToZeroLeavesNoRow) {
  enter(form, "Cash", "BANKS", "0.1", "D");
  enter(form, "Cash", "BANKS", "0.2", "D");
  EXPECT_EQ(stored(), (Rows{{"1", "Cash", "BANKS", "0.3", "1"}}));
  enter(form, "Cash", "BANKS", "0.3", "C");
  EXPECT_TRUE(stored().empty());
  EXPECT_EQ(form.vsfm.rows(), 0);
  EXPECT_EQ(form.txttotdeb[0].text(), "0.00");
}

TEST_F(EntryTest, SeveralRowsOfAPairBecomeOne) {
  exec("insert into TAB_1 values(1,'C1'," + std::to_string(ledger("Cash")) + "," +
       std::to_string(group("BANKS")) + ",10,1),(2,'C1'," + std::to_string(ledger("Cash")) + "," +
       std::to_string(group("BANKS")) + ",4,2)");
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
  dialogs.queueAnswer(Answer::Yes);
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
  const struct {
    const char *ledger, *group, *amount, *side;
    std::vector<std::string> messages;
  } cases[] = {
      {"",
       "RENT",
       "1",
       "D",
       {"Please specify Particulars.", "Cannot save the entry due to invalid data."}},
      {"x", "", "1", "D", {"Specify a Group.", "Cannot save the entry due to invalid data."}},
      {"x", "NOWHERE", "1", "D", {"Group does not Exist.", "Group does not exist."}},
      {"x", "RENT", "", "D", {"Cannot save the entry due to invalid data."}},
      {"x", "RENT", "0", "D", {"Cannot save the entry due to invalid data."}},
      {"x", "RENT", "0.004", "D", {"Cannot save the entry due to invalid data."}},
      {"x", "RENT", "abc", "D", {"Cannot save the entry due to invalid data."}},
      {"x", "RENT", "1e15", "D", {"Cannot save the entry due to invalid data."}},
      {"x", "RENT", "99999999999999.99", "D", {"Cannot save the entry due to invalid data."}},
      {"x", "RENT", "1", "", {"Only 'C' or 'c' and 'D' or 'd' are allowed."}},
      {"x", "RENT", "1", "x", {"Only 'C' or 'c' and 'D' or 'd' are allowed."}},
  };
  for (const auto& c : cases) {
    enter(form, c.ledger, c.group, c.amount, c.side);
    EXPECT_EQ(messages(), c.messages) << c.ledger << '|' << c.group << '|' << c.amount;
    EXPECT_EQ(form.active(), &form.txtdrcr) << "what was typed stays for correction";
    form.press(keys::Escape);
    EXPECT_TRUE(form.txtgroup.text().empty());
  }
  EXPECT_TRUE(stored().empty());
  EXPECT_TRUE(messages().empty()) << "giving an entry up asks for nothing";
  EXPECT_EQ(value("select count(*) from mast_part"), "0");
}

TEST_F(EntryTest, StoresAmountsToThePaisa) {
  const struct {
    const char *typed, *shown, *stored, *side;
  } cases[] = {{"999999999999.99", "999999999999.99", "999999999999.99", "1"},
               {"1,23,456.50", "123456.50", "123456.5", "1"},
               {"0.005", "0.01", "0.01", "1"},
               {"2.675", "2.68", "2.68", "1"},
               {".5", "0.50", "0.5", "1"},
               {"007", "7.00", "7", "1"},
               {"1000000000000000", "1000000000000000.00", "1000000000000000", "1"},
               {"-5", "5.00", "5", "2"}};
  for (const auto& c : cases) {
    enter(form, c.typed, "RENT", c.typed, "D");
    const std::string where = " from TAB_1 where srno=(select max(srno) from TAB_1)";
    EXPECT_EQ(value("select amt" + where),
              value("select cast('" + std::string(c.stored) + "' as double)"))
        << c.typed;
    EXPECT_EQ(value("select nid" + where), c.side) << c.typed;
    EXPECT_EQ(form.vsfm.cell(form.vsfm.rows(), 2), c.shown);
  }
}

TEST_F(EntryTest, KeepsAwkwardNamesExactly) {
  const std::string names[] = {R"(O'Brien \ "Söhne" 🙂)",
                               "%_\\",
                               "'); drop table TAB_1; --",
                               "\\",
                               "日本 (東京)",
                               "<b>&amp;"};
  for (const std::string& name : names) {
    enter(form, name, "RENT", "1", "D");
    EXPECT_EQ(form.vsfm.cell(form.vsfm.rows(), 0), name);
  }
  EXPECT_EQ(stored().size(), std::size(names));
  enter(form, "  Padded  ", "RENT", "1", "D");
  EXPECT_EQ(form.vsfm.cell(form.vsfm.rows(), 0), "Padded");
  // The box is full at what its column holds, and says so.
  type(form.txtpart, std::string(5000, 'x'));
  EXPECT_EQ(form.txtpart.text().size(), 100U);
  EXPECT_EQ(form.lblhint.caption(), "A ledger name holds at most 100 characters.");
  EXPECT_TRUE(messages().empty());
}

TEST_F(EntryTest, TheSideIsProposedFromTheGroup) {
  const struct {
    const char *group, *side;
  } cases[] = {
      {"BANKS", "DR"}, {"RENT", "DR"}, {"CAPITAL", "CR"}, {"SALES", "CR"}, {" RENT ", "DR"}};
  for (const auto& c : cases) {
    type(form.txtpart, "x");
    type(form.txtgroup, c.group);
    form.focus(form.txtdrcr);
    EXPECT_EQ(form.txtdrcr.text(), c.side) << c.group;
  }
  group("LOOSE", 99);
  frmcrtb& again = open("C1", 2008);
  type(again.txtpart, "x");
  type(again.txtgroup, "LOOSE");
  again.focus(again.txtdrcr);
  EXPECT_EQ(again.txtdrcr.text(), "");
}

TEST_F(EntryTest, TheSideBoxKeepsTheFocusUntilItHoldsASide) {
  type(form.txtpart, "x");
  type(form.txtgroup, "RENT");
  type(form.txtdrcr, "q");
  EXPECT_FALSE(form.focus(form.txtamount));
  EXPECT_EQ(form.active(), &form.txtdrcr);
  type(form.txtdrcr, "c");
  EXPECT_TRUE(form.focus(form.txtamount));
  EXPECT_EQ(form.txtdrcr.text(), "CR");
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
  form.vsfm.setCurrent(1);
  statements();
  form.click(form.mnualter);
  EXPECT_EQ(form.txtpart.text(), "Debtor");
  type(form.txtamount, "150");
  form.focus(form.txtdrcr);
  EXPECT_EQ(form.txtdrcr.text(), "CR") << "a line that stays in its group keeps its side";
  form.press(keys::Enter);
  EXPECT_EQ(statements()[1], "Delete from TAB_1 where code_no='C1' and srno=1");
  EXPECT_EQ(stored(),
            (Rows{{"2", "Rent", "RENT", "40", "1"}, {"3", "Debtor", "BANKS", "150", "2"}}));
  EXPECT_EQ(form.active(), &form.vsfm);
  EXPECT_EQ(form.vsfm.cell(form.vsfm.current(), 0), "Debtor");

  // Onto the pair of another line: both become one.
  form.press(keys::Enter);
  type(form.txtpart, "Rent");
  type(form.txtgroup, "RENT");
  type(form.txtdrcr, "D");
  form.press(keys::Enter);
  EXPECT_EQ(stored(), (Rows{{"1", "Rent", "RENT", "190", "1"}}));

  form.click(form.mnualter);
  form.press(keys::Escape);
  EXPECT_EQ(stored().size(), 1U);
  enter(form, "New", "RENT", "1", "D");
  EXPECT_EQ(stored().size(), 2U) << "an alteration given up leaves no trace";
}

TEST_F(EntryTest, DeletingAsksAndSparesTheNeighbour) {
  addYear("C2", 2008, {{"Other", "BANKS", 77}});
  enter(form, "Rent", "RENT", "40", "D");
  enter(form, "Bank", "BANKS", "5", "C");
  form.vsfm.setCurrent(1);
  dialogs.queueAnswer(Answer::No);
  form.click(form.mnudelete);
  const auto asked = dialogs.takeMessages();
  ASSERT_EQ(asked.size(), 1U);
  EXPECT_EQ(asked[0].message.text, "Do you want to delete the selected record?");
  EXPECT_EQ(asked[0].message.title, "Delete");
  EXPECT_EQ(asked[0].message.icon, Icon::none);
  EXPECT_EQ(stored().size(), 2U);
  form.focus(form.vsfm);
  messages();
  dialogs.queueAnswer(Answer::Yes);
  statements();
  form.press(keys::Delete);
  EXPECT_EQ(statements(), (Statements{"delete from TAB_1 where code_no='C1' and srno=1",
                                      "flush tables", "Select * From TAB_1 where code_no='C1'"}));
  EXPECT_EQ(stored(), (Rows{{"2", "Bank", "BANKS", "5", "2"}}));
  EXPECT_EQ(form.vsfm.current(), 1);
  EXPECT_EQ(value("select count(*) from TAB_1 where code_no='C2'"), "1");
}

TEST_F(EntryTest, BothYearsDeleteInBothTablesAndEnterIntoTheCurrentOne) {
  const std::string last = addYear("C1", 2007, {{"Rent", "RENT", 30}, {"Old", "BANKS", 9}});
  enter(form, "Rent", "RENT", "40", "D");
  frmcrtb& both = open("C1", 2008);
  both.click(both.mnuyrs[2]);
  enter(both, "Fresh", "BANKS", "1", "D");
  EXPECT_EQ(stored().size(), 2U);
  EXPECT_EQ(EditorTest::stored(last).size(), 2U);

  both.vsfm.setCurrent(both.vsfm.find(0, "Old"));
  both.click(both.mnualter);
  type(both.txtamount, "11");
  both.focus(both.txtdrcr);
  both.press(keys::Enter);
  EXPECT_EQ(EditorTest::stored(last).back()[3], "11") << "a line of last year alone stays there";

  both.vsfm.setCurrent(both.vsfm.find(0, "Rent"));
  dialogs.queueAnswer(Answer::Yes);
  statements();
  both.click(both.mnudelete);
  const auto sent = statements();
  EXPECT_EQ(sent[0], "delete from " + table + " where code_no='C1' and srno=1");
  EXPECT_EQ(sent[2], "delete from " + last + " where code_no='C1' and srno=1");
  EXPECT_EQ(shown(both.vsfm).size(), 2U);
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
    EXPECT_EQ(EditorTest::stored(c.table).back()[1], c.ledger);
    EXPECT_EQ(form.vsfm.cell(form.vsfm.find(0, c.ledger), 2), "1.00");
  }
  // The editor was left in the view of the previous year, which the other client does not have.
  open("C2", 2008);
  enter(form, "E", "RENT", "1", "D");
  EXPECT_EQ(EditorTest::stored(other, "C2").size(), 1U);
  EXPECT_EQ(log(), Statements{});
}

// Whatever statement of a save fails: what is stored is shown, Enter again ends where the save
// would have ended, and any other deed begins with the books as they were before the save.
TEST_F(EntryTest, AfterAFailedSaveTheBooksEndRight) {
  const std::string last = addYear("C1", 2007, {{"Rent", "RENT", 7}});
  addYear("C2", 2008, {{"Other", "BANKS", 77}});
  const auto line = [&](int srno, const char* name, const char* of, const char* rest) {
    exec("insert into " + table + " values(" + std::to_string(srno) + ",'C1'," +
         std::to_string(ledger(name)) + "," + std::to_string(group(of)) + "," + rest + ")");
  };
  const auto books = [&](bool twice) {
    exec("delete from " + table);
    line(1, "Rent", "RENT", "100,1");
    line(2, "Bank", "BANKS", "5,2");
    if (twice) line(3, "Rent", "RENT", "11,2");
    open("C1", 2008);
  };
  const auto alter = [&](int row) {
    form.vsfm.setCurrent(row);
    form.click(form.mnualter);
  };
  const struct {
    const char* what;
    std::function<void()> arrange;
    bool allDeeds = false;
  } saves[] = {{"a new pair",
                [&] {
                  books(false);
                  fill(form, "Fresh", "BANKS", "10", "D");
                }},
               {"a pair that is there",
                [&] {
                  books(false);
                  fill(form, "Rent", "RENT", "40", "C");
                }},
               {"a pair of two rows",
                [&] {
                  books(true);
                  fill(form, "Rent", "RENT", "40", "C");
                }},
               {"a pair that comes to nothing",
                [&] {
                  books(false);
                  fill(form, "Rent", "RENT", "100", "C");
                }},
               {"an altered amount",
                [&] {
                  books(false);
                  alter(1);
                  type(form.txtamount, "150");
                  form.focus(form.txtdrcr);
                }},
               {"a line altered onto another's pair",
                [&] {
                  books(false);
                  alter(2);
                  fill(form, "Rent", "RENT", "5", "C");
                },
                true},
               {"the only line", [&] {
                  exec("delete from " + table);
                  line(4, "Rent", "RENT", "100,1");
                  open("C1", 2008);
                  alter(1);
                  fill(form, "Rent", "BANKS", "90", "D");
                }}};
  const auto back = [&](const std::string& client) {
    return [&, client] {
      open(client, 2008);
      open("C1", 2008);
    };
  };
  const auto otherYear = [&] {
    form.click(form.mnuyrs[1]);
    enter(form, "Rent", "RENT", "1", "D");
    form.click(form.mnuyrs[0]);
  };
  const auto pick = [&](const char* name) {
    form.press(keys::Escape);
    const int row = form.vsfm.find(0, name);
    if (row != 0) form.vsfm.setCurrent(row);
  };
  const Continuation again{"Enter", [&] { form.press(keys::Enter); }};
  const auto refreshAndEnter = [&] {
    form.click(form.mnurefresh);
    form.press(keys::Enter);
  };
  std::vector<Continuation> others{
      {"Escape", [&] { form.press(keys::Escape); }},
      {"closing and opening", back("C1")},
      {"F5 and Enter", refreshAndEnter},
      {"another line", [&] { enter(form, "Bank", "BANKS", "3", "D"); }},
      {"the other year", otherYear},
      {"another client", back("C2")},
      {"altering",
       [&] {
         pick("Rent");
         form.click(form.mnualter);
         type(form.txtamount, "8");
         form.focus(form.txtdrcr);
         form.press(keys::Enter);
       }},
      {"deleting",
       [&] {
         pick("Rent");
         dialogs.queueAnswer(Answer::Yes);
         form.click(form.mnudelete);
       }},
      {"the group view", [&] { form.click(form.mnugroup); }},
      {"the journal", [&] {
         form.click(form.mnujournal);
         dialogs.queueAnswer(Answer::Yes);
         form.desk().find("frmjrnl")->close();
       }}};
  for (Continuation& other : others) other.instead = other.act;
  for (const auto& save : saves) {
    FailingDeed deed{
        .what = save.what,
        .arrange =
            [&] {
              exec("delete from " + last + " where partid<>" + std::to_string(ledger("Rent")));
              exec("update " + last + " set amt=7");
              save.arrange();
            },
        .act = [&] { form.press(keys::Enter); },
        .result =
            [&] {
              Rows all = EditorTest::stored(table);
              for (const Rows& more :
                   {EditorTest::stored(last), shown(form.vsfm), shown(form.vsf1), totals(form)}) {
                all.insert(all.end(), more.begin(), more.end());
              }
              return all;
            },
        .next = {again},
        .place = "frmcrtb\tTXTDRCR_KEYPRESS",
        .stops = false,
        .behind = 1,
        .check = [&] { EXPECT_EQ(shown(form.vsfm), toBeShown(table)); }};
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
  const struct {
    const char* what;
    std::function<void()> between;
    Statements told;
    std::size_t rows;  // of Rent, after the editor was closed and opened
  } cases[] = {{"nothing", [] {}, {}, 1},
               {"a second failure",
                [&] { host().statements().failNext("insert into"); },
                {line + "It could not be written back. Opening the editor tries again."},
                1},
               {"entered elsewhere",
                [&] {
                  exec("insert into TAB_1 values(3,'C1'," + std::to_string(ledger("Rent")) + "," +
                       std::to_string(group("RENT")) + ",100,1)");
                },
                {changed},
                1},
               {"the group is gone",
                [&] { exec("delete from mast_allgrp where allgrp='RENT'"); },
                {changed},
                0},
               {"the year is gone",
                [&] {
                  exec("delete from TAB_1");
                  exec("delete from master where code_no='C1'");
                },
                {},
                0}};
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
    EXPECT_EQ(value("select count(*) from TAB_1"), std::to_string(c.rows));
    form.close();
    messages();
  }
}

// A row that has no serial number, or shares it, is a line like any other.
TEST_F(EntryTest, LinesWithoutANumberOfTheirOwnAreLikeAnyOther) {
  const std::string last = addYear("C1", 2007, {{"Old", "BANKS", 9}});
  exec("update " + last + " set srno=null");
  const auto names = [&](const std::string& of) {
    std::vector<std::string> all;
    for (const auto& row : rows("select particular,amt from " + of +
                                " t join mast_part p on p.partid=t.partid where code_no='C1' "
                                "order by particular,amt")) {
      all.push_back(row[0] + ' ' + row[1]);
    }
    return all;
  };
  const char* const ledgers[] = {"A", "B", "C", "D", "D", "E"};
  const std::vector<std::string> whole{"A 10", "B 11", "C 12", "D 13", "D 13", "E 15"};
  const char* const numbers[] = {"0", "null", "5", "5", "5", "6"};
  const auto begin = [&] {
    exec("delete from " + table);
    for (std::size_t i = 0; i < whole.size(); ++i) {
      exec("insert into " + table + " values(" + numbers[i] + ",'C1'," +
           std::to_string(ledger(ledgers[i])) + "," + std::to_string(group("RENT")) + "," +
           whole[i].substr(2) + ",1)");
    }
    open("C1", 2008);
  };
  for (const int view : {0, 2}) {
    for (std::size_t i = 0; i < whole.size(); ++i) {
      SCOPED_TRACE(whole[i]);
      std::vector<std::string> rest = whole;
      rest.erase(std::find(rest.begin(), rest.end(), whole[i]));
      begin();
      form.click(form.mnuyrs[view]);
      form.vsfm.sortBy(2);
      EXPECT_EQ(form.vsfm.rows(), view == 2 ? 7 : 6);
      form.vsfm.setCurrent(form.vsfm.find(0, ledgers[i]));
      form.click(form.mnualter);
      type(form.txtpart, "Z");
      form.focus(form.txtdrcr);
      form.press(keys::Enter);
      std::vector<std::string> altered = rest;
      altered.push_back("Z" + whole[i].substr(1));
      EXPECT_EQ(names(table), altered);
      begin();
      form.click(form.mnuyrs[view]);
      form.vsfm.setCurrent(form.vsfm.find(0, ledgers[i]));
      dialogs.queueAnswer(Answer::Yes);
      form.click(form.mnudelete);
      EXPECT_EQ(names(table), rest);
      EXPECT_EQ(form.vsfm.rows(), view == 2 ? 6 : 5);
    }
  }
  begin();
  form.click(form.mnugroup);
  form.cbogroup.choose(form.cbogroup.find("RENT"));
  form.cbotgroup.choose(form.cbotgroup.find("SALES"));
  dialogs.queueAnswer(Answer::Yes);
  form.click(form.cmdupdate);
  EXPECT_EQ(form.cbogroup.items(), std::vector<std::string>{"SALES"});
  EXPECT_EQ(form.vsf3.rows(), 6);
  // The previous year's, in its own view.
  open("C1", 2008).click(form.mnuyrs[1]);
  form.vsfm.setCurrent(1);
  dialogs.queueAnswer(Answer::Yes);
  form.click(form.mnudelete);
  EXPECT_EQ(names(last), std::vector<std::string>{});
}

// A deletion, a transfer and an import that fail leave on the screen what they left in the tables.
TEST_F(EntryTest, AfterAFailureTheScreenShowsWhatIsStored) {
  const std::string last = addYear("C1", 2007);
  const auto fillTable = [&](const std::string& of, std::initializer_list<const char*> ledgers) {
    exec("delete from " + of);
    int srno = 0;
    for (const char* name : ledgers) {
      exec("insert into " + of + " values(" + std::to_string(++srno) + ",'C1'," +
           std::to_string(ledger(name)) + "," + std::to_string(group("RENT")) + ",3,1)");
    }
  };
  const auto yes = [&] { dialogs.queueAnswer(Answer::Yes); };
  const auto screen = [&] {
    const Rows before = held(form);
    form.click(form.mnurefresh);
    EXPECT_EQ(before, held(form));
  };
  const auto books = [&] {
    Rows all = EditorTest::stored(table);
    for (const Rows& more : {EditorTest::stored(last), held(form)}) {
      all.insert(all.end(), more.begin(), more.end());
    }
    return all;
  };
  const auto removeRent = [&] {
    yes();
    form.vsfm.setCurrent(form.vsfm.find(0, "Rent"));
    form.click(form.mnudelete);
    dialogs.clear();
  };
  failEachStatement({.what = "deleting in both years",
                     .arrange =
                         [&] {
                           fillTable(last, {"Rent", "Bank"});
                           fillTable(table, {"Cash", "Rent", "Bank"});
                           open("C1", 2008).click(form.mnuyrs[2]);
                         },
                     .act = removeRent,
                     .result = books,
                     .next = {{"again", removeRent}},
                     .place = "frmcrtb\tMNUDELETE_CLICK",
                     .stops = false,
                     .behind = 2,
                     .check = screen});
  const auto move = [&] {
    if (form.cbogroup.find("RENT") == 0) return;
    form.cbogroup.choose(form.cbogroup.find("RENT"));
    form.cbotgroup.choose(form.cbotgroup.find("BANKS"));
    yes();
    form.click(form.cmdupdate);
  };
  failEachStatement({.what = "moving a group",
                     .arrange =
                         [&] {
                           fillTable(last, {});
                           fillTable(table, {"Cash", "Rent"});
                           open("C1", 2008).click(form.mnugroup);
                           form.cbogroup.choose(form.cbogroup.find("RENT"));
                           form.cbotgroup.choose(form.cbotgroup.find("BANKS"));
                           yes();
                         },
                     .act = [&] { form.click(form.cmdupdate); },
                     .result = books,
                     .next = {{"again", move}},
                     .place = "frmcrtb\tCMDUPDATE_CLICK",
                     .stops = false,
                     .behind = 4,
                     .check = screen});
  const auto refresh = [&] {
    if (value("select count(*) from " + table) == "0") yes();
    form.click(form.mnurefresh);
  };
  failEachStatement({.what = "importing",
                     .arrange =
                         [&] {
                           fillTable(last, {"Rent", "Bank"});
                           fillTable(table, {"Cash"});
                           open("C1", 2008);
                           exec("delete from " + table);
                           yes();
                         },
                     .act = [&] { form.click(form.mnurefresh); },
                     .result = books,
                     .next = {{"again", refresh}},
                     .place = "frmcrtb\tLOADTRIALBAL",
                     .stops = false,
                     .behind = 1});
}

TEST_F(EntryTest, WhatCannotBePutBackYetIsNotForgotten) {
  enter(form, "Rent", "RENT", "100", "D");
  fill(form, "Rent", "RENT", "10", "D");
  for (int attempt = 0; attempt < 2; ++attempt) {
    host().statements().failNext("insert into TAB_1");
    form.press(keys::Enter);
    EXPECT_EQ(stored(), Rows{});
  }
  form.press(keys::Enter);
  EXPECT_EQ(stored(), (Rows{{"1", "Rent", "RENT", "110", "1"}}));
  EXPECT_EQ(log().size(), 2U);
}

TEST_F(EntryTest, ALedgerThatCannotBeMadeIsNamed) {
  exec("rename table mast_part to mast_part_away");
  enter(form, "Nobody", "RENT", "1", "D");
  exec("rename table mast_part_away to mast_part");
  EXPECT_EQ(onlyMessage(Icon::information), "Failed to Create Master [Nobody].");
  EXPECT_TRUE(stored().empty());
}

}  // namespace
}  // namespace quillet::support
