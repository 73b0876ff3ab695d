// Entering, merging, altering and deleting lines through the editor's fields.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>

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
  } cases[] = {{"BANKS", "DR"}, {"RENT", "DR"}, {"CAPITAL", "CR"}, {"SALES", "CR"}};
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

TEST_F(EntryTest, AFailureInTheMiddleIsLoggedAndEnterTriesAgain) {
  enter(form, "Rent", "RENT", "40", "D");
  failEachStatement(
      {.what = "entering a pair that is there",
       .arrange =
           [&] {
             exec("delete from TAB_1");
             exec("insert into TAB_1 values(1,'C1'," + std::to_string(ledger("Rent")) + "," +
                  std::to_string(group("RENT")) + ",40,1)");
             form.REFRESHTB();
             fill(form, "Rent", "RENT", "2", "D");
           },
       .act = [&] { form.press(keys::Enter); },
       .next = {{"Enter again",
                 [&] { form.press(keys::Enter); },
                 {},
                 [&] {
                   EXPECT_EQ(stored().size(), 1U);
                   EXPECT_TRUE(messages().empty());
                 }}},
       .place = "frmcrtb\tTXTDRCR_KEYPRESS",
       .behind = 2,
       .check =
           [&] { EXPECT_EQ(form.txtamount.text(), "2.00") << "what was typed is still there"; }});
}

TEST_F(EntryTest, ALedgerThatCannotBeMadeIsNamed) {
  exec("rename table mast_part to mast_part_away");
  enter(form, "Nobody", "RENT", "1", "D");
  exec("rename table mast_part_away to mast_part");
  EXPECT_EQ(onlyMessage(Icon::information), "Failed to Create Master [Nobody].");
  EXPECT_TRUE(stored().empty());
}

// Whatever is entered, the stored balance of each pair is the sum of what was entered on it.
TEST_F(EntryTest, AnySequenceOfEntriesAddsUp) {
  std::mt19937 random(4711);
  std::map<std::pair<int, int>, long> paise;
  const char* ledgers[] = {"A", "B", "C"};
  const char* groups[] = {"RENT", "BANKS"};
  for (int i = 0; i < 150; ++i) {
    const int l = static_cast<int>(random() % 3);
    const int g = static_cast<int>(random() % 2);
    const long amount =
        random() % 4 == 0 ? std::labs(paise[{l, g}]) : static_cast<long>(random() % 100000) + 1;
    if (amount == 0) continue;
    const bool isDebit = random() % 2 == 0;
    enter(form, ledgers[l], groups[g],
          std::to_string(amount / 100) + "." + (amount % 100 < 10 ? "0" : "") +
              std::to_string(amount % 100),
          isDebit ? "D" : "C");
    paise[{l, g}] += isDebit ? amount : -amount;
  }
  for (const auto& [pair, sum] : paise) {
    const std::string where =
        " from TAB_1 where partid=" + std::to_string(ledger(ledgers[pair.first])) +
        " and allid=" + std::to_string(group(groups[pair.second]));
    EXPECT_EQ(value("select count(*)" + where), sum == 0 ? "0" : "1");
    EXPECT_EQ(value("select coalesce(round(sum(if(nid=2,-amt,amt))*100),0)" + where),
              std::to_string(sum));
  }
  EXPECT_EQ(value("select count(*) from TAB_1 where amt<=0"), "0");
  EXPECT_EQ(value("select count(*)-count(distinct srno) from TAB_1"), "0");
}

}  // namespace
}  // namespace quillet::support
