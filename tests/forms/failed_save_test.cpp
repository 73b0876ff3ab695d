// What is stored and shown after a statement of a save, a deletion or an import failed.
#include <gtest/gtest.h>

#include "forms/editor_fixture.h"

namespace quillet::support {
namespace {

class FailedSave : public EntryTest {
 protected:
  FailedSave() : last(addYear("C1", 2007, {{"Rent", "RENT", 7}})) {}

  struct Save {
    const char* what;
    std::vector<int> lines;  // of the books before, by their serial numbers
    int altered;             // row, 0 for a new line
    const char *ledger, *group, *amount, *side;
    bool allDeeds = false;
  };
  // The books before the save, and the fields ready for Enter.
  void arrange(const Save& save) {
    const struct {
      const char *ledger, *group, *figures;
    } lines[] = {{"Rent", "RENT", "100,1"},
                 {"Bank", "BANKS", "5,2"},
                 {"Rent", "RENT", "11,2"},
                 {"Rent", "RENT", "100,1"}};
    exec("delete from " + last + " where partid<>" + std::to_string(ledger("Rent")));
    exec("update " + last + " set amt=7");
    exec("delete from " + table);
    for (const int i : save.lines) {
      const auto& line = lines[i - 1];
      put(table, std::to_string(i), line.ledger, line.group, line.figures);
    }
    open("C1", 2008);
    if (save.altered != 0) {
      form.vsfm.setCurrent(save.altered);
      form.click(form.mnualter);
    }
    fill(form, save.ledger, save.group, save.amount, save.side);
  }

  // What may be done after a failure in place of another Enter.
  std::vector<Continuation> otherDeeds() {
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
    std::vector<Continuation> deeds{
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
    for (Continuation& deed : deeds) deed.instead = deed.act;
    return deeds;
  }

  // Rent of 100 is stored, and taken out by a save that fails.
  void takeOutRent() {
    put(table, "1", "Rent", "RENT", "100,1");
    open("C1", 2008);
    host().statements().failNext("insert into");
    enter(form, "Rent", "RENT", "40", "C");
    EXPECT_EQ(stored(), Rows{});
  }

  std::string last;
};

// Whatever statement of a save fails: what is stored is shown, Enter again ends where the save
// would have ended, and any other deed begins with the books as they were before the save.
TEST_F(FailedSave, AfterAFailedSaveTheBooksEndRight) {
  addYear("C2", 2008, {{"Other", "BANKS", 77}});
  const Save saves[] = {
      {"a new pair", {1, 2}, 0, "Fresh", "BANKS", "10", "D"},
      {"a pair that is there", {1, 2}, 0, "Rent", "RENT", "40", "C"},
      {"a pair of two rows", {1, 2, 3}, 0, "Rent", "RENT", "40", "C"},
      {"a pair that comes to nothing", {1, 2}, 0, "Rent", "RENT", "100", "C"},
      {"an altered amount", {1, 2}, 1, "Rent", "RENT", "150", "D"},
      {"a line altered onto another's pair", {1, 2}, 2, "Rent", "RENT", "5", "C", true},
      {"the only line", {4}, 1, "Rent", "BANKS", "90", "D"},
  };
  const std::vector<Continuation> others = otherDeeds();
  for (const Save& save : saves) {
    FailingDeed deed{.what = save.what, .act = [&] { form.press(keys::Enter); }};
    deed.arrange = [&] { arrange(save); };
    deed.result = [&] {
      return joined(
          {stored(table), stored(last), shown(form.vsfm), shown(form.vsf1), totals(form)});
    };
    deed.check = [&] {
      EXPECT_EQ(shown(form.vsfm), toBeShown(table));
      EXPECT_EQ(totals(form), totalsToBeShown(table));
    };
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
TEST_F(FailedSave, WhatCannotBePutBackIsNamed) {
  const std::string line = "Rent, RENT, 100.00 DR\r\nwas taken out by a save that failed. ";
  const std::string changed =
      line + "The books have changed since. Please enter it again if it is missing.";
  const std::string later = line + "It could not be written back. Opening the editor tries again.";
  const auto secondFailure = [&] { host().statements().failNext("insert into"); };
  const auto halfPosted = [&] {
    exec("create trigger refuses before insert on TAB_1 for each row signal sqlstate '45000'");
    form.click(form.mnujournal);
    EXPECT_EQ(&form, context().openForms.active()) << "nothing is posted onto such books";
    messages();
    context().unposted.add({"TAB_1", "C1"}, {ledger("Rent"), group("RENT")}, Money::ofPaise(500));
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
    Texts told;
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
    takeOutRent();
    c.between();
    form.close();
    EXPECT_EQ(messages(), c.told);
    form.show();
    EXPECT_EQ(value("select concat(count(*),' ',ifnull(sum(amt),0)) from TAB_1"), c.rows);
    form.close();
    messages();
  }
}

// A line that had neither ledger nor group goes back as it was, and so it is replaced.
TEST_F(FailedSave, ALineWithoutNamesGoesBackToo) {
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
}

// A year that was deleted is not offered for import while the editor closes.
TEST_F(FailedSave, ClosingOverADeletedYearAsksNothing) {
  takeOutRent();
  exec("delete from master where tbl_nm='TAB_1'");
  form.close();
  EXPECT_EQ(messages(), Texts{});
}

// A line that still cannot be put back waits: nothing else changes the lines until it can.
TEST_F(FailedSave, WhileALineCannotBePutBackTheOthersStay) {
  const std::string asked = "Do you want to delete the selected record?";
  const std::string told =
      "Rent, RENT, 100.00 DR\r\nwas taken out by a save that failed. It could not be written back. "
      "Please try again.";
  const Texts rent{"1", "Rent", "RENT", "100", "1"};
  const Texts bank{"2", "Bank", "BANKS", "5", "2"};
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
    Texts refused;
    Rows result;
  } cases[] = {{"Enter", enterAgain, {}, {bank, {"3", "Rent", "RENT", "60", "1"}}},
               {"deleting", removeBank, {asked, told}, {rent}},
               {"moving a group", moveBank, {told}, {rent, {"2", "Bank", "SALES", "5", "2"}}},
               {"the journal", [&] { lookIntoJournal(form); }, {told}, {rent, bank}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    exec("delete from " + table);
    put(table, "1", "Rent", "RENT", "100,1");
    put(table, "2", "Bank", "BANKS", "5,2");
    open("C1", 2008);
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

// A deletion and an import that fail leave on the screen what they left in the tables.
class FailedChange : public FailedSave {
 protected:
  FailedChange() {
    deed.result = [&] { return joined({stored(table), stored(last), held(form)}); };
    deed.check = [&] {
      const Rows before = held(form);
      form.click(form.mnurefresh);
      EXPECT_EQ(before, held(form));
    };
    deed.stops = false;
  }

  void openOn(const Texts& lastLedgers, const Texts& ledgers) {
    for (const std::string& of : {last, table}) {
      exec("delete from " + of);
      int srno = 0;
      for (const std::string& name : of == last ? lastLedgers : ledgers) {
        put(of, std::to_string(++srno), name, "RENT", "3,1");
      }
    }
    open("C1", 2008);
  }

  FailingDeed deed;
};

TEST_F(FailedChange, DeletingInBothYears) {
  deed.arrange = [&] {
    openOn({"Rent", "Bank"}, {"Cash", "Rent", "Bank"});
    form.click(form.mnuyrs[2]);
  };
  deed.act = [&] {
    remove(form, "Rent");
    dialogs.clear();
  };
  deed.next = {{"again", deed.act}};
  deed.place = "frmcrtb\tMNUDELETE_CLICK";
  deed.behind = 2;
  failEachStatement(deed);
}

TEST_F(FailedChange, Importing) {
  deed.arrange = [&] {
    openOn({"Rent", "Bank"}, {"Rent"});
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
  deed.check = [&] {
    if (!stored(table).empty()) {
      EXPECT_EQ(shown(form.vsfm), toBeShown(table));
    }
  };
  failEachStatement(deed);
}

// A save that ends well, and the lines cannot be read then: the next entry's fields say so.
TEST_F(FailedSave, LinesThatCannotBeReadAfterASaveAreSaid) {
  enter(form, "Bank", "BANKS", "5", "D");
  open("C1", 2008).click(form.mnuyrs[2]);
  host().statements().failNext("Select * From " + last);
  enter(form, "Fresh", "RENT", "1", "D");
  EXPECT_EQ(form.vsfm.rows(), 0);
  EXPECT_EQ(form.active(), &form.txtpart);
  EXPECT_EQ(form.lblhint.caption(), "The lines could not be read. F5 tries again.");
  form.click(form.mnurefresh);
  EXPECT_EQ(form.vsfm.rows(), 3);
  EXPECT_EQ(form.lblhint.caption(), "");

  // So do they when the import fails that a save which leaves no line is followed by.
  exec("delete from " + table);
  put(table, "1", "Rent", "RENT", "3,1");
  open("C1", 2008);
  host().statements().failNext("Insert into " + table + " select");
  yes();
  enter(form, "Rent", "RENT", "3", "C");
  EXPECT_EQ(form.lblhint.caption(), "The previous year could not be imported. F5 asks again.");
  yes();
  form.click(form.mnurefresh);
  EXPECT_EQ(form.vsfm.rows(), 1);
  EXPECT_EQ(form.lblhint.caption(), "");
}

}  // namespace
}  // namespace quillet::support
