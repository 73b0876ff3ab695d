// What the journal loads: lists and balances, the outline of vouchers, one voucher.
#include "journal_fixture.h"

namespace quillet::support {
namespace {

using Texts = std::vector<std::string>;

class JournalLoading : public JournalTest {
 protected:
  void voucher(const std::string& client, long vid, int line, const std::string& date,
               const std::string& ledgerName, const std::string& groupName, double amount,
               const std::string& narration = {}) {
    exec("insert into JRNL_1 values('" + client + "'," + std::to_string(vid) + "," +
         std::to_string(line) + ",'" + date + "'," + std::to_string(ledger(ledgerName)) + "," +
         std::to_string(group(groupName)) + "," + std::to_string(amount) + ",'" + narration + "')");
  }
  Texts scratchTables() {
    Texts names;
    for (const auto& row : rows("show tables like 'ledger_temp%'")) names.push_back(row[0]);
    return names;
  }
};

TEST_F(JournalLoading, SendsItsStatementsInTheOrderDesigned) {
  addYear("C1", 2008, {{"Cash", "BANKS", 100}});
  select("C1", 2008);
  frmjrnl form(context());
  statements();
  form.INITDATA("tab_1", false);
  const std::string names =
      " LEFT JOIN mast_part ON tab_1.partid=mast_part.partid "
      "LEFT JOIN mast_allgrp on tab_1.allid=mast_allgrp.allid ";
  Texts expected;
  const auto sent = [&](const std::string& sql) {
    expected.push_back(sql);
    expected.push_back("Flush Tables");
  };
  for (const std::string table : {"Ledger_Temp1", "Ledger_Temp"}) {
    sent("Drop Table If Exists " + table);
    sent("Create Table If Not Exists " + table +
         " (PartId Int(11), AllId Int(11), Part Varchar(100), AllGrp Varchar(100), Amt Double)");
    sent("Delete from " + table);
  }
  sent("Insert into Ledger_Temp1 Select partid,0,Particular,'',0 from mast_part");
  sent(
      "Insert into Ledger_Temp1 Select tab_1.partid,tab_1.allid,Particular,AllGrp,sum(Amt) "
      "from tab_1" +
      names + "where tab_1.code_no='C1' and tab_1.Nid=1 group by partid,allid");
  sent(
      "Insert into Ledger_Temp1 Select tab_1.partid,tab_1.allid,Particular,AllGrp,-sum(Amt) "
      "from tab_1" +
      names + "where tab_1.code_no='C1' and tab_1.Nid=2 group by partid,allid");
  sent(
      "Insert into Ledger_Temp1 Select JRNL_1.partid,JRNL_1.allid,Particular,AllGrp,0 from JRNL_1 "
      "LEFT JOIN mast_part ON JRNL_1.partid=mast_part.partid LEFT JOIN mast_allgrp on "
      "JRNL_1.allid=mast_allgrp.allid where JRNL_1.code_no='C1'");
  sent(
      "Insert into Ledger_Temp Select partid, allid,Part,AllGrp,sum(Amt) from Ledger_Temp1 "
      "group by partid,allid");
  sent("Drop Table If Exists Ledger_Temp1");
  expected.push_back("Select distinct(PartId),Part from Ledger_Temp order by Part");
  expected.push_back("select * from mast_allgrp order by allgrp");
  expected.push_back("Select * from Ledger_Temp order by Part,AllGrp");
  sent("Drop Table If Exists Ledger_Temp");
  EXPECT_EQ(statements(), expected);
  EXPECT_EQ(scratchTables(), Texts{});

  form.show();
  EXPECT_EQ(statements(),
            Texts{"Select *  from JRNL_1 LEFT JOIN mast_allgrp on JRNL_1.allid=mast_allgrp.allid "
                  "where JRNL_1.code_no='C1' and JRNL_1.VDate>='2008-04-01' and "
                  "JRNL_1.VDate<='2009-03-31' Order by Vdate, VID, Amount Desc"});
  dialogs.queueAnswer(Answer::Yes);
  form.close();
}

TEST_F(JournalLoading, LeavesNoScratchTableWhereverAStatementFails) {
  addYear("C1", 2008, {{"Cash", "BANKS", 100}});
  failEachStatement({.what = "opening",
                     .arrange = [&] { select("C1", 2008); },
                     .act = [&] { frmjrnl(context()).INITDATA(context().table, false); },
                     .place = "frmjrnl\tINITDATA",
                     .stops = false,
                     .check = [&] { EXPECT_EQ(scratchTables(), Texts{}); }});
}

TEST_F(JournalLoading, ShowsThePeriodOfTheYearOrOfTheOneBefore) {
  addYear("C1", 2008);
  frmjrnl& form = open("C1", 2008);
  const std::string company = host().COMPANY_NAME();
  EXPECT_EQ(form.lblperiod.caption(), "Period: 01/04/2008 - 31/03/2009");
  EXPECT_EQ(form.caption(), "Adjustement Entries Passed of " + company +
                                " for the Period from 01/04/2008 to 31/03/2009");
  EXPECT_EQ(open("C1", 2008, true).lblperiod.caption(), "Period: 01/04/2007 - 31/03/2008");
}

TEST_F(JournalLoading, ListsLedgersAndGroupsByName) {
  addYear("C1", 2008, {{"wages", "RENT", 5}, {"Cash", "BANKS", 100}});
  ledger("Audit Fee");
  frmjrnl& form = open("C1", 2008);
  EXPECT_EQ(shown(form.VSF3), (Rows{{"Audit Fee"}, {"Cash"}, {"wages"}}));
  EXPECT_EQ(shown(form.VSF4), (Rows{{"BANKS"}, {"CAPITAL"}, {"RENT"}, {"SALES"}}));
}

TEST_F(JournalLoading, ListsVouchersAsAnOutline) {
  addYear("C1", 2008);
  addYear("C2", 2008);
  voucher("C1", 2, 1, "2008-06-02", "AUDIT FEE", "RENT", 1234567.5, "Fee of the year");
  voucher("C1", 2, 2, "2008-06-02", "cash in hand", "BANKS", -1234567.5, "Fee of the year");
  voucher("C1", 3, 1, "2008-06-02", "rent", "RENT", -30);
  voucher("C1", 3, 2, "2008-06-02", "interest", "RENT", 10);
  voucher("C1", 3, 3, "2008-06-02", "wages", "RENT", 20);
  voucher("C1", 1, 1, "2008-12-31", "wages", "RENT", 7, "By hand");
  voucher("C1", 1, 2, "2008-12-31", "cash in hand", "BANKS", -7, "By hand");
  voucher("C1", 5, 1, "2009-04-01", "wages", "RENT", 7);
  voucher("C2", 4, 1, "2008-06-02", "wages", "RENT", 99, "Not ours");
  frmjrnl& form = open("C1", 2008);
  const Rows expected{{"2-6-2008", "By Audit Fee", "1,234,567.50", ""},
                      {"", "To Cash In Hand", "", "1,234,567.50"},
                      {"", "    Fee of the year", "", ""},
                      {"2-6-2008", "By Wages", "20.00", ""},
                      {"", "By Interest", "10.00", ""},
                      {"", "To Rent", "", "30.00"},
                      {"31-12-2008", "By Wages", "7.00", ""},
                      {"", "To Cash In Hand", "", "7.00"},
                      {"", "    By hand", "", ""}};
  EXPECT_EQ(shown(form.vsf), expected);

  // Folded, each voucher shows its first row, and the current row stays in its voucher.
  const auto hidden = [&] {
    std::string rows;
    for (int row = 1; row <= form.vsf.rows(); ++row) rows += form.vsf.rowHidden(row) ? '-' : '+';
    return rows;
  };
  pick(6);
  EXPECT_EQ(hidden(), "+++++++++");
  form.click(form.Check1);
  EXPECT_EQ(hidden(), "+--+--+--");
  EXPECT_EQ(form.vsf.current(), 4);
  form.focus(form.vsf);
  form.press(keys::Right);
  EXPECT_EQ(hidden(), "+--++++--");
  form.press(keys::Left);
  EXPECT_EQ(hidden(), "+--+--+--");
  form.press(keys::Right);
  form.click(form.Check1);
  EXPECT_EQ(hidden(), "+++++++++");

  // A click on a heading does not tear the vouchers apart.
  form.vsf.sortBy(1);
  EXPECT_EQ(shown(form.vsf), expected);

  // A period of its own.
  type(form.txtdt1[0], "01072008");
  form.press(keys::Enter);
  type(form.txtdt1[1], "31122008");
  form.press(keys::Enter);
  EXPECT_EQ(form.active(), &form.cmdok);
  form.press(keys::Enter);
  EXPECT_EQ(form.lblperiod.caption(), "Period: 01/07/2008 - 31/12/2008");
  EXPECT_EQ(shown(form.vsf), Rows(expected.begin() + 6, expected.end()));
}

TEST_F(JournalLoading, PutsAVoucherOnTheEntryFrame) {
  addYear("C1", 2008, {{"Cash", "BANKS", 500}, {"Rent", "RENT", 40}});
  addYear("C2", 2008);
  voucher("C1", 7, 1, "2008-06-02", "Cash", "BANKS", -25.5, "June");
  voucher("C1", 7, 2, "2008-06-02", "Suspense", "CAPITAL", 25.5, "June");
  frmjrnl& form = open("C1", 2008);
  pick(2);
  statements();
  form.press(keys::Enter);
  EXPECT_EQ(statements(), Texts{"Select * from JRNL_1 where VID=7 Order by LSrNo"});
  EXPECT_FALSE(form.Frame1.visible());
  EXPECT_TRUE(form.Frame2.visible());
  EXPECT_EQ(form.GETROWS(), 2);
  EXPECT_EQ(form.txtdt.text(), "02/06/2008");
  EXPECT_EQ(form.txtnarr.text(), "June");
  const auto line = [&](int i) {
    return Texts{form.cboside[i].text(),  form.txtledger[i].text(), form.txtgroup[i].text(),
                 form.txtdramt[i].text(), form.txtcramt[i].text(),  form.txtcurbal[i].text()};
  };
  // What the voucher has put into the balances stands in them once, not twice; a pair without a
  // line in the trial balance is known by the journal.
  EXPECT_EQ(line(0), (Texts{"To", "Cash", "BANKS", "", "25.50", "500.00Dr"}));
  EXPECT_EQ(line(1), (Texts{"By", "Suspense", "CAPITAL", "25.50", "", "0.00"}));
  EXPECT_EQ(shown(form.vsf1), (Rows{{"Total", "25.50", "25.50"}}));
  type(form.txtcramt[0], "30");
  EXPECT_EQ(form.txtcurbal[0].text(), "495.50Dr");
}

TEST_F(JournalLoading, AsksForARowFirst) {
  addYear("C1", 2008);
  frmjrnl& form = open("C1", 2008);
  EXPECT_EQ(shown(form.vsf), Rows{});
  form.doubleClick(form.vsf);
  form.click(form.Command1);
  const std::vector<Message> asked = boxes();
  ASSERT_EQ(asked.size(), 2U);
  for (const Message& box : asked) {
    EXPECT_EQ(box.text, "Please select a Item.");
    EXPECT_EQ(box.icon, Icon::information);
    EXPECT_EQ(box.title, "Adjustment Journal");
  }
}

TEST_F(JournalLoading, ReadsNamesOncePerLedgerHoweverLongTheList) {
  addYear("C1", 2008);
  for (int vid = 1; vid <= 40; ++vid) voucher("C1", vid, 1, "2008-06-02", "Cash", "BANKS", vid);
  open("C1", 2008);
  journal().LOADGRID();
  EXPECT_EQ(statements().size(), 1U);
  exec("update Mast_Part set Particular='Till' where Particular='Cash'");
  journal().LOADGRID();
  EXPECT_EQ(journal().vsf.cell(1, 1), "By Till");
}

}  // namespace
}  // namespace quillet::support
