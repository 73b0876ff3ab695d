// The ledger master through its form: use, the list of use, adding and renaming, failures.
#include <gtest/gtest.h>

#include "masters/masters_fixture.h"

namespace quillet::support {
namespace {

// --- use ----------------------------------------------------------------------------------------

TEST_F(LedgerMasterTest, MarksWhatAnyTableUsesAndAsksOnlyForWhatIsNew) {
  // Three names in the registry, one of them empty.
  EXPECT_EQ(progressOf([&] { form.showModal(); }), "Searching Ledgers in Use.... 3 of 3 moving");
  const std::string first = id("RENT") + "," + id("CASH");
  const std::string second = first + "," + id("BETA");
  const auto notIn = [](const std::string& table, const std::string& ids) {
    return "Select Distinct PartId From " + table + " Where PartId Not In (" + ids + ")";
  };
  EXPECT_EQ(statementsWith("PartId From"),
            (Texts{"Select Distinct PartId From TAB_1", notIn("JRNL_1", first),
                   notIn("TRADE_1", first), notIn("TAB_2", second), notIn("JRNL_2", second),
                   notIn("TRADE_2", second + "," + id("ALPHA"))}));
  EXPECT_EQ(shown(form.vsf),
            (Rows{{"ALPHA", "Y"}, {"BETA", "Y"}, {"CASH", "Y"}, {"GAMMA", "N"}, {"RENT", "Y"}}));
  EXPECT_EQ(form.vsf.current(), 0);
  EXPECT_EQ(form.lblcount.caption(), "5 of 5");

  for (const char* gone : {"4711", "null"}) use("TAB_1", gone, "1");
  exec("insert into Mast_Part values(" + id("RENT") + ",'RENT OLD')");
  form.close();
  open();
  EXPECT_EQ(shown(form.vsf).back(), (Texts{"RENT OLD", "Y"}));
  EXPECT_EQ(trapped(), Texts());
}

TEST_F(LedgerMasterTest, TheNamesOfOneIdAreOneLedger) {
  const std::string gamma = id("GAMMA");
  const Texts others = {"ALPHA", "BETA", "CASH", "RENT"};
  const auto begin = [&] {
    exec("delete from Mast_Part where PartId=" + gamma);
    exec("insert into Mast_Part values(" + gamma + ",'GAMMA'),(" + gamma + ",'GAMMA OLD')");
    form.close();
    open();
  };
  begin();
  modify("GAMMA OLD");
  enter("delta");
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "DELTA", "DELTA", "RENT"}))
      << "the statement renamed both";
  press(form.cmddelete, {yes});
  EXPECT_EQ(listed(), others);
  EXPECT_EQ(form.lblcount.caption() + form.VTxt1.text(), "4 of 4RENT");
  messages();

  begin();
  choose(notInUse);
  type(form.txtfind, "old");
  EXPECT_EQ(said(form.cmddelete, {yes}),
            asked("Do you really want to Delete 1 Ledger Masters Not in Use ?"));
  form.press(keys::Escape);
  EXPECT_EQ(listed(), Texts()) << "what the search hid went with its other name";

  begin();
  link("CASH", {"GAMMA OLD"});
  press(form.cmdlink, {yes});
  EXPECT_EQ(listed(), others);
}

TEST_F(LedgerMasterTest, AMissingTableIsNamedAndPassedOver) {
  exec("update master set tbl_nm='TAB_404' where f_yr='01042009'");
  exec("rename table TRADE_1 to TRADE_AWAY");
  open();
  EXPECT_EQ(useOf("RENT"), "Y");
  const auto link = [&] {
    LedgerMasterTest::link("CASH", {"RENT"});
    EXPECT_EQ(status(), "");
    press(form.cmdlink, {yes});
  };
  const auto view = [&] {
    pickLedger("GAMMA");
    form.lblstatus.setCaption("");
    press(form.cmdView);
    press(form.cmdbackC);
  };
  const Act acts[] = {[] {}, view, [&] { press(form.cmddelete, {yes}); }, link};
  for (const Act& act : acts) {
    act();
    EXPECT_EQ(status(), "Missing and passed over: TRADE_1, TAB_404, JRNL_404, TRADE_404.");
  }
  EXPECT_EQ(names(), (Texts{"CASH", "ALPHA", "BETA"}));
  EXPECT_EQ(rows("select distinct partid from TAB_1"), (Rows{{id("CASH")}}));
  EXPECT_EQ(trapped(), Texts());
  exec("rename table TRADE_AWAY to TRADE_1");
}

TEST_F(LedgerMasterTest, WhatWasNotSearchedToItsEndIsNotDeletedAsUnused) {
  const Act incomplete[] = {[&] { host().stopWork(2); }, [&] { fail("TAB_2"); }};
  const std::string counted = "5 of 5, not all that is in use is marked";
  for (const Act& act : incomplete) {
    act();
    leave(form);
    open();
    EXPECT_EQ(form.lblcount.caption(), counted);
    EXPECT_EQ(useOf("RENT") + useOf("ALPHA"), "YN") << "what was found stays found";
    choose(notInUse);
    EXPECT_EQ(said(form.cmddelete, {no}),
              asked("The search for what is in use has not come to its end, so nothing is deleted."
                    "\r\n\r\nDo you want to search again?"));
    EXPECT_EQ(listed(), (Texts{"ALPHA", "GAMMA"}));
    host().stopWork(0);
    press(form.cmddelete, {yes});
    EXPECT_EQ(status(), "The search for what is in use was stopped.");
    EXPECT_EQ(changes(), Texts());
    press(form.cmddelete, {yes});
    EXPECT_EQ(listed(), (Texts{"GAMMA"}));
    EXPECT_EQ(form.lblcount.caption(), "1 of 5");
  }
  press(form.cmddelete, {yes});
  EXPECT_EQ(names(), (Texts{"RENT", "CASH", "ALPHA", "BETA"}));
}

TEST_F(LedgerMasterTest, ASearchThatFailsChangesNothing) {
  fail("JRNL_1");
  open();
  EXPECT_EQ(trapped(), (Texts{"frmtbledmas\tFILLINUSE"}));
  EXPECT_EQ(useOf("RENT"), "Y") << "what was found stays found";
  EXPECT_EQ(status(), "What is in use could not be searched to its end; the error log says why.");
  pickLedger("GAMMA");
  pressFailing("JRNL_1", form.cmddelete);
  EXPECT_EQ(status(), unsearched);
  pressFailing("JRNL_1", form.cmdView);
  EXPECT_TRUE(form.vsf.shown()) << "half a list would deceive";
  modify("RENT");
  fail("JRNL_1");
  EXPECT_EQ(enter("cash"), "");
  EXPECT_EQ(status(), unsearched);
  EXPECT_EQ(trapped(), Texts(3, "frmtbledmas\tVIEWLISTOFUSE"));
  // A table is missing that is no year's: that is a failure like any other.
  press(form.cmdcancel);
  exec("rename table TempClTbl to TempClTbl_Away");
  press(form.cmddelete);
  exec("rename table TempClTbl_Away to TempClTbl");
  EXPECT_EQ(status(), unsearched);
  EXPECT_EQ(names().size(), 5U);
}

TEST_F(LedgerMasterTest, ListsWhoUsesAParticular) {
  for (const char* line : {"1", "2"}) use("JRNL_1", id("RENT"), line);
  open();
  pickLedger("RENT");
  EXPECT_EQ(progressOf([&] { press(form.cmdView); }), "Searching Ledgers in Use.... 3 of 3 moving");
  EXPECT_EQ(form.lblheadC.caption(), "List of Clients/F.Y. using Particulars \"RENT\"");
  EXPECT_EQ(shown(form.vsfC), (Rows{{"Asha Traders", "01042008-31032009", "Trial Balance"},
                                    {"Neighbour & Co", "01042008-31032009", "Trial Balance"},
                                    {"Asha Traders", "01042008-31032009", "Adj. Entries"}}));
  const std::string where = " Where PartId in (" + id("RENT") + ")";
  const std::string codes = "Select Distinct(Code_No) From ";
  const std::string lines = "Select Distinct(Code_No),PartId From ";
  EXPECT_EQ(statements(),
            (Texts{"Select distinct tbl_nm from master", lines + "TAB_1" + where,
                   "Select * From TempClTbl Where CodeNo='C1'",
                   "Select * From Master Where Code_No='C1' and Tbl_Nm='TAB_1'",
                   "Select * From TempClTbl Where CodeNo='O\\'C2'",
                   "Select * From Master Where Code_No='O\\'C2' and Tbl_Nm='TAB_1'",
                   codes + "JRNL_1" + where, codes + "TRADE_1" + where, lines + "TAB_2" + where,
                   codes + "JRNL_2" + where, codes + "TRADE_2" + where}));
  EXPECT_FALSE(form.vsf.shown());
  form.press(keys::Escape);
  EXPECT_TRUE(form.vsf.shown());
}

// --- adding and renaming ------------------------------------------------------------------------

TEST_F(LedgerMasterTest, Adds) {
  open();
  add("o'brien & söhne 100%");
  const std::string name = "O'BRIEN & SÖHNE 100%";
  EXPECT_EQ(names().back(), name);
  EXPECT_EQ(statements(),
            (Texts{"Select * From Mast_Part Where Particular='O\\'BRIEN & SÖHNE 100%'",
                   "Flush Tables", "Select * From Mast_Part Where PartId=" + id(name)}));
  EXPECT_EQ(current() + current(1), name + "N");
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "GAMMA", name, "RENT"}));
  EXPECT_EQ(add("cash"), told("Duplicate Particulars!!"));
  EXPECT_EQ(enter("  "), told("Please Specify 'Particulars'."));
  EXPECT_EQ(form.active(), &form.VTxt1);
  type(form.VTxt1, std::string(5000, 'x'));
  EXPECT_EQ(form.VTxt1.text(), std::string(100, 'X'));
  EXPECT_EQ(form.lblhint.caption(), "A ledger name holds at most 100 characters.");
  exec("rename table Mast_Part to Mast_Part_Away");
  exec("create table Mast_Part(PartId tinyint,Particular varchar(100))");
  exec("insert into Mast_Part values(127,'LAST')");
  EXPECT_EQ(enter("ONE MORE"), told("Failed to Create Master [ONE MORE]."));
  exec("drop table Mast_Part");
  exec("rename table Mast_Part_Away to Mast_Part");
}

TEST_F(LedgerMasterTest, Renames) {
  open();
  const std::string rent = id("RENT");
  const std::string name = "Particular='RENT \\\\ LEASE'";
  modify("RENT");
  EXPECT_EQ(form.VTxt1.selLength(), 4U);
  enter("rent \\ lease");
  EXPECT_EQ(statements(), (Texts{"Select * From Mast_Part Where " + name + " and PartId<>" + rent,
                                 "Update Mast_Part Set " + name + " Where PartId=" + rent,
                                 "Flush Tables", "Select * From Mast_Part Where PartId=" + rent,
                                 "Select distinct tbl_nm from master",
                                 "Select PartId From TAB_1 Where PartId=" + rent}))
      << "the first use found ends the search";
  EXPECT_EQ(current() + current(1), "RENT \\ LEASEY");
  EXPECT_EQ(names().size(), 5U);
}

TEST_F(LedgerMasterTest, ShowsTheNameThatStandsInTheWay) {
  exec("insert into Mast_Part values(70,'M²'),(71,'OLD\u200B  FEES')");
  const std::string alike = "There is 'M²', and the database cannot tell 'M2' from it.";
  open();
  EXPECT_EQ(add("m2"), told("Duplicate Particulars!!\r\n\r\n" + alike));
  EXPECT_EQ(enter("old fees"), told("Duplicate Particulars!!")) << "the same to a person";
  EXPECT_EQ(enter("\u200B\u3164"), told("Please Specify 'Particulars'."));
  enter("\u200Bbank\u00A0 charges\uFEFF");
  EXPECT_EQ(names().back(), "BANK CHARGES");
  type(form.txtfind, "\u00A0fees\u200B");
  EXPECT_EQ(listed(), (Texts{"OLD\u200B  FEES"}));
  form.press(keys::Escape);
  modify("RENT");
  EXPECT_EQ(enter("m2", {no}), asked("Can't create Duplicate Particulars!!\r\n\r\n" + alike +
                                     "\r\n\r\nDo you want to use the existing Particulars?"));
  press(form.cmdcancel);
  modify("M²");
  enter("m2");
  EXPECT_EQ(value("select Particular from Mast_Part where PartId=70"), "M2")
      << "its own name is not in the way";
}

TEST_F(LedgerMasterTest, RenamingToAnExistingNameOffersToReplace) {
  const std::string first =
      "Can't create Duplicate Particulars!!\r\n\r\nDo you want to use the existing Particulars?";
  const std::string second =
      "It will delete the existing particulars 'RENT' and will replace with 'CASH'.\r\n\r\n"
      "Confirm ?";
  open();
  modify("GAMMA");
  EXPECT_EQ(enter("cash"), told("Duplicate Particulars!!")) << "what nothing uses is not replaced";
  press(form.cmdcancel);

  modify("RENT");
  EXPECT_EQ(enter("cash", {no}), asked(first));
  press(form.cmdupdate, {yes, no});
  EXPECT_EQ(messages(), (Texts{first, second}));
  EXPECT_EQ(changes(), Texts());
  EXPECT_TRUE(form.cmdupdate.enabled());

  const std::string rent = id("RENT");
  press(form.cmdupdate, {yes, yes});
  EXPECT_EQ(changes(), updates(" Set PartId=" + id("CASH") + " Where PartId=" + rent,
                               {"Flush Tables", "Delete From Mast_Part Where PartId=" + rent,
                                "Flush Tables"}));
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "GAMMA"}));
  EXPECT_EQ(current(), "CASH");
  EXPECT_FALSE(form.cmdupdate.enabled());
  EXPECT_EQ(rows("select distinct code_no,partid from TAB_1"),
            (Rows{{"C1", id("CASH")}, {"O'C2", id("CASH")}}));
}

TEST_F(LedgerMasterTest, EscapeAsksBeforeItCancels) {
  open();
  pickLedger("CASH");
  form.vsf.setColumnWidth(0, 77);
  press(form.cmdmodify);
  for (const Answer reply : {no, yes}) {
    type(form.VTxt1, "new");
    EXPECT_EQ(said(keys::Escape, {reply}), asked("Do you want to Cancel this Entry?"));
    EXPECT_EQ(form.VTxt1.text(), reply == no ? "NEW" : "CASH");
  }
  EXPECT_EQ(form.active(), &form.vsf);
  EXPECT_EQ(form.vsf.columns()[0].width, 77) << "the columns are as they were drawn";
  EXPECT_EQ(changes(), Texts());
  EXPECT_FALSE(form.changed());
}

}  // namespace
}  // namespace quillet::support
