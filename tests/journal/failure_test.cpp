// A statement that fails in the middle of a voucher, and whatever is done next: the trial balance
// ends as the original figures and the journal explain it.
#include "books/amount.h"
#include "books/posting.h"
#include "data/errors.h"
#include "journal/messages.h"
#include "journal_fixture.h"
#include "masters/frmtbledmas.h"

namespace quillet::support {
namespace {

class JournalFailure : public JournalTest {
 protected:
  JournalFailure() {
    for (const char* client : {"C1", "C2"}) addYear(client, 2008);
    for (const char* name : {"Cash", "Rent", "Loan", "Stock"}) ledger(name);
  }

  // Voucher 1 of C1 brings the rent to nothing; voucher 2 is the neighbour's.
  void arrangeBooks() {
    for (const char* table : {"JRNL_1", "TAB_1"}) exec(std::string("delete from ") + table);
    exec(
        "insert into TAB_1 values(1,'C1',1,1,540,1),(3,'C1',4,4,7,2),(1,'C2',1,1,64,1),"
        "(2,'C2',2,3,24,2)");
    exec(
        "insert into JRNL_1 values('C1',1,1,'2008-06-02',2,3,-40,''),"
        "('C1',1,2,'2008-06-02',1,1,40,''),('C2',2,1,'2008-06-02',2,3,6,''),"
        "('C2',2,2,'2008-06-02',1,1,-6,'')");
    context().unposted = {};
    open("C1", 2008);
  }
  // What the pairs hold besides the original figures and the journal's lines, in paise.
  Rows unexplained() {
    return rows(
        "select code_no,partid,allid,sum(p) from ("
        "select code_no,partid,allid,round(if(nid=1,amt,-amt)*100) p from TAB_1 union all "
        "select code_no,PartId,AllId,-round(Amount*100) from JRNL_1 union all "
        "select 'C1',1,1,-50000 union all select 'C1',2,3,-4000 union all "
        "select 'C1',4,4,700 union all select 'C2',1,1,-7000 union all select 'C2',2,3,3000"
        ") f group by code_no,partid,allid having sum(p)<>0");
  }
  Rows amounts() { return rows("select VID,PartId,Amount from JRNL_1 where code_no='C1'"); }

  void leaveEntry() {
    if (!journal().Frame2.visible()) return;
    yes();
    journal().press(keys::Escape);
  }
  // False when the journal does not hold the voucher.
  bool pickVoucher(long vid) {
    leaveEntry();
    pick(journal().vsf.findId(vid));
    return journal().vsf.current() != 0;
  }
  void remove() {
    yes();
    journal().click(journal().Command1);
  }
  void removeVoucher(long vid) {
    if (pickVoucher(vid)) remove();
  }
  // The balance beside a line counts the whole voucher as posted.
  void checkCash(long vid) {
    frmjrnl& form = journal();
    ASSERT_EQ(form.txtledger[1].text(), "Cash");
    const double others = std::stod(
        value("select 500+ifnull(sum(Amount),0) from JRNL_1 where code_no='C1' and PartId=1 and "
              "AllId=1 and VID<>" +
              std::to_string(vid)));
    const Money typed = shownAmount(form.txtdramt[1].text()) - shownAmount(form.txtcramt[1].text());
    EXPECT_EQ(form.txtcurbal[1].text(),
              host().formatgen(others + typed.rupees(), "#,##0.00") + "Dr");
  }
  void changeLedger(long vid) {
    frmjrnl& form = journal();
    form.press(keys::Enter);
    ASSERT_TRUE(form.Frame2.visible());
    checkCash(vid);
    fillLine(0, {"Loan", "CAPITAL", "9", form.cboside[0].text() == "By"});
    type(form.cboside[0].text() == "By" ? form.txtcramt[1] : form.txtdramt[1], "9");
    form.click(form.cmdupdate);
  }
  void passAnother(const std::string& ledgerName, const std::string& groupName) {
    leaveEntry();
    pass("02062008",
         {{ledgerName, groupName, "3"}, {"Stock", "SALES", "2", false}, {"Rent", "", "1", false}});
  }
  // Voucher 1 is taken out and still in the journal.
  void leaveHalfPosted() {
    pickVoucher(1);
    host().statements().failNext("Delete from JRNL_1");
    remove();
    host().statements().failNext("from TAB_1");
    closeJournal();
    EXPECT_EQ(context().unposted.pairs({"tab_1", "c1 "}).size(), 2U);
  }
  // Says so when anything is half posted.
  void closeJournal() {
    leaveEntry();
    messages();
    const bool half = context().unposted.any({"TAB_1", "C1"});
    yes();
    ASSERT_TRUE(journal().close());
    const Texts told = messages();
    ASSERT_EQ(told.size(), half ? 2U : 1U);
    EXPECT_EQ(told[0].find("half posted") != std::string::npos, half) << told[0];
  }
};

TEST_F(JournalFailure, WhateverIsDoneNextTheBooksEndRight) {
  const std::vector<Entered> lines{{"Rent", "", "5"}, {"Cash", "", "5", false}};
  const auto add = [&] {
    journal().click(journal().cmdadd);
    fillVoucher("02062008", lines);
  };
  const auto modify = [&] {
    pickVoucher(1);
    journal().press(keys::Enter);
    for (const int line : {0, 1}) fillLine(line, lines[static_cast<std::size_t>(line)]);
  };
  const auto update = [&] { journal().click(journal().cmdupdate); };
  const struct {
    const char* what;
    long vid;
    std::function<void()> begin;  // up to the last key or click
    std::function<void()> act;
    bool saves;
  } deeds[] = {
      {"new", 3, add, update, true},
      {"modified", 1, modify, update, true},
      {"deleted", 1, [&] { pickVoucher(1); }, [&] { remove(); }, false},
  };
  for (const auto& deed : deeds) {
    arrangeBooks();
    deed.begin();
    deed.act();
    const Rows after = amounts();
    const auto again = [&] {
      if (journal().Frame2.visible()) {
        update();
      } else if (deed.saves) {
        passAnother("Cash", "BANKS");
        removeVoucher(std::stol(value("select max(VID) from JRNL_1")));
      } else {
        removeVoucher(deed.vid);
      }
    };
    const auto otherLedger = [&] {
      if (pickVoucher(deed.vid) && amounts().size() == 2) {
        changeLedger(deed.vid);
      } else {
        passAnother("Rent", "RENT");
      }
    };
    const auto reopened = [&] {
      closeJournal();
      EXPECT_EQ(unexplained(), Rows{}) << "other forms see the table next";
      open("C1", 2008);
      removeVoucher(deed.vid);
    };
    const auto leftHalfPosted = [&] {
      leaveEntry();
      host().statements().failNext("from TAB_1");
      closeJournal();
      host().statements().failNext("no such statement");
      log();
      open("C2", 2008);
      passAnother("Cash", "BANKS");
      open("C1", 2008);
    };
    FailingDeed failing{.what = deed.what, .act = deed.act};
    failing.arrange = [&] {
      arrangeBooks();
      deed.begin();
    };
    failing.result = [&] { return unexplained(); };
    failing.next = {{"again", again, {}, [&] { EXPECT_EQ(amounts(), after); }},
                    {"deleted", [&] { removeVoucher(deed.vid); }},
                    {"its ledger changed", otherLedger},
                    {"another voucher", [&] { passAnother("Cash", "BANKS"); }},
                    {"another on other pairs", [&] { passAnother("Loan", "CAPITAL"); }},
                    {"closed, opened and deleted", reopened},
                    {"left half posted, opened again after another client", leftHalfPosted}};
    failing.place = "frmjrnl";
    failing.stops = false;
    failing.behind = 1;
    failing.check = [&] {
      EXPECT_EQ(journal().vsf.rows(), static_cast<int>(amounts().size())) << "not as stored";
      if (!journal().Frame2.visible()) return;
      journal().GETCURBALS();  // as with the next key
      checkCash(deed.vid);
    };
    failEachStatement(failing);
  }
}

// What reads or rewrites the trial balances begins from whole ones.
TEST_F(JournalFailure, OtherFormsPostWhatIsMissingFirst) {
  const auto editor = [&] { practice.forms().ObjCreate()->show(); };
  const auto merge = [&] { mergeGroup("RENT", "CAPITAL"); };
  const auto link = [&] {
    frmtbledmas form(context());
    form.show();
    form.vsf.setCurrent(form.vsf.find(0, "Cash"));
    form.click(form.cmdlink);
    form.vsf.tick(form.vsf.find(0, "Stock"), true);
    yes();
    form.click(form.cmdlink);
  };
  const std::vector<std::pair<const char*, std::function<void()>>> deeds{
      {"the editor opens", editor}, {"a group is merged", merge}, {"a ledger is linked", link}};
  for (const auto& [what, act] : deeds) {
    SCOPED_TRACE(what);
    arrangeBooks();
    leaveHalfPosted();
    act();
    EXPECT_EQ(context().unposted.books().size(), 0U);
    EXPECT_EQ(rows("select amt from TAB_1 where code_no='C1' and nid=1"), (Rows{{"540"}}));
    messages();
    log();
  }
}

// Neither books that cannot be posted nor those of a year that is gone stand in the way of others.
TEST_F(JournalFailure, PostsWhatCanBePosted) {
  arrangeBooks();
  leaveHalfPosted();
  context().unposted.add({"TAB_1", "C0"}, {1, 1}, Money::ofPaise(500));  // nobody's any more
  // What is missing of the cash, under a group that another workstation has merged since.
  exec("insert into SuiteMisc(Section,Name,Value) values('AllGrp','Merged','77>1 ')");
  const ClientTable books{"TAB_1", "C1"};
  const Money cash = context().unposted.of(books, {1, 1});
  context().unposted.add(books, {1, 1}, -cash);
  context().unposted.add(books, {1, 77}, cash);
  exec("insert into master(code_no,tbl_nm) values('C1','TAB_DROPPED')");
  context().unposted.add({"TAB_DROPPED", "C1"}, {1, 1}, Money::ofPaise(500));
  EXPECT_THROW(postAllMissing(*context().host, context().unposted), RunTimeError);
  EXPECT_EQ(unexplained(), Rows{});
  EXPECT_EQ(context().unposted.books().size(), 1U) << "of the table that is missing";
  context().unposted = {};
}

// What is said of the last failure goes with it.
TEST_F(JournalFailure, TheSubsidiaryTrialBalanceSaysWhatBecameOfIt) {
  arrangeBooks();
  const auto print = [&](const char* failing) {
    host().statements().failNext(failing);
    journal().click(journal().cmdtb);
    host().statements().failNext("no such statement");
    return journal().lblstatus.caption();
  };
  pickVoucher(1);
  host().statements().failNext("Delete from JRNL_1");
  remove();
  EXPECT_EQ(journal().lblstatus.caption(), halfPosted);
  EXPECT_EQ(print("from TAB_1"), notPrinted);
  EXPECT_FALSE(context().unposted.books().empty());
  EXPECT_EQ(print("Create Table"), notPrinted) << "posted, and not printed";
  EXPECT_TRUE(context().unposted.books().empty());
  EXPECT_EQ(print("no such statement"), "");
}

// A number that another client's voucher has too, as two workstations may have given it.
TEST_F(JournalFailure, LeavesTheNeighboursVoucherOfTheSameNumberAlone) {
  arrangeBooks();
  exec("update JRNL_1 set VID=1");
  const Rows vouchers = rows("select * from JRNL_1");
  const Rows balances = rows("select * from TAB_1");
  frmjrnl& form = open("C1", 2008);
  pickVoucher(1);
  remove();
  pickVoucher(1);
  form.press(keys::Enter);
  EXPECT_EQ(form.GETROWS(), 2) << "the neighbour's lines are not loaded";
  EXPECT_EQ(form.txtdramt[1].text(), "40.00");
  form.click(form.cmdupdate);
  Texts told = messages();
  std::erase_if(told, [](const std::string& text) {
    return text.find("also that of another client's voucher") == std::string::npos;
  });
  EXPECT_EQ(told.size(), 2U) << "neither deleted nor modified";
  EXPECT_EQ(form.lblhint.caption(), "");
  EXPECT_EQ(rows("select * from JRNL_1"), vouchers);
  EXPECT_EQ(rows("select * from TAB_1"), balances);
  leaveEntry();

  // Nor are the neighbour's lines posted as the client's own.
  exec(
      "insert into JRNL_1 values('C1',2,1,'2008-06-02',4,4,6,''),('C2',2,2,'2008-06-02',1,1,0,'')");
  exec("update JRNL_1 set VID=2 where code_no='C2'");
  form.ADDVCH(2);
  context().unposted = {};
  EXPECT_EQ(unexplained(), Rows{});
  messages();
}

}  // namespace
}  // namespace quillet::support
