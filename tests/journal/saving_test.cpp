// Checks on update, the statements that store and post a voucher, and what is in the tables
// afterwards.
#include "journal_fixture.h"
#include "masters/frmgrpmas.h"

namespace quillet::support {
namespace {

using Texts = std::vector<std::string>;

class JournalSaving : public JournalTest {
 protected:
  JournalSaving() {
    table_ = addYear("C1", 2008, {{"Cash", "BANKS", 500}, {"Rent", "RENT", 40}});
    addYear("C2", 2008, {{"Cash", "BANKS", 70}, {"Rent", "RENT", -30}});
    open("C1", 2008);
  }
  std::string table_;
};

TEST_F(JournalSaving, StoresAndPostsInTheOrderDesigned) {
  frmjrnl& form = journal();
  form.click(form.cmdadd);
  fillVoucher("02062008", {{"Rent", "RENT", "12.5"}, {"Cash", "BANKS", "12.50", false}}, "June");
  statements();
  form.click(form.cmdupdate);
  const std::string listed =
      "Select *  from JRNL_1 LEFT JOIN mast_allgrp on JRNL_1.allid=mast_allgrp.allid where "
      "JRNL_1.code_no='C1' and JRNL_1.VDate>='2008-04-01' and JRNL_1.VDate<='2009-03-31' Order by "
      "Vdate, VID, Amount Desc";
  EXPECT_EQ(
      statements(),
      (Texts{"Select max(VID) from JRNL_1",
             "Insert Into JRNL_1 Values ('C1',1,1,'2008-06-02',2,3,12.5,'June')", "Flush Tables",
             "Insert Into JRNL_1 Values ('C1',1,2,'2008-06-02',1,1,-12.5,'June')", "Flush Tables",
             "Select * from JRNL_1 where VId=1",
             "Select * from TAB_1 where code_no='C1' and PartId=2 and allid=3",
             "Delete from TAB_1 where code_no='C1' and PartId=2 and allid=3", "flush tables",
             "select max(srno) as maxsr from TAB_1 where code_no = 'C1'",
             "insert into TAB_1 values(2,'C1',2,3,52.5,1)", "flush tables",
             "Select * from TAB_1 where code_no='C1' and PartId=1 and allid=1",
             "Delete from TAB_1 where code_no='C1' and PartId=1 and allid=1", "flush tables",
             "select max(srno) as maxsr from TAB_1 where code_no = 'C1'",
             "insert into TAB_1 values(3,'C1',1,1,487.5,1)", "flush tables", listed}));
  EXPECT_TRUE(form.Frame1.visible());
  EXPECT_EQ(form.vsf.current(), 1);

  // Modified: taken out, stored anew under the same number, posted.
  form.press(keys::Enter);
  type(form.txtdramt[0], "20");
  type(form.txtcramt[1], "20");
  statements();
  form.click(form.cmdupdate);
  const Texts sent = statements();
  ASSERT_EQ(sent.size(), 33U);
  EXPECT_EQ(Texts(sent.begin(), sent.begin() + 2),
            (Texts{"Select * from JRNL_1 where VId=1",
                   "Select * from TAB_1 where code_no='C1' and PartId=2 and allid=3"}));
  EXPECT_EQ(
      Texts(sent.begin() + 13, sent.begin() + 17),
      (Texts{"Delete from JRNL_1 where VId=1", "Flush Tables",
             "Insert Into JRNL_1 Values ('C1',1,1,'2008-06-02',2,3,20,'June')", "Flush Tables"}));
  EXPECT_EQ(trialBalance(table_),
            (Rows{{"6", "Rent", "RENT", "60", "1"}, {"7", "Cash", "BANKS", "480", "1"}}));
  // The neighbour in the same tables has what it had.
  EXPECT_EQ(trialBalance(table_, "C2"),
            (Rows{{"1", "Cash", "BANKS", "70", "1"}, {"2", "Rent", "RENT", "30", "2"}}));
}

TEST_F(JournalSaving, RefusesWhatIsNotInOrder) {
  struct Case {
    const char* what;
    std::string date;
    std::vector<Entered> lines;
    std::string message;
  };
  const std::vector<Case> cases{
      {"no date",
       "",
       {{"Rent", "", "5"}, {"Cash", "", "5", false}},
       "Please specify a Valid Date."},
      {"half a date", "0206", {{"Rent", "", "5"}}, "Please specify a Valid Date."},
      {"nothing", "02062008", {{"", "", ""}}, "Please select a Particulars."},
      {"no ledger", "02062008", {{"", "RENT", "5"}}, "Please select a Particulars."},
      {"a gap between lines",
       "02062008",
       {{"", "", ""}, {"Cash", "", "5", false}},
       "Please select a Particulars."},
      {"an amount without names",
       "02062008",
       {{"Rent", "", "5"}, {"", "", "5", false}},
       "Please select a Particulars."},
      {"no such group", "02062008", {{"Rent", "NO SUCH", "5"}}, "Please select a Group."},
      {"no amount",
       "02062008",
       {{"Rent", "", ""}, {"Cash", "", "5", false}},
       "Please specify an Amount."},
      {"an amount of zero", "02062008", {{"Rent", "", "0.00"}}, "Please specify an Amount."},
      {"no number", "02062008", {{"Rent", "", "1.2.3"}}, "Please specify an Amount."},
      {"no number on a last line without names",
       "02062008",
       {{"Rent", "", "5"}, {"Cash", "", "5", false}, {"", "", "1.2.3"}},
       "Please select a Particulars."},
      {"totals apart",
       "02062008",
       {{"Rent", "", "5"}, {"Cash", "", "5.01", false}},
       "Total Debit Amount should be Equal to Total Credit Amount."},
      {"the first failure counts",
       "02062008",
       {{"Rent", "NO SUCH", ""}, {"", "", "5.01", false}},
       "Please select a Group."},
  };
  frmjrnl& form = journal();
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    clock.set({2030, 1, 1});
    form.click(form.cmdadd);
    // Filled in from below: a date that is not in order keeps the focus.
    for (std::size_t i = 0; i < c.lines.size(); ++i) {
      if (i > 0) form.LOADCONTROLS();
    }
    form.txtdt.setText("02/06/2008");
    for (std::size_t i = 0; i < c.lines.size(); ++i) fillLine(static_cast<int>(i), c.lines[i]);
    type(form.txtdt, c.date);
    messages();
    statements();
    form.click(form.cmdupdate);
    const std::vector<Message> asked = boxes();
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked[0].text, c.message);
    EXPECT_EQ(asked[0].icon, Icon::information);
    EXPECT_EQ(asked[0].buttons, Buttons::OK);
    EXPECT_EQ(statements(), Texts{});
    if (c.message == "Please specify a Valid Date.") {
      EXPECT_EQ(form.active(), &form.txtdt);
    }
    EXPECT_TRUE(form.Frame2.visible());
    dialogs.queueAnswer(Answer::Yes);
    form.click(form.cmdcancel);
  }
  EXPECT_EQ(vouchers("JRNL_1"), Rows{});
}

TEST_F(JournalSaving, RoundsAsOnPaper) {
  struct Case {
    const char* what;
    std::vector<std::string> debits;
    std::vector<std::string> credits;
    std::string stored;  // the journal's amounts
  };
  const std::vector<Case> cases{
      {"thirds", {"100"}, {"33.33", "66.67"}, "100 -33.33 -66.67"},
      {"three decimals", {"10.005"}, {"10.014"}, "10.01 -10.01"},
      {"half a paisa", {"0.005"}, {"0.01"}, "0.01 -0.01"},
      {"binary halves", {"1.005", "2.675"}, {"3.69"}, "1.01 2.68 -3.69"},
      {"tenths",
       {"0.1", "0.1", "0.1", "0.1", "0.1", "0.1", "0.1", "0.1", "0.1", "0.1"},
       {"1"},
       "0.1 0.1 0.1 0.1 0.1 0.1 0.1 0.1 0.1 0.1 -1"},
      {"commas", {"1,00,000.50"}, {"100000.5"}, "100000.5 -100000.5"},
      {"crores", {"999,999,999,999.99"}, {"999999999999.99"}, "999999999999.99 -999999999999.99"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    std::vector<Entered> lines;
    for (const std::string& amount : c.debits) lines.push_back({"Rent", "", amount});
    for (const std::string& amount : c.credits) lines.push_back({"Cash", "", amount, false});
    pass("02062008", lines);
    EXPECT_EQ(messages(), Texts{});
    std::string stored;
    for (const auto& row : rows("select Amount from JRNL_1 order by LSrNo")) {
      stored += (stored.empty() ? "" : " ") + row[0];
    }
    EXPECT_EQ(stored, c.stored);
    pick(1);
    dialogs.queueAnswer(Answer::Yes);
    journal().press(keys::Delete);
    EXPECT_EQ(value("select sum(amt) from TAB_1 where code_no='C1'"), "540");
    messages();
  }
}

TEST_F(JournalSaving, PostsByPairs) {
  struct Case {
    const char* what;
    std::vector<Entered> lines;
    Rows balances;  // ledger, group, amt, nid of the client's rows
  };
  const Rows untouched{{"Cash", "BANKS", "500", "1"}, {"Rent", "RENT", "40", "1"}};
  const std::vector<Case> cases{
      {"to exactly zero the row goes",
       {{"Cash", "", "40"}, {"Rent", "", "40", false}},
       {{"Cash", "BANKS", "540", "1"}}},
      {"a credit turns the balance round",
       {{"Cash", "", "100"}, {"Rent", "", "100", false}},
       {{"Cash", "BANKS", "600", "1"}, {"Rent", "RENT", "60", "2"}}},
      {"a pair that had no row",
       {{"Cash", "CAPITAL", "7"}, {"Rent", "SALES", "7", false}},
       {{"Cash", "BANKS", "500", "1"},
        {"Rent", "RENT", "40", "1"},
        {"Cash", "CAPITAL", "7", "1"},
        {"Rent", "SALES", "7", "2"}}},
      {"one pair twice",
       {{"Rent", "", "0.1"}, {"Rent", "", "0.2"}, {"Cash", "", "0.3", false}},
       {{"Rent", "RENT", "40.3", "1"}, {"Cash", "BANKS", "499.7", "1"}}},
      {"one pair against itself",
       {{"Rent", "", "5"}, {"Rent", "", "5", false}},
       {{"Cash", "BANKS", "500", "1"}, {"Rent", "RENT", "40", "1"}}},
  };
  const auto balances = [&] {
    return rows(
        "select particular,allgrp,amt,nid from TAB_1 t join Mast_Part p on "
        "p.partid=t.partid join Mast_AllGrp g on g.allid=t.allid where code_no='C1' "
        "order by srno");
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    pass("02062008", c.lines);
    EXPECT_EQ(balances(), c.balances);
    pick(1);
    dialogs.queueAnswer(Answer::Yes);
    journal().press(keys::Delete);
    Rows restored = balances();
    std::sort(restored.begin(), restored.end());
    EXPECT_EQ(restored, untouched);
    messages();
  }
}

TEST_F(JournalSaving, DeletesOnlyWhenToldTo) {
  pass("02062008", {{"Rent", "", "5"}, {"Cash", "", "5", false}});
  frmjrnl& form = journal();
  pick(2);
  dialogs.queueAnswer(Answer::No);
  statements();
  form.click(form.Command1);
  EXPECT_EQ(statements(), Texts{});
  const std::vector<Message> asked = boxes();
  ASSERT_EQ(asked.size(), 1U);
  EXPECT_EQ(asked[0].text, "Do you want to Delete the Selected Entry?");
  EXPECT_EQ(asked[0].buttons, Buttons::YesNo);
  EXPECT_EQ(asked[0].defaultAnswer, Answer::No);
  dialogs.queueAnswer(Answer::Yes);
  form.click(form.Command1);
  EXPECT_EQ(vouchers("JRNL_1"), Rows{});
  EXPECT_EQ(shown(form.vsf), Rows{});
  const Texts sent = statements();
  ASSERT_EQ(sent.size(), 16U);
  EXPECT_EQ(sent[13], "Delete from JRNL_1 where VId=1");
  EXPECT_EQ(sent[14], "Flush Tables");
}

// Vouchers of two clients take turns in one table.
TEST_F(JournalSaving, NumbersVouchersOverTheWholeTable) {
  pass("02062008", {{"Rent", "", "5"}, {"Cash", "", "5", false}});
  open("C2", 2008);
  EXPECT_EQ(shown(journal().vsf), Rows{});
  pass("02062008", {{"Rent", "", "6"}, {"Cash", "", "6", false}});
  open("C1", 2008);
  EXPECT_EQ(journal().vsf.rows(), 2);
  pass("02062008", {{"Rent", "", "7"}, {"Cash", "", "7", false}});
  EXPECT_EQ(rows("select distinct code_no,VID from JRNL_1 order by VID"),
            (Rows{{"C1", "1"}, {"C2", "2"}, {"C1", "3"}}));
  pick(1);
  journal().press(keys::Enter);
  type(journal().txtdramt[0], "8");
  type(journal().txtcramt[1], "8");
  journal().click(journal().cmdupdate);
  EXPECT_EQ(rows("select code_no,VID,Amount from JRNL_1 where Amount>0 order by VID"),
            (Rows{{"C1", "1", "8"}, {"C2", "2", "6"}, {"C1", "3", "7"}}));
  EXPECT_EQ(trialBalance(table_, "C2"),
            (Rows{{"2", "Rent", "RENT", "24", "2"}, {"3", "Cash", "BANKS", "64", "1"}}));
}

TEST_F(JournalSaving, KeepsAwkwardNarrations) {
  const std::string smile = "\xF0\x9F\x99\x82";
  std::string emoji;
  for (int i = 0; i < 1000; ++i) emoji += smile;
  struct Case {
    std::string typed;
    std::string stored;
  };
  const std::vector<Case> cases{{std::string(5000, 'n'), std::string(5000, 'n')},
                                {emoji, emoji},
                                {"C:\\books\\", "C:\\books\\"},
                                {"the owner's share", "the owners share"},
                                {"one\ntwo", "one two"},
                                {"100% \"quoted\"; -- _", "100% \"quoted\"; -- _"}};
  for (const Case& c : cases) {
    pass("02062008", {{"Rent", "", "5"}, {"Cash", "", "5", false}}, c.typed);
    EXPECT_EQ(value("select max(VNar) from JRNL_1"), c.stored);
    EXPECT_EQ(journal().vsf.cell(3, 1), "    " + c.stored);
    pick(1);
    journal().press(keys::Enter);
    EXPECT_EQ(journal().txtnarr.text(), c.stored);
    journal().click(journal().cmdupdate);
    EXPECT_EQ(value("select max(VNar) from JRNL_1"), c.stored);
    pick(1);
    dialogs.queueAnswer(Answer::Yes);
    journal().press(keys::Delete);
  }
  // One with line breaks that came from elsewhere stays as it is.
  exec(
      "insert into JRNL_1 values('C1',9,1,'2008-06-02',1,1,5,'one\\ntwo'),"
      "('C1',9,2,'2008-06-02',2,3,-5,'one\\ntwo')");
  journal().LOADGRID();
  pick(1);
  journal().press(keys::Enter);
  journal().click(journal().cmdupdate);
  EXPECT_EQ(value("select max(VNar) from JRNL_1"), "one\ntwo");
  // More than the column holds does not get in.
  pick(1);
  journal().press(keys::Enter);
  journal().txtnarr.replaceSelection(std::string(20'000, 'x'));
  EXPECT_EQ(lengthOf(journal().txtnarr.text()), 16'000U);
  EXPECT_EQ(journal().lblhint.caption(), "A narration holds at most 16,000 characters.");
}

TEST_F(JournalSaving, KeepsWhatWasSentBeforeAFailure) {
  struct Case {
    const char* what;
    const char* failing;
    const char* procedure;
    bool modified;
    Rows amounts;  // of the journal
    Rows balances;
  };
  const Rows before{{"500", "1"}, {"40", "1"}};
  const std::vector<Case> cases{
      {"the number", "Select max(VID)", "SAVEVCH", false, {}, before},
      {"the second line", ",1,2,'2008", "SAVEVCH", false, {{"5"}}, before},
      {"posting", "insert into TAB_1", "ADDVCH", false, {{"5"}, {"-5"}}, {{"500", "1"}}},
      {"taking out", "Delete from JRNL_1", "DELETEVCH", true, {{"5"}, {"-5"}}, before},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    for (const char* table : {"JRNL_1", "TAB_1"}) exec(std::string("delete from ") + table);
    exec("insert into TAB_1 values(1,'C1',1,1,500,1),(2,'C1',2,3,40,1)");
    context().unposted = {};
    open("C1", 2008);
    frmjrnl& form = journal();
    if (c.modified) {
      pass("02062008", {{"Rent", "", "5"}, {"Cash", "", "5", false}});
      pick(1);
      form.press(keys::Enter);
    } else {
      form.click(form.cmdadd);
      fillVoucher("02062008", {{"Rent", "", "5"}, {"Cash", "", "5", false}});
    }
    host().statements().failNext(c.failing);
    log();
    form.click(form.cmdupdate);
    const Texts lines = log();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_NE(lines[0].find(std::string("frmjrnl\t") + c.procedure), std::string::npos) << lines[0];
    EXPECT_EQ(messages(), Texts{});
    EXPECT_EQ(rows("select Amount from JRNL_1 order by LSrNo"), c.amounts);
    Rows balances = rows("select amt,nid from TAB_1 where code_no='C1' order by amt desc");
    EXPECT_EQ(balances, c.balances);
    const Label& told = form.Frame2.visible() ? form.lblhint : form.lblstatus;
    EXPECT_NE(told.caption(), "");
    if (form.Frame2.visible()) {
      dialogs.queueAnswer(Answer::Yes);
      form.click(form.cmdcancel);
    }
  }
}

// A voucher keeps the group under which it was passed. When that was merged away meanwhile, the
// lines that it posted stand under the group merged with, through all merges and a new start.
TEST_F(JournalSaving, AVoucherOfAMergedGroupCountsWhereItsLinesStand) {
  const auto merge = [&](const char* name, const char* target) {
    frmgrpmas groups(context());
    groups.showModal();
    groups.click(groups.cmdMerge);
    groups.vsM.tick(groups.vsM.find(1, name), true);
    groups.vsMW.setCurrent(groups.vsMW.find(1, target));
    for (int answers = 0; answers < 2; ++answers) dialogs.queueAnswer(Answer::Yes);
    groups.click(groups.cmdMergeGroup);
    groups.close();
    EXPECT_EQ(messages().back(), "Merge Successfully.");
  };
  pass("15062008", {{"Rent", "RENT", "100"}, {"Cash", "RENT", "100", false}});
  close();
  merge("RENT", "SALES");
  merge("SALES", "CAPITAL");
  practice.restartModule();
  frmjrnl& j = open("C1", 2008);
  pick(1);
  j.doubleClick(j.vsf);
  EXPECT_EQ(j.txtgroup[0].text(), "CAPITAL");
  type(j.txtdramt[0], "70");
  type(j.txtcramt[1], "70");
  ASSERT_TRUE(j.click(j.cmdupdate));
  const auto balances = [&] {
    return rows(
        "select particular,allid,amt,nid from TAB_1 t join Mast_Part p on p.partid=t.partid "
        "where code_no='C1' order by particular,allid");
  };
  EXPECT_EQ(balances(),
            (Rows{{"Cash", "1", "500", "1"}, {"Cash", "2", "70", "2"}, {"Rent", "2", "110", "1"}}));
  exec("update JRNL_1 set AllId=3");  // as it was passed first
  pick(1);
  host().statements().failNext("insert into TAB_1");
  dialogs.queueAnswer(Answer::Yes);
  ASSERT_TRUE(j.click(j.Command1));
  const auto lacking = context().unposted.pairs({"TAB_1", "C1"});
  ASSERT_EQ(lacking.size(), 1U);
  EXPECT_EQ(lacking[0].allId, 2) << "what is missing is missing there, too";
  pick(1);
  dialogs.queueAnswer(Answer::Yes);
  ASSERT_TRUE(j.click(j.Command1));
  EXPECT_EQ(balances(), (Rows{{"Cash", "1", "500", "1"}, {"Rent", "2", "40", "1"}}));
}

}  // namespace
}  // namespace quillet::support
