// What the editor offers while a line is typed: the lists, ledgers that are there already, group
// and side.
#include <gtest/gtest.h>

#include "forms/editor_fixture.h"

namespace quillet::support {
namespace {

TEST_F(EntryTest, TheSideIsProposedFromTheGroupAndDrawingsAsDebit) {
  group("LOOSE", 99);
  group("O'HARE", 22);
  group("DRAWINGS", 1);
  open("C1", 2008);
  const struct {
    const char *ledger, *group, *side;
  } cases[] = {
      {"x", "BANKS", "DR"},
      {"x", "RENT", "DR"},
      {"x", "CAPITAL", "CR"},
      {"x", "SALES", "CR"},
      {"x", " RENT ", "DR"},
      {"x", "O'HARE", "DR"},
      {"x", "LOOSE", ""},
      {"Life Cover, Rao", "drawings", "DR"},
      {"Drawings", "CAPITAL", "DR"},
      {"rao's drawing A/c.", "capital", "DR"},
      {"Rao, Drawing", "CAPITAL", "DR"},
      {"Income-Tax Paid", "CAPITAL", "DR"},
      {"Income Tax Paid, Refund", "CAPITAL", "CR"},
      {"Drawing Room Fund", "CAPITAL", "CR"},
      {"Redrawings", "CAPITAL", "CR"},
      {"Drawings of Stock", "SALES", "CR"},
  };
  for (const auto& c : cases) {
    form.press(keys::Escape);
    type(form.txtpart, c.ledger);
    type(form.txtgroup, c.group);
    form.focus(form.txtdrcr);
    EXPECT_EQ(form.txtdrcr.text(), c.side) << c.ledger << '|' << c.group;
  }
  enter(form, "x", "O'HARE", "1", "D");
  EXPECT_EQ(stored(), (Rows{{"1", "x", "O'HARE", "1", "1"}}));
}

TEST_F(EntryTest, TheListsFollowTheTyping) {
  addYear("C1", 2007, {{"Rent", "RENT", 1}, {"Rent Received", "SALES", -2}, {"Salary", "RENT", 1}});
  dialogs.queueAnswer(Answer::No);
  open("C1", 2008);
  messages();
  EXPECT_EQ(form.active(), &form.txtpart) << "an empty year is to be entered";
  press(form, "rent\b\b\b\b");
  EXPECT_FALSE(form.vsfp.visible()) << "for an empty field";
  form.press(U'r');
  EXPECT_TRUE(form.vsfp.visible());
  EXPECT_EQ(form.vsfp.cell(form.vsfp.current(), 0), "Rent");
  EXPECT_EQ(form.txtpart.text(), "r") << "a new ledger may be called so";
  form.press(keys::Down);
  EXPECT_EQ(form.txtpart.text(), "Rent Received");
  context().openForms.booksMoved(true);
  EXPECT_EQ(form.vsfp.rows(), 2) << "the names that were read anew follow the typing too";
  EXPECT_EQ(form.vsfp.cell(form.vsfp.current(), 0), "Rent Received") << "what is chosen stays";
  form.press(keys::Up);
  EXPECT_EQ(form.txtpart.text(), "Rent");
  form.press(keys::Tab);
  EXPECT_FALSE(form.vsfp.visible());
  EXPECT_EQ(form.active(), &form.txtgroup);
  press(form, "s\r");
  EXPECT_EQ(form.txtgroup.text(), "SALES") << "the beginning of a group stands for it";
  EXPECT_EQ(form.active(), &form.txtamount);
  EXPECT_TRUE(messages().empty());
}

// The text keeps what was typed; Right takes what the hint names.
TEST_F(EntryTest, NoSecondLedgerByAccident) {
  addYear("C1", 2007,
          {{"Elavanti Pharma", "RENT", 1}, {"CLOSING STOCK", "SALES", -2}, {"O'Hare", "RENT", 1}});
  ledger("Balmora");
  dialogs.queueAnswer(Answer::No);
  open("C1", 2008);
  messages();
  const std::string pharma = "Elavanti Pharma";
  const struct {
    std::string typed, offered, left;
  } cases[] = {
      {"elav", pharma, "New ledger \"elav\" beside \"" + pharma + "\". Shift+Tab goes back to it."},
      {"elavanti pharma", pharma, ""},
      {"Elavanti-Pharma.", pharma,
       "New ledger \"Elavanti-Pharma.\" beside \"" + pharma + "\". Shift+Tab goes back to it."},
      {pharma, "", ""},
      {"stock", "CLOSING STOCK",
       "New ledger \"stock\" beside \"CLOSING STOCK\". Shift+Tab goes back to it."},
      {"o\u2019hare", "O'Hare",
       "New ledger \"o\u2019hare\" beside \"O'Hare\". Shift+Tab goes back to it."},
      {"Zo", "", "New ledger \"Zo\". Shift+Tab goes back to it."},
      {".", "", "New ledger \".\". Shift+Tab goes back to it."},
      {"balmora", "", ""},  // another client's, which the list does not show
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.typed);
    form.click(form.mnuinsert);
    type(form.txtpart, c.typed);
    EXPECT_EQ(form.txtpart.text(), c.typed);
    EXPECT_EQ(
        form.lblhint.caption(),
        c.offered.empty() ? "" : "Right takes \"" + c.offered + "\", Enter keeps what is typed.");
    form.press(keys::Enter);
    EXPECT_EQ(form.txtpart.text(), c.typed);
    EXPECT_EQ(form.lblhint.caption(), c.left);
    if (!c.left.empty()) form.press(keys::BackTab);
    form.focus(form.txtpart);
    form.press(keys::Right);
    EXPECT_EQ(form.txtpart.text(), c.typed) << "the selected text is left, at its end";
    form.press(keys::Right);
    EXPECT_EQ(form.txtpart.text(), c.offered.empty() ? c.typed : c.offered);
    form.press(keys::Escape);
  }
  EXPECT_EQ(messages(), Texts{"Specify a Group."}) << "a new ledger is taken back without that";
  EXPECT_EQ(value("select count(*) from Mast_Part"), "4");
}

TEST_F(EntryTest, TheGroupIsProposedForALedgerThatHasOne) {
  addYear("C1", 2007, {{"Rent", "RENT", 1}, {"Bank", "BANKS", 1}});
  addYear("C2", 2008, {{"Fees", "RENT", 1}});
  addYear("C2", 2007, {{"Fees", "SALES", -1}, {"Bank", "SALES", 1}});
  addYear("C2", 2006, {{"Fees", "SALES", -1}});
  put(table, "1", "Rent", "SALES", "1,1");
  ledger("Idle");
  open("C1", 2008);
  EXPECT_EQ(form.vsfm.current(), 1);
  EXPECT_EQ(form.active(), &form.vsfm);
  const struct {
    std::string ledger, group;
    std::size_t statements;
  } cases[] = {
      {"rent", "SALES", 1}, {"Bank", "BANKS", 2}, {"Idle", "", 4},
      {"New", "", 1},       {"Fees", "SALES", 4},
  };
  Texts sent;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.ledger);
    form.click(form.mnuinsert);
    statements();
    press(form, c.ledger + "\r");
    sent = statements();
    EXPECT_EQ(sent.size(), c.statements);
    EXPECT_EQ(form.txtgroup.text(), c.group);
    EXPECT_EQ(form.active(), c.group.empty() ? &form.txtgroup : &form.txtamount);
  }
  const std::string fees = std::to_string(ledger("Fees"));
  Texts expected{
      "Select PartId,Particular From Mast_Part Where Particular='Fees' Order By PartId",
      "Select AllId From TAB_2 Where code_no='C1' and PartId=" + fees + " Order By srno Limit 1",
      "Select distinct tbl_nm from master", ""};
  for (const char* of : {"TAB_1", " Union All TAB_2", " Union All TAB_3"}) {
    std::string select = of;
    select.insert(select.find("TAB"), "Select AllId,Count(*) From ");
    expected[3] += select + " Where PartId=" + fees + " Group By AllId";
  }
  EXPECT_EQ(sent, expected);
  // Another ledger brings its own group or none; a group that a person chose stays.
  type(form.txtpart, "Bank");
  form.press(keys::Tab);
  EXPECT_EQ(form.txtgroup.text(), "BANKS");
  EXPECT_EQ(form.txtgroup.selLength(), 5U);
  type(form.txtpart, "New");
  form.press(keys::Tab);
  EXPECT_EQ(form.txtgroup.text(), "");
  press(form, "cap\r");
  type(form.txtpart, "Bank");
  form.press(keys::Enter);
  EXPECT_EQ(form.txtgroup.text(), "CAPITAL");
  EXPECT_EQ(form.active(), &form.txtgroup);
  press(form, "\r1\rD\r");
  EXPECT_EQ(stored().back(), (Texts{"2", "Bank", "CAPITAL", "1", "1"}));
  // Whatever cannot be looked up is not proposed.
  for (const char* failing :
       {"Select PartId", "Select AllId From", "distinct tbl_nm", "Count(*)"}) {
    SCOPED_TRACE(failing);
    form.click(form.mnuinsert);
    host().statements().failNext(failing);
    press(form, "Fees\r");
    EXPECT_EQ(trapped(), Texts{"frmcrtb\tLOOKLEDGERUP"});
    EXPECT_EQ(form.txtgroup.text() + form.lblhint.caption(), "");
    EXPECT_EQ(form.active(), &form.txtgroup);
  }
}

}  // namespace
}  // namespace quillet::support
