// Entering, merging, altering and deleting lines through the editor's fields.
#include <gtest/gtest.h>

#include "forms/editor_fixture.h"

namespace quillet::support {
namespace {

TEST_F(EntryTest, TheSamePairIsMergedUnderANewSerialNumber) {
  enter(form, "Office Rent", "RENT", "12000", "D");
  EXPECT_EQ(form.vsfp.find(0, "Office Rent"), 1) << "a new ledger joins the list";
  enter(form, "Bank", "BANKS", "1", "D");
  const std::string part = std::to_string(ledger("Office Rent"));
  const std::string all = std::to_string(group("RENT"));
  statements();
  enter(form, "office rent", "rent", "2000", "c");
  EXPECT_EQ(
      statements(),
      (Texts{"Select PartId,Particular From Mast_Part Where Particular='office rent' Order By "
             "PartId",
             "select mast_gunder.ggid from mast_gunder,mast_allgrp where "
             "mast_allgrp.allgrp='rent' and mast_allgrp.gid = mast_gunder.gid",
             "SELECT ALLID FROM MAST_ALLGRP WHERE ALLGRP='rent'",
             "select * from TAB_1 where code_no='C1' and partid = " + part + " and allid = " + all,
             "Delete from TAB_1 where code_no='C1' and srno=1", "flush tables",
             "select max(srno) as maxsr from TAB_1 where code_no = 'C1'",
             "insert into TAB_1 values(3,'C1'," + part + "," + all + ",10000,1)", "flush tables",
             "Select * From TAB_1 where code_no='C1'"}));
  EXPECT_EQ(stored(),
            (Rows{{"2", "Bank", "BANKS", "1", "1"}, {"3", "Office Rent", "RENT", "10000", "1"}}));
  // Several rows of a pair, as a merge in a master leaves them, become one.
  put(table, "4", "Bank", "BANKS", "10,1");
  put(table, "5", "Bank", "BANKS", "4,2");
  enter(form, "Bank", "BANKS", "1", "D");
  EXPECT_EQ(stored().back(), (Texts{"4", "Bank", "BANKS", "8", "1"}));
}

TEST_F(EntryTest, InvisibleCharactersAndBlanksDoNotMakeALedger) {
  enter(form, "\u200BRent\u00A0 Paid\uFEFF ", " sa\u200Bles", "1", "C");
  EXPECT_EQ(stored(), (Rows{{"1", "Rent Paid", "SALES", "1", "2"}}));
  // Names that were stored otherwise go on working, typed plainly or taken from the list.
  exec("insert into Mast_Part values(70,'Old\u200B  Rent'),(71,' Fees')");
  exec("insert into Mast_AllGrp values(80,22,' OLD  GROUP','Y')");
  form.click(form.mnuall);
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
  EXPECT_EQ(messages(), Texts());
  enter(form, "\u200B", "RENT", "1", "D");
  EXPECT_EQ(messages(),
            (Texts{"Please specify Particulars.", "Cannot save the entry due to invalid data."}));
}

TEST_F(EntryTest, ANameThatTheDatabaseTakesForAnotherIsAskedAbout) {
  exec("insert into Mast_Part values(70,'m²')");
  // A group is never taken for another.
  exec("insert into Mast_AllGrp values(80,22,'G²','Y')");
  open("C1", 2008);
  enter(form, "m²", "G2", "1", "D");
  EXPECT_EQ(messages(), (Texts{"Group does not Exist.", "Group does not exist."}));
  form.press(keys::Escape);
  const std::string question =
      "There is 'm²', and the database cannot tell 'M2' from it.\r\n\r\nDo you mean 'm²'?";
  dialogs.queueAnswer(Answer::No);
  enter(form, "M2", "RENT", "10", "D");
  EXPECT_EQ(messages(), Texts{question});
  EXPECT_EQ(form.txtpart.text(), "M2");
  EXPECT_EQ(form.active(), &form.txtpart);
  EXPECT_NE(form.lblhint.caption().find("Choose a name"), std::string::npos);
  EXPECT_TRUE(stored().empty());
  EXPECT_EQ(value("select count(*) from Mast_Part"), "1");
  yes();
  type(form.txtdrcr, "D");
  form.press(keys::Enter);
  EXPECT_EQ(messages(), Texts{question});
  EXPECT_EQ(stored(), (Rows{{"1", "m²", "RENT", "10", "1"}}));
  enter(form, "M²", "RENT", "1", "D");
  EXPECT_EQ(messages(), Texts()) << "only case differs";
}

TEST_F(EntryTest, RefusesWhatIsNotALine) {
  const std::string invalid = "Cannot save the entry due to invalid data.";
  const std::string side = "Only 'C' or 'c' and 'D' or 'd' are allowed.";
  const std::string noAmount = " is not an amount: type digits and at most one point.";
  const std::string isNew = "New ledger \"x\". Shift+Tab goes back to it.";
  const std::string tooLarge = " is too large: type at most 13 digits before the point.";
  const struct {
    const char *ledger, *group, *amount, *side;
    Texts messages;
    std::string hint;
  } cases[] = {
      {"", "RENT", "1", "D", {invalid}, ""},
      {"", "RENT", "1", "x", {side}, ""},
      {"x", "", "1", "D", {"Specify a Group.", invalid}, isNew},
      {"x", "NOWHERE", "1", "D", {"Group does not Exist.", "Group does not exist."}, isNew},
      {"x", "RENT", "", "D", {invalid}, isNew},
      {"x", "RENT", "0.004", "D", {invalid}, isNew},
      {"x", "RENT", "abc", "D", {invalid}, "\"abc\"" + noAmount},
      {"x", "RENT", "1e15", "D", {invalid}, "\"1e15\"" + noAmount},
      {"x", "RENT", "-99999999999999.99", "D", {invalid}, "\"-99999999999999.99\"" + tooLarge},
      {"x", "RENT", "1", "", {side}, isNew},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.ledger + std::string("|") + c.group + '|' + c.amount + '|' + c.side);
    fill(form, c.ledger, c.group, c.amount, "D");
    EXPECT_EQ(form.lblhint.caption(), c.hint);
    type(form.txtdrcr, c.side);
    form.press(keys::Enter);
    EXPECT_EQ(messages(), c.messages);
    const bool group = c.group == std::string("NOWHERE");
    EXPECT_EQ(form.active(), group ? &form.txtgroup : &form.txtdrcr) << "to be corrected";
    form.press(keys::Escape);
    EXPECT_TRUE(form.txtgroup.text().empty());
  }
  EXPECT_TRUE(stored().empty());
  EXPECT_TRUE(messages().empty()) << "giving an entry up asks for nothing";
  EXPECT_EQ(value("select count(*) from mast_part"), "0");
  // The box is full at what its column holds, and says so.
  type(form.txtpart, std::string(101, 'x'));
  EXPECT_EQ(form.lblhint.caption(), "A ledger name holds at most 100 characters.");
  form.press(keys::Escape);
  exec("rename table mast_part to mast_part_away");
  enter(form, "Nobody", "RENT", "1", "D");
  exec("rename table mast_part_away to mast_part");
  EXPECT_EQ(asked(), (Rows{{"Failed to Create Master [Nobody].", "OK", "information", "OK"}}));
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
  EXPECT_EQ(form.vsfm.current(), 1) << "the corrected line stands at the end";

  // Onto the pair of another line: both become one.
  pick(form, "Debtor");
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
  EXPECT_EQ(statements(), (Texts{"delete from TAB_1 where code_no='C1' and srno=1", "flush tables",
                                 "Select * From TAB_1 where code_no='C1'"}));
  EXPECT_EQ(stored(), (Rows{{"2", "Bank", "BANKS", "5", "2"}}));
  EXPECT_EQ(form.vsfm.current(), 1);
}

TEST_F(EntryTest, ALineOfLastYearAloneIsAlteredThere) {
  const std::string last = addYear("C1", 2007, {{"Old", "BANKS", 9}});
  enter(form, "Now", "RENT", "1", "D");
  open("C1", 2008).click(form.mnuyrs[2]);
  alter(form, "Old", "11");
  EXPECT_EQ(stored(last), (Rows{{"1", "Old", "BANKS", "11", "1"}}));
  EXPECT_EQ(stored().size(), 1U);
}

// A row that has no serial number, or shares it, is a line like any other.
class UnnumberedLines : public EntryTest {
 protected:
  UnnumberedLines() : last(addYear("C1", 2007, {{"Old", "BANKS", 9}})) {
    exec("update " + last + " set srno=null");
  }
  void begin(int view) {
    exec("delete from " + table);
    const char* const numbers[] = {"0", "null", "5", "5", "5", "6"};
    for (int i = 0; i < std::ssize(whole); ++i) {
      put(table, numbers[i], whole[i][0], "RENT", whole[i][1] + ",1");
    }
    open("C1", 2008).click(form.mnuyrs[view]);
  }
  Rows lines(const std::string& of) {
    return rows("select particular,amt from " + of +
                " t join mast_part p on p.partid=t.partid where code_no='C1' order by 1,2");
  }

  const Rows whole{{"A", "10"}, {"B", "11"}, {"C", "12"}, {"D", "13"}, {"D", "13"}, {"E", "15"}};
  std::string last;
};

TEST_F(UnnumberedLines, AreDeletedAndAlteredOneByOne) {
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
  open("C1", 2008).click(form.mnuyrs[1]);
  remove(form, "Old");
  EXPECT_EQ(lines(last), Rows{});
}

TEST_F(UnnumberedLines, AreNotTakenForTheirNeighbours) {
  // While the lines cannot be read.
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
  // When all of them move.
  begin(0);
  form.click(form.mnugroup);
  chooseMove(form, "RENT", "SALES");
  form.click(form.cmdupdate);
  EXPECT_EQ(form.cbogroup.items(), Texts{"SALES"});
  EXPECT_EQ(form.vsf3.rows(), 6);
}

}  // namespace
}  // namespace quillet::support
