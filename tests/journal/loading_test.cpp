// What the journal loads: lists and balances, the outline of vouchers, one voucher.
#include "journal/messages.h"
#include "journal_fixture.h"

namespace quillet::support {
namespace {

using JournalLoading = JournalTest;

TEST_F(JournalLoading, SendsItsStatementsInTheOrderDesigned) {
  addYear("C1", 2008, {{"Cash", "BANKS", 100}});
  select("C1", 2008);
  frmjrnl form(context());
  statements();
  form.INITDATA("tab_1", false);
  Texts expected = scratchTables(
      "(PartId Int(11), AllId Int(11), Part Varchar(100), AllGrp Varchar(100), Amt Double)");
  const auto pairs = [](const std::string& table, const std::string& amount) {
    return "Insert into Ledger_Temp1 Select " + table + ".partid," + table +
           ".allid,Particular,AllGrp," + amount + namesOf(table) + table + ".code_no='C1'";
  };
  append(expected,
         flushed({"Insert into Ledger_Temp1 Select partid,0,Particular,'',0 from mast_part",
                  pairs("tab_1", "sum(Amt)") + " and tab_1.Nid=1 group by partid,allid",
                  pairs("tab_1", "-sum(Amt)") + " and tab_1.Nid=2 group by partid,allid",
                  pairs("JRNL_1", "0"),
                  "Insert into Ledger_Temp Select partid, allid,Part,AllGrp,sum(Amt) from "
                  "Ledger_Temp1 group by partid,allid",
                  "Drop Table If Exists Ledger_Temp1"}));
  append(expected, {"Select distinct(PartId),Part from Ledger_Temp order by Part",
                    "select * from mast_allgrp order by allgrp",
                    "Select * from Ledger_Temp order by Part,AllGrp"});
  append(expected, flushed({"Drop Table If Exists Ledger_Temp"}));
  EXPECT_EQ(statements(), expected);

  form.show();
  EXPECT_EQ(statements(),
            Texts{"Select *  from JRNL_1 LEFT JOIN mast_allgrp on JRNL_1.allid=mast_allgrp.allid "
                  "where JRNL_1.code_no='C1' and JRNL_1.VDate>='2008-04-01' and "
                  "JRNL_1.VDate<='2009-03-31' Order by Vdate, VID, Amount Desc"});
  yes();
  form.close();

  FailingDeed deed{.what = "opening", .act = [&] { frmjrnl(context()).INITDATA("TAB_1", false); }};
  deed.place = "frmjrnl\tINITDATA";
  deed.stops = false;
  deed.check = [&] { EXPECT_EQ(scratchLeft(), Rows{}); };
  failEachStatement(deed);
}

TEST_F(JournalLoading, ShowsThePeriodAndTheListsByName) {
  addYear("C1", 2008, {{"wages", "RENT", 5}, {"Cash", "BANKS", 100}});
  ledger("Audit Fee");
  frmjrnl& form = open("C1", 2008);
  EXPECT_EQ(shown(form.VSF3), (Rows{{"Audit Fee"}, {"Cash"}, {"wages"}}));
  EXPECT_EQ(shown(form.VSF4), (Rows{{"BANKS"}, {"CAPITAL"}, {"RENT"}, {"SALES"}}));
  EXPECT_EQ(form.lblperiod.caption(), "Period: 01/04/2008 - 31/03/2009");
  EXPECT_EQ(form.caption(), "Adjustement Entries Passed of " + host().COMPANY_NAME() +
                                " for the Period from 01/04/2008 to 31/03/2009");
  EXPECT_EQ(open("C1", 2008, true).lblperiod.caption(), "Period: 01/04/2007 - 31/03/2008");
}

TEST_F(JournalLoading, ListsVouchersAsAnOutline) {
  addYear("C1", 2008);
  addYear("C2", 2008);
  put(2, 1, "AUDIT FEE", "RENT", 1234567.5, "Fee of the year");
  put(2, 2, "cash in hand", "BANKS", -1234567.5, "Fee of the year");
  put(3, 1, "rent", "RENT", -30);
  put(3, 2, "interest", "RENT", 10);
  put(3, 3, "wages", "RENT", 20);
  put(1, 1, "wages", "RENT", 7, "By hand", "C1", "2008-12-31");
  put(1, 2, "cash in hand", "BANKS", -7, "By hand", "C1", "2008-12-31");
  put(5, 1, "wages", "RENT", 7, "", "C1", "2009-04-01");
  put(4, 1, "wages", "RENT", 99, "Not ours", "C2");
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
  form.vsf.sortBy(0);
  form.vsf.sortBy(0);
  Rows turned(expected.begin() + 6, expected.end());
  turned.insert(turned.end(), expected.begin(), expected.begin() + 6);
  EXPECT_EQ(shown(form.vsf), turned);

  // What is looked for is unfolded.
  form.click(form.Check1);
  form.focus(form.vsf);
  form.press(keys::Find);
  EXPECT_EQ(form.active(), &form.findBar.txtfind);
  type(form.findBar.txtfind, "interest 10");
  EXPECT_EQ(form.vsf.cell(form.vsf.current(), 1), "By Interest");
  EXPECT_FALSE(form.vsf.rowHidden(form.vsf.current()));
  form.press(keys::Escape);
  EXPECT_EQ(form.active(), &form.vsf);
  form.click(form.Check1);

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
  put(7, 1, "Cash", "BANKS", -25.5, "June");
  put(7, 2, "Suspense", "CAPITAL", 25.5, "June");
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
  const auto told = dialogs.takeMessages();
  ASSERT_EQ(told.size(), 2U);
  for (const auto& [box, answer] : told) {
    EXPECT_EQ(box.text, "Please select a Item.");
    EXPECT_EQ(box.icon, Icon::information);
    EXPECT_EQ(box.title, "Adjustment Journal");
  }
}

TEST_F(JournalLoading, ReadsNamesOncePerLedgerHoweverLongTheList) {
  addYear("C1", 2008);
  for (int vid = 1; vid <= 40; ++vid) put(vid, 1, "Cash", "BANKS", vid);
  open("C1", 2008);
  journal().LOADGRID();
  EXPECT_EQ(statements().size(), 1U);
  exec("update Mast_Part set Particular='Till' where Particular='Cash'");
  journal().LOADGRID();
  EXPECT_EQ(journal().vsf.cell(1, 1), "By Till");
}

TEST_F(JournalLoading, SaysWhatCouldNotBeLoaded) {
  addYear("C1", 2008);
  put(1, 1, "Rent", "RENT", 40);
  put(1, 2, "Cash", "BANKS", -40);
  frmjrnl& form = open("C1", 2008);
  host().statements().failNext("from JRNL_1 LEFT JOIN");
  form.LOADGRID();
  EXPECT_EQ(form.vsf.rows(), 0);
  EXPECT_EQ(form.lblstatus.caption(), "The vouchers could not be loaded; the error log says why.");
  form.LOADGRID();
  EXPECT_EQ(form.lblstatus.caption(), "");

  // Lists and balances: said when they are missing, asked for once more when they are needed.
  close();
  for (const char* failing : {"sum(Amt) from TAB_1", "select * from mast_allgrp"}) {
    SCOPED_TRACE(failing);
    frmjrnl opened(context());
    host().statements().failNext(failing);
    opened.INITDATA("TAB_1", false);
    opened.show();
    EXPECT_EQ(shown(opened.VSF3), Rows{});
    EXPECT_EQ(opened.lblstatus.caption(), notLoaded);
    host().statements().failNext(failing);
    opened.click(opened.cmdadd);
    EXPECT_TRUE(opened.Frame1.visible());
    opened.click(opened.cmdadd);
    EXPECT_TRUE(opened.Frame2.visible());
    EXPECT_EQ(opened.VSF4.rows(), 4);
    yes();
    opened.close();
  }

  // A voucher that cannot be read, and one that somebody else has deleted.
  open("C1", 2008);
  for (const bool deleted : {false, true}) {
    pick(1);
    if (deleted) {
      exec("delete from JRNL_1 where VID=1");
    } else {
      host().statements().failNext("where VID=1");
    }
    journal().press(keys::Enter);
    EXPECT_TRUE(journal().Frame1.visible());
    EXPECT_EQ(journal().vsf.rows(), deleted ? 0 : 2);
    EXPECT_NE(journal().lblstatus.caption(), "");
  }
  messages();
}

}  // namespace
}  // namespace quillet::support
