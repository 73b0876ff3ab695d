// Checks on update, the statements that store and post a voucher, and what is in the tables
// afterwards.
#include "journal_fixture.h"

namespace quillet::support {
namespace {

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
  statements();
  changeAmounts("20");
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
  const Entered rent{"Rent", "", "5"};
  const Entered cash{"Cash", "", "5", false};
  const Entered blank{"", "", ""};
  const std::string date = "Please specify a Valid Date.";
  const std::string ledger = "Please select a Particulars.";
  const std::string group = "Please select a Group.";
  const std::string amount = "Please specify an Amount.";
  const std::string totals = "Total Debit Amount should be Equal to Total Credit Amount.";
  const struct {
    const char* what;
    std::string date;
    std::vector<Entered> lines;
    std::string message;
  } cases[] = {
      {"no date", "", {rent, cash}, date},
      {"half a date", "0206", {rent}, date},
      {"nothing", "02062008", {blank}, ledger},
      {"no ledger", "02062008", {{"", "RENT", "5"}}, ledger},
      {"a gap between lines", "02062008", {blank, cash}, ledger},
      {"an amount without names", "02062008", {rent, {"", "", "5", false}}, ledger},
      {"no such group", "02062008", {{"Rent", "NO SUCH", "5"}}, group},
      {"no amount", "02062008", {{"Rent", "", ""}, cash}, amount},
      {"an amount of zero", "02062008", {{"Rent", "", "0.00"}}, amount},
      {"no number", "02062008", {{"Rent", "", "1.2.3"}}, amount},
      {"no number alone", "02062008", {rent, cash, {"", "", "1.2.3"}}, ledger},
      {"a line without its other side", "02062008", {rent, blank}, totals},
      {"totals apart", "02062008", {rent, {"Cash", "", "5.01", false}}, totals},
      {"the first failure counts",
       "02062008",
       {{"Rent", "NO SUCH", ""}, {"", "", "5.01", false}},
       group},
  };
  frmjrnl& form = journal();
  clock.set({2030, 1, 1});
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    form.click(form.cmdadd);
    // A date that is not in order keeps the focus, so it comes last.
    for (std::size_t i = 1; i < c.lines.size(); ++i) form.LOADCONTROLS();
    form.txtdt.setText("02/06/2008");
    for (std::size_t i = 0; i < c.lines.size(); ++i) fillLine(static_cast<int>(i), c.lines[i]);
    type(form.txtdt, c.date);
    messages();
    statements();
    form.click(form.cmdupdate);
    EXPECT_EQ(asked(), (Rows{{c.message, "OK", "information", "OK"}}));
    EXPECT_EQ(statements(), Texts{});
    EXPECT_EQ(form.active() == &form.txtdt, c.message == date);
    EXPECT_TRUE(form.Frame2.visible());
    yes();
    form.click(form.cmdcancel);
  }
  EXPECT_EQ(rows("select * from JRNL_1"), Rows{});
}

TEST_F(JournalSaving, RoundsAsOnPaper) {
  const struct {
    const char* what;
    Texts debits;
    Texts credits;
    const char* stored;  // the journal's amounts
  } cases[] = {
      {"thirds", {"100"}, {"33.33", "66.67"}, "100 -33.33 -66.67"},
      {"three decimals", {"10.005"}, {"10.014"}, "10.01 -10.01"},
      {"half a paisa", {"0.005"}, {"0.01"}, "0.01 -0.01"},
      {"binary halves", {"1.005", "2.675"}, {"3.69"}, "1.01 2.68 -3.69"},
      {"tenths", Texts(10, "0.1"), {"1"}, "0.1 0.1 0.1 0.1 0.1 0.1 0.1 0.1 0.1 0.1 -1"},
      {"commas", {"1,00,000.50"}, {"100000.5"}, "100000.5 -100000.5"},
      {"crores", {"999,999,999,999.99"}, {"999999999999.99"}, "999999999999.99 -999999999999.99"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    std::vector<Entered> lines;
    for (const std::string& amount : c.debits) lines.push_back({"Rent", "", amount});
    for (const std::string& amount : c.credits) lines.push_back({"Cash", "", amount, false});
    pass("02062008", lines);
    EXPECT_EQ(messages(), Texts{});
    EXPECT_EQ(value("select group_concat(Amount order by LSrNo separator ' ') from JRNL_1"),
              c.stored);
    removeFirst();
    EXPECT_EQ(value("select sum(amt) from TAB_1 where code_no='C1'"), "540");
  }
}

TEST_F(JournalSaving, PostsByPairs) {
  const struct {
    const char* what;
    std::vector<Entered> lines;
    const char* balances;  // of the client's rows in their order
  } cases[] = {
      {"to exactly zero the row goes",
       {{"Cash", "", "40"}, {"Rent", "", "40", false}},
       "Cash BANKS 540"},
      {"a credit turns the balance round",
       {{"Cash", "", "100"}, {"Rent", "", "100", false}},
       "Cash BANKS 600, Rent RENT -60"},
      {"a pair that had no row",
       {{"Cash", "CAPITAL", "7"}, {"Rent", "SALES", "7", false}},
       "Cash BANKS 500, Rent RENT 40, Cash CAPITAL 7, Rent SALES -7"},
      {"one pair twice",
       {{"Rent", "", "0.1"}, {"Rent", "", "0.2"}, {"Cash", "", "0.3", false}},
       "Rent RENT 40.3, Cash BANKS 499.7"},
      {"one pair against itself",
       {{"Rent", "", "5"}, {"Rent", "", "5", false}},
       "Cash BANKS 500, Rent RENT 40"},
  };
  const auto balances = [&](const std::string& order) {
    return value("select group_concat(particular,' ',allgrp,' ',if(nid=1,amt,-amt) order by " +
                 order +
                 " separator ', ') from TAB_1 t join Mast_Part p on p.partid=t.partid join "
                 "Mast_AllGrp g on g.allid=t.allid where code_no='C1'");
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    pass("02062008", c.lines);
    EXPECT_EQ(balances("srno"), c.balances);
    removeFirst();
    EXPECT_EQ(balances("particular"), "Cash BANKS 500, Rent RENT 40");
  }
}

TEST_F(JournalSaving, DeletesOnlyWhenToldTo) {
  pass("02062008", {{"Rent", "", "5"}, {"Cash", "", "5", false}});
  frmjrnl& form = journal();
  pick(2);
  no();
  statements();
  form.click(form.Command1);
  EXPECT_EQ(statements(), Texts{});
  EXPECT_EQ(asked(),
            (Rows{{"Do you want to Delete the Selected Entry?", "YesNo", "question", "No"}}));
  yes();
  form.click(form.Command1);
  EXPECT_EQ(rows("select * from JRNL_1"), Rows{});
  EXPECT_EQ(shown(form.vsf), Rows{});
}

// Vouchers of two clients take turns in one table.
TEST_F(JournalSaving, NumbersVouchersOverTheWholeTable) {
  const auto passFor = [&](const char* client, const char* amount) {
    open(client, 2008);
    pass("02062008", {{"Rent", "", amount}, {"Cash", "", amount, false}});
    return journal().vsf.rows();
  };
  EXPECT_EQ(passFor("C1", "5"), 2);
  EXPECT_EQ(passFor("C2", "6"), 2);
  EXPECT_EQ(passFor("C1", "7"), 4);
  modifyFirst();
  changeAmounts("8");
  EXPECT_EQ(rows("select code_no,VID,Amount from JRNL_1 where Amount>0 order by VID"),
            (Rows{{"C1", "1", "8"}, {"C2", "2", "6"}, {"C1", "3", "7"}}));
  EXPECT_EQ(trialBalance(table_, "C2"),
            (Rows{{"2", "Rent", "RENT", "24", "2"}, {"3", "Cash", "BANKS", "64", "1"}}));
}

TEST_F(JournalSaving, KeepsAwkwardNarrations) {
  for (const std::string& narration : {std::string(5000, 'n'), std::string("🙂 C:\\books\\"),
                                       std::string("100% \"quoted\"; -- _")}) {
    pass("02062008", {{"Rent", "", "5"}, {"Cash", "", "5", false}}, narration);
    EXPECT_EQ(value("select max(VNar) from JRNL_1"), narration);
    EXPECT_EQ(journal().vsf.cell(3, 1), "    " + narration);
    modifyFirst();
    EXPECT_EQ(journal().txtnarr.text(), narration);
    journal().click(journal().cmdupdate);
    EXPECT_EQ(value("select max(VNar) from JRNL_1"), narration);
    removeFirst();
  }
  // One with line breaks that came from elsewhere stays as it is; a typed one becomes a blank.
  put(9, 1, "Cash", "BANKS", 5, "one\\ntwo");
  put(9, 2, "Rent", "RENT", -5, "one\\ntwo");
  journal().LOADGRID();
  modifyFirst();
  journal().click(journal().cmdupdate);
  EXPECT_EQ(value("select max(VNar) from JRNL_1"), "one\ntwo");
  modifyFirst();
  type(journal().txtnarr, "one\ntwo");
  EXPECT_EQ(journal().txtnarr.text(), "one two");
  // More than the column holds does not get in.
  journal().txtnarr.replaceSelection(std::string(20'000, 'x'));
  EXPECT_EQ(lengthOf(journal().txtnarr.text()), 16'000U);
  EXPECT_EQ(journal().lblhint.caption(), "A narration holds at most 16,000 characters.");
}

TEST_F(JournalSaving, AFailureIsToldAndItsProcedureLogged) {
  const std::vector<Entered> lines{{"Rent", "RENT", "5"}, {"Cash", "BANKS", "5", false}};
  frmjrnl& form = journal();
  for (const auto& [failing, procedure] : {std::pair{"Select max(VID)", "SAVEVCH"},
                                           {",2,2,'2008", "SAVEVCH"},
                                           {"insert into TAB_1", "ADDVCH"},
                                           {"Delete from JRNL_1", "DELETEVCH"}}) {
    SCOPED_TRACE(failing);
    for (const char* table : {"JRNL_1", "TAB_1"}) exec(std::string("delete from ") + table);
    context().unposted = {};
    pass("02062008", lines);
    if (procedure == std::string("DELETEVCH")) {
      modifyFirst();
    } else {
      form.click(form.cmdadd);
      fillVoucher("02062008", lines);
    }
    host().statements().failNext(failing);
    form.click(form.cmdupdate);
    EXPECT_EQ(trapped(), Texts{std::string("frmjrnl\t") + procedure});
    EXPECT_EQ(messages(), Texts{});
    EXPECT_NE((form.Frame2.visible() ? form.lblhint : form.lblstatus).caption(), "");
    if (form.Frame2.visible()) yes();
    form.click(form.cmdcancel);
    messages();
  }
}

// A voucher keeps the group under which it was passed. When that was merged away meanwhile, the
// lines that it posted stand under the group merged with, through all merges and a new start.
TEST_F(JournalSaving, AVoucherOfAMergedGroupCountsWhereItsLinesStand) {
  pass("15062008", {{"Rent", "RENT", "100"}, {"Cash", "RENT", "100", false}});
  close();
  mergeGroup("RENT", "SALES");
  mergeGroup("SALES", "CAPITAL");
  practice.restartModule();
  open("C1", 2008);
  modifyFirst();
  EXPECT_EQ(journal().txtgroup[0].text(), "CAPITAL");
  changeAmounts("70");
  const auto balances = [&] {
    return rows(
        "select particular,allid,amt,nid from TAB_1 t join Mast_Part p on p.partid=t.partid "
        "where code_no='C1' order by particular,allid");
  };
  EXPECT_EQ(balances(),
            (Rows{{"Cash", "1", "500", "1"}, {"Cash", "2", "70", "2"}, {"Rent", "2", "110", "1"}}));
  exec("update JRNL_1 set AllId=3");  // as it was passed first
  // Nor is it forgotten when it could not be read at first.
  close();
  host().statements().failNext("Select AllId from Mast_AllGrp Where");
  open("C1", 2008);
  host().statements().failNext("insert into TAB_1");
  removeFirst();
  const auto lacking = context().unposted.pairs({"TAB_1", "C1"});
  ASSERT_EQ(lacking.size(), 1U);
  EXPECT_EQ(lacking[0].allId, 2) << "what is missing is missing there, too";
  removeFirst();
  EXPECT_EQ(balances(), (Rows{{"Cash", "1", "500", "1"}, {"Rent", "2", "40", "1"}}));
}

TEST_F(JournalSaving, ShowsAVoucherDatedOutsideThePeriod) {
  frmjrnl& form = journal();
  const std::string widened = "Saved 12:00. The period shown was widened to hold the voucher of ";
  const struct {
    const char *date, *from, *to;
    std::string told;
  } cases[] = {
      {"15072008", "01/07/2008", "31/07/2008", "Saved 12:00."},
      {"30062008", "30/06/2008", "31/07/2008", widened + "30/06/2008."},
      {"01082008", "01/07/2008", "01/08/2008", widened + "01/08/2008."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.date);
    type(form.txtdt1[0], "01072008");
    type(form.txtdt1[1], "31072008");
    form.click(form.cmdok);
    pass(c.date, {{"Rent", "RENT", "5"}, {"Cash", "", "5", false}});
    EXPECT_EQ(form.lblperiod.caption(), std::string("Period: ") + c.from + " - " + c.to);
    EXPECT_EQ(form.txtdt1[0].text(), c.from);
    EXPECT_EQ(form.txtdt1[1].text(), c.to);
    EXPECT_EQ(form.lblstatus.caption(), c.told);
    EXPECT_NE(form.vsf.current(), 0);
  }
  messages();
}

}  // namespace
}  // namespace quillet::support
