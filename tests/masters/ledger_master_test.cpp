// The ledger master through its form: use, saving, deleting, replacing and the list of use.
#include <gtest/gtest.h>

#include "masters/frmtbledmas.h"
#include "masters/masters_fixture.h"

namespace quillet::support {
namespace {

class LedgerMasterTest : public MasterTest<frmtbledmas> {
 protected:
  LedgerMasterTest() {
    addYear("C1", 2008, {{"RENT", "G", 100}, {"CASH", "G", -100}});
    addYear("O'C2", 2008, {{"RENT", "G", 300}});
    addYear("C1", 2009);
    for (const char* name : {"RENT", "CASH", "ALPHA", "BETA", "GAMMA"}) ledger(name);
    use("JRNL_2", id("ALPHA"), "1");
    use("TRADE_1", id("BETA"), "1", "'O\\'C2'");
    exec("insert into master(code_no,tbl_nm) values('C1','')");
  }
  std::string id(const std::string& name) { return std::to_string(ledger(name)); }
  void pickLedger(const std::string& name) { pick(form.vsf, 0, name); }
  std::string enter(const std::string& name, Answers answers = {}) {
    type(form.VTxt1, name);
    return said(form.cmdupdate, answers);
  }
  std::string add(const std::string& name) {
    press(form.cmdadd);
    return enter(name);
  }
  void modify(const std::string& name) {
    pickLedger(name);
    press(form.cmdmodify);
  }
  void link(const std::string& target, const Texts& ticked = {}) {
    pickLedger(target);
    press(form.cmdlink);
    for (const std::string& name : ticked) tick(name);
  }
  void tick(const std::string& name) { form.vsf.tick(form.vsf.find(0, name), true); }
  void choose(int option) { press(form.Option1[option]); }
  Texts names() {
    Texts all;
    for (const auto& row : rows("select Particular from Mast_Part order by PartId")) {
      all.push_back(row[0]);
    }
    return all;
  }
  Texts listed() { return MasterTest::listed(form.vsf); }
};

// --- use ----------------------------------------------------------------------------------------

TEST_F(LedgerMasterTest, MarksWhatAnyTableUsesAndAsksOnlyForWhatIsNew) {
  // Three names in the registry, one of them empty.
  EXPECT_EQ(progressOf([&] { form.showModal(); }), "Searching Ledgers in Use.... 3 of 3 moving");
  const std::string first = id("RENT") + "," + id("CASH");
  const std::string second = first + "," + id("BETA");
  const std::string third = second + "," + id("ALPHA");
  const auto notIn = [](const std::string& table, const std::string& ids) {
    return "Select Distinct PartId From " + table + " Where PartId Not In (" + ids + ")";
  };
  EXPECT_EQ(
      statementsWith("PartId From"),
      (Texts{"Select Distinct PartId From TAB_1", notIn("JRNL_1", first), notIn("TRADE_1", first),
             notIn("TAB_2", second), notIn("JRNL_2", second), notIn("TRADE_2", third)}));
  EXPECT_EQ(shown(form.vsf),
            (Rows{{"ALPHA", "Y"}, {"BETA", "Y"}, {"CASH", "Y"}, {"GAMMA", "N"}, {"RENT", "Y"}}));
  EXPECT_EQ(form.vsf.current(), 0);
  EXPECT_EQ(form.lblcount.caption(), "5 of 5");
}

TEST_F(LedgerMasterTest, UseOfLedgersThatAreGoneAndDoubleIdsDoNoHarm) {
  for (const char* gone : {"4711", "null"}) use("TAB_1", gone, "1");
  exec("insert into Mast_Part values(" + id("RENT") + ",'RENT OLD')");
  open();
  EXPECT_EQ(shown(form.vsf).back(), (Texts{"RENT OLD", "Y"}));
  EXPECT_EQ(errors(), Texts());
}

TEST_F(LedgerMasterTest, TheNamesOfOneIdAreOneLedger) {
  const std::string gamma = id("GAMMA");
  const auto begin = [&] {
    exec("delete from Mast_Part where PartId=" + gamma);
    exec("insert into Mast_Part values(" + gamma + ",'GAMMA')," + "(" + gamma + ",'GAMMA OLD')");
    form.close();
    open();
  };
  begin();
  modify("GAMMA OLD");
  enter("delta");
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "DELTA", "DELTA", "RENT"}))
      << "the statement renamed both";
  press(form.cmddelete, {yes});
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "RENT"}));
  EXPECT_EQ(form.lblcount.caption(), "4 of 4");
  EXPECT_EQ(form.VTxt1.text(), "RENT");
  messages();

  begin();
  choose(0);
  type(form.txtfind, "old");
  EXPECT_EQ(said(form.cmddelete, {yes}),
            asked("Do you really want to Delete 1 Ledger Masters Not in Use ?"));
  form.press(keys::Escape);
  EXPECT_EQ(listed(), Texts()) << "what the search hid went with its other name";

  begin();
  link("CASH", {"GAMMA OLD"});
  press(form.cmdlink, {yes});
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "RENT"}));
}

TEST_F(LedgerMasterTest, AMissingTableIsNamedAndPassedOver) {
  exec("update master set tbl_nm='TAB_404' where f_yr='01042009'");
  exec("rename table TRADE_1 to TRADE_AWAY");
  const std::string named = "Missing and passed over: TRADE_1, TAB_404, JRNL_404, TRADE_404.";
  open();
  EXPECT_EQ(form.lblstatus.caption(), named);
  EXPECT_EQ(form.vsf.cell(form.vsf.find(0, "RENT"), 1), "Y");
  pickLedger("GAMMA");
  form.lblstatus.setCaption("");
  press(form.cmdView);
  EXPECT_EQ(form.lblstatus.caption(), named);
  press(form.cmdbackC);
  press(form.cmddelete, {yes});
  EXPECT_EQ(form.lblstatus.caption(), named);
  EXPECT_EQ(names().size(), 4U) << "nothing can stand in what is not there";
  link("CASH");
  EXPECT_EQ(form.lblstatus.caption(), "");
  tick("RENT");
  press(form.cmdlink, {yes});
  EXPECT_EQ(form.lblstatus.caption(), named);
  EXPECT_EQ(names(), (Texts{"CASH", "ALPHA", "BETA"}));
  EXPECT_EQ(rows("select distinct partid from TAB_1"), (Rows{{id("CASH")}}));
  EXPECT_EQ(errors(), Texts());
  exec("rename table TRADE_AWAY to TRADE_1");
}

TEST_F(LedgerMasterTest, ASearchThatFailsChangesNothing) {
  const std::string unsearched = "The search failed; the error log says why. Nothing was deleted.";
  fail("JRNL_1");
  form.showModal();
  EXPECT_EQ(errors(), (Texts{"frmtbledmas\tFILLINUSE"}));
  EXPECT_EQ(form.vsf.cell(form.vsf.find(0, "RENT"), 1), "Y") << "what was found stays found";
  EXPECT_EQ(form.lblstatus.caption(),
            "What is in use could not be searched to its end; the error log says why.");
  pickLedger("GAMMA");
  fail("JRNL_1");
  EXPECT_EQ(said(form.cmddelete), "");
  EXPECT_EQ(form.lblstatus.caption(), unsearched);
  fail("JRNL_1");
  press(form.cmdView);
  EXPECT_TRUE(form.vsf.shown()) << "half a list would deceive";
  modify("RENT");
  fail("JRNL_1");
  EXPECT_EQ(enter("cash"), "");
  EXPECT_EQ(form.lblstatus.caption(), unsearched);
  EXPECT_EQ(errors(), Texts(3, "frmtbledmas\tVIEWLISTOFUSE"));
  // A table is missing that is no year's: that is a failure like any other.
  press(form.cmdcancel);
  exec("rename table TempClTbl to TempClTbl_Away");
  press(form.cmddelete);
  exec("rename table TempClTbl_Away to TempClTbl");
  EXPECT_EQ(form.lblstatus.caption(), unsearched);
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
  const Texts sent = statements();
  const std::string where = " Where PartId in (" + id("RENT") + ")";
  const std::string codes = "Select Distinct(Code_No) From ";
  const std::string lines = "Select Distinct(Code_No),PartId From ";
  EXPECT_EQ(sent,
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
  press(form.cmdadd);
  EXPECT_EQ(form.active(), &form.VTxt1);
  type(form.VTxt1, "o'brien & söhne 100%");
  form.press(keys::Enter);
  EXPECT_EQ(form.active(), &form.cmdupdate) << "Enter moves on";
  statements();
  form.press(keys::Enter);
  const std::string name = "O'BRIEN & SÖHNE 100%";
  EXPECT_EQ(names().back(), name);
  EXPECT_EQ(statements(),
            (Texts{"Select * From Mast_Part Where Particular='O\\'BRIEN & SÖHNE 100%'",
                   "Flush Tables", "Select * From Mast_Part Where PartId=" + id(name)}));
  EXPECT_EQ(current() + form.vsf.cell(form.vsf.current(), 1), name + "N");
  EXPECT_EQ(add("cash"), told("Duplicate Particulars!!"));
  EXPECT_EQ(enter("  "), told("Please Specify 'Particulars'."));
  EXPECT_EQ(form.active(), &form.VTxt1);
  type(form.VTxt1, std::string(5000, 'x'));
  EXPECT_EQ(form.VTxt1.text(), std::string(100, 'X'));
  EXPECT_EQ(form.lblhint.caption(), "A ledger name holds at most 100 characters.");
  exec("rename table Mast_Part to Mast_Part_Away");
  exec("create table Mast_Part like Mast_Part_Away");
  exec("alter table Mast_Part modify PartId tinyint");
  exec("insert into Mast_Part values(127,'LAST')");
  EXPECT_EQ(enter("ONE MORE"), told("Failed to Create Master [ONE MORE]."));
  exec("drop table Mast_Part");
  exec("rename table Mast_Part_Away to Mast_Part");
}

TEST_F(LedgerMasterTest, AwkwardNamesAreStoredAsTheyAre) {
  const char* cases[] = {"BACK\\SLASH\\",
                         "'); DROP TABLE MASTER; -- ' OR 1=1",
                         "100% _SURE_",
                         "\"QUOTED\" O'NEILL",
                         "COFFEE ☕ 👩‍💼",
                         "`TICK`"};
  open();
  for (const std::string name : cases) {
    add(name);
    EXPECT_EQ(names().back(), name);
    press(form.cmdmodify);
    enter(name + " 2");
    EXPECT_EQ(names().back() + current(), name + " 2" + name + " 2");
    EXPECT_EQ(
        said(form.cmddelete, {yes}),
        asked("Do you want to delele the Particulars [" + name + " 2] ?", "Delete Confirmation"));
    EXPECT_EQ(names().size(), 5U) << name;
  }
  EXPECT_EQ(errors(), Texts());
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
  EXPECT_EQ(current(), "RENT \\ LEASE");
  EXPECT_EQ(form.vsf.cell(form.vsf.current(), 1), "Y");
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
  const std::string set = " Set PartId=" + id("CASH") + " Where PartId=" + rent;
  press(form.cmdupdate, {yes, yes});
  EXPECT_EQ(changes(),
            (Texts{"Update TAB_1" + set, "Update JRNL_1" + set, "Update TRADE_1" + set,
                   "Update TAB_2" + set, "Update JRNL_2" + set, "Update TRADE_2" + set,
                   "Flush Tables", "Delete From Mast_Part Where PartId=" + rent, "Flush Tables"}));
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
  type(form.VTxt1, "new");
  EXPECT_EQ(said(keys::Escape, {no}), asked("Do you want to Cancel this Entry?"));
  EXPECT_EQ(form.VTxt1.text(), "NEW");
  answer({yes});
  form.press(keys::Escape);
  EXPECT_EQ(form.VTxt1.text(), "CASH");
  EXPECT_EQ(form.active(), &form.vsf);
  EXPECT_EQ(form.vsf.columns()[0].width, 77) << "the columns are as they were drawn";
  EXPECT_EQ(changes(), Texts());
  EXPECT_FALSE(form.changed());
}

// --- deleting -----------------------------------------------------------------------------------

TEST_F(LedgerMasterTest, DeletesOnlyWhatNothingUses) {
  const std::string refusal =
      "Particulars already in use. You can not delete this Particulars.\r\n\r\n"
      "Do you want to view the list of Client/F.Y. using the Particulars?";
  open();
  EXPECT_EQ(said(form.cmddelete), told("Please Select a Particulars."));
  for (const char* used : {"RENT", "ALPHA", "BETA"}) {
    pickLedger(used);
    EXPECT_EQ(said(form.cmddelete, {no}), asked(refusal)) << used;
    EXPECT_TRUE(form.vsf.shown());
  }
  press(form.cmddelete, {yes});
  EXPECT_EQ(form.lblheadC.caption(), "List of Clients/F.Y. using Particulars \"BETA\"");
  EXPECT_EQ(shown(form.vsfC), (Rows{{"Neighbour & Co", "01042008-31032009", "Closing Stock"}}));
  press(form.cmdbackC);
  pickLedger("GAMMA");
  messages();
  EXPECT_EQ(said(form.cmddelete, {no}),
            asked("Do you want to delele the Particulars [GAMMA] ?", "Delete Confirmation"));
  EXPECT_EQ(changes(), Texts());
  const std::string gamma = id("GAMMA");
  press(form.cmddelete, {yes});
  EXPECT_EQ(changes(), (Texts{"Delete from Mast_Part Where PartId=" + gamma, "Flush Tables"}));
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "RENT"}));
}

TEST_F(LedgerMasterTest, DeletesEverythingNotInUseAtOnce) {
  ledger("OMEGA");
  open();
  choose(0);
  EXPECT_EQ(listed(), (Texts{"GAMMA", "OMEGA"}));
  EXPECT_EQ(form.lblcount.caption(), "2 of 6");
  for (Button* senseless : {&form.cmdadd, &form.cmdmodify, &form.cmdView}) {
    EXPECT_FALSE(senseless->enabled()) << senseless->name();
  }
  use("JRNL_1", id("OMEGA"), "1");  // somebody passed an entry meanwhile
  EXPECT_EQ(said(form.cmddelete, {yes}),
            asked("Particulars already in use. You can not delete these Particulars.\r\n\r\n"
                  "Do you want to view the list of Client/F.Y. using the Particulars?"));
  EXPECT_EQ(form.lblheadC.caption(), "List of Clients/F.Y. using Particulars");
  EXPECT_EQ(shown(form.vsfC), (Rows{{"Asha Traders", "01042008-31032009", "Adj. Entries"}}));
  press(form.cmdbackC);
  EXPECT_EQ(listed(), (Texts{"GAMMA"})) << "what is used meanwhile is listed no more";
  ledger("PI");
  exec("delete from JRNL_1");
  press(form.cmdback);
  open();
  choose(0);
  const std::string ids = id("GAMMA") + "," + id("OMEGA") + "," + id("PI");
  statements();
  EXPECT_EQ(said(form.cmddelete, {yes}),
            asked("Do you really want to Delete 3 Ledger Masters Not in Use ?"));
  EXPECT_EQ(changes(),
            (Texts{"Delete From Mast_Part Where PartId In (" + ids + ")", "Flush Tables"}));
  EXPECT_EQ(listed(), Texts());
  EXPECT_EQ(said(form.cmddelete), told("Please select a Particulars."));
  choose(2);
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "RENT"}));
}

TEST_F(LedgerMasterTest, TheSearchNarrowsWhatIsListedAndWhatIsDeleted) {
  ledger("GAMMA RAY");
  open();
  form.focus(form.vsf);
  for (const char key : std::string("ray g")) form.press(static_cast<Key>(key));
  EXPECT_EQ(form.txtfind.text(), "ray g");
  EXPECT_EQ(listed(), (Texts{"GAMMA RAY"}));
  choose(0);
  press(form.cmddelete, {yes});
  EXPECT_EQ(messages().size(), 1U);
  EXPECT_EQ(names(), (Texts{"RENT", "CASH", "ALPHA", "BETA", "GAMMA"}));
  form.press(keys::Escape);
  EXPECT_EQ(listed(), (Texts{"GAMMA"}));
  choose(1);
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "RENT"}));
  EXPECT_FALSE(form.cmdadd.enabled());
  EXPECT_TRUE(form.cmdmodify.enabled());
}

TEST_F(LedgerMasterTest, TheSelectionStaysAmongTheRowsShown) {
  for (const char* name : {"GAMMA RAY", "GREY", "X RAY"}) ledger(name);
  open();
  // Deletes the ledger in the list narrowed to those with the word.
  const auto remove = [&](const char* word, const char* name) {
    type(form.txtfind, word);
    pickLedger(name);
    press(form.cmddelete, {yes});
    EXPECT_EQ(form.VTxt1.text(), current()) << "the fields follow";
    return current();
  };
  EXPECT_EQ(remove("ray", "GAMMA RAY"), "X RAY") << "the next one";
  EXPECT_EQ(remove("g", "GREY"), "GAMMA") << "or the last";
  EXPECT_EQ(remove("ray", "X RAY"), "") << "or none, when none is listed";
  EXPECT_EQ(form.lblcount.caption(), "0 of 5");

  type(form.txtfind, "");
  link("BETA");
  type(form.txtfind, "alpha");
  tick("ALPHA");
  press(form.cmdlink, {yes});
  EXPECT_EQ(current(), "") << "what the ledgers became is not listed";
  type(form.txtfind, "rent");
  modify("RENT");
  enter("cash", {yes, yes});
  EXPECT_EQ(current(), "");
  EXPECT_EQ(form.lblcount.caption(), "0 of 3");
  EXPECT_EQ(said(form.cmdmodify), told("Please Select a Particulars."));
  add("omega");
  EXPECT_EQ(form.lblcount.caption() + current(), "4 of 4OMEGA") << "whatever was searched for";
}

// --- linking ------------------------------------------------------------------------------------

TEST_F(LedgerMasterTest, LinksSeveralToOneEverywhere) {
  for (const char* name : {"ALPHA", "GAMMA"}) use("TAB_2", id(name), "1");
  open();
  EXPECT_EQ(said(form.cmdlink), told("Please Select a Paritculars."));
  EXPECT_FALSE(form.lbllink.shown());
  link("GAMMA");
  EXPECT_EQ(form.lbllink.caption(),
            "Particulars selected below will be deleted & will be replaced with 'GAMMA'");
  EXPECT_EQ(shown(form.vsf)[0], (Texts{"ALPHA", "Y", ""}));
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "RENT"})) << "the target is not among them";
  tick("GAMMA");
  EXPECT_EQ(said(form.cmdlink), told("Please select a Partiuclar."));
  form.vsf.setCurrent(form.vsf.find(0, "ALPHA"));
  form.focus(form.vsf);
  form.press(keys::Space);
  tick("BETA");
  EXPECT_EQ(said(form.cmdlink, {no}),
            asked("Do you really want to Replace ?\r\n\r\n'ALPHA'\r\n'BETA'\r\nwith 'GAMMA'\r\n\r\n"
                  "Click 'Yes' only if you are sure about use of this facility.\r\n\r\n"
                  "Confirm ?"));
  EXPECT_EQ(changes(), Texts());
  const std::string list = id("ALPHA") + "," + id("BETA");
  const std::string set = " Set PartId=" + id("GAMMA") + " Where PartId In (" + list + ")";
  EXPECT_EQ(progressOf([&] { press(form.cmdlink, {yes}); }), "Replacing Ledgers.... 3 of 3 moving");
  EXPECT_EQ(changes(),
            (Texts{"Update TAB_1" + set, "Update JRNL_1" + set, "Update TRADE_1" + set,
                   "Update TAB_2" + set, "Update JRNL_2" + set, "Update TRADE_2" + set,
                   "Delete From Mast_Part Where PartId In (" + list + ")", "Flush Tables"}));
  EXPECT_EQ(shown(form.vsf), (Rows{{"CASH", "Y"}, {"GAMMA", "Y"}, {"RENT", "Y"}}));
  EXPECT_EQ(rows("select PartId from TAB_2 union all select PartId from JRNL_2 union all select "
                 "partid from TRADE_1"),
            Rows(4, {id("GAMMA")}))
      << "two rows of one pair stay two until the pair is saved again";
}

TEST_F(LedgerMasterTest, LinkViewIsLeftWithoutAChange) {
  open();
  const Rows before = shown(form.vsf);
  const Act leaves[] = {[&] { press(form.cmdback); }, [&] { press(form.cmdcancel); },
                        [&] { EXPECT_NE(said(keys::Escape, {yes}), ""); }};
  for (const Act& leave : leaves) {
    link("CASH", {"RENT"});
    EXPECT_EQ(form.lblcount.caption(), "4 of 5, 1 ticked");
    leave();
    EXPECT_TRUE(form.visible());
    EXPECT_FALSE(form.lbllink.shown());
    EXPECT_EQ(form.lbllink.caption(), "All the Linked");
    EXPECT_EQ(shown(form.vsf), before);
    EXPECT_EQ(form.lblcount.caption(), "5 of 5");
    EXPECT_EQ(form.VTxt1.text(), "CASH") << "the target is selected again";
  }
  link("BETA");
  EXPECT_EQ(said(form.cmdupdate), told("Please select a Partiuclar.")) << "old ticks are forgotten";
  EXPECT_EQ(said(keys::Escape), "") << "nothing is ticked";
  EXPECT_FALSE(form.lbllink.shown());
  link("CASH", {"RENT"});
  type(form.txtfind, "rent");
  EXPECT_EQ(said(keys::Escape), "");
  EXPECT_EQ(form.txtfind.text(), "") << "the search first";
  const Act stays[] = {[&] { form.press(keys::Escape); }, [&] { form.close(); }};
  for (const Act& stay : stays) {
    answer({no});
    stay();
    EXPECT_EQ(onlyMessage(), asked("Do you want to Cancel this Entry?"));
    EXPECT_TRUE(form.lbllink.shown());
  }
  answer({yes});
  EXPECT_TRUE(form.close());
  EXPECT_EQ(changes(), Texts());
}

TEST_F(LedgerMasterTest, ALinkIsReadInFullAndCountedBeforeItIsConfirmed) {
  std::string all;
  for (int i = 1; i <= 30; ++i) {
    const std::string name = "LEDGER " + std::to_string(100 + i);
    ledger(name);
    all += "'" + name + "'\r\n";
  }
  open();
  link("CASH");
  type(form.txtfind, "ledger");
  for (int row = 1; row <= form.vsf.rows(); ++row) {
    if (!form.vsf.rowHidden(row)) form.vsf.tick(row, true);
  }
  EXPECT_EQ(form.lblcount.caption(), "30 of 35, 30 ticked");
  type(form.txtfind, "beta");
  EXPECT_EQ(form.lblcount.caption(), "1 of 35, 30 ticked (30 not listed)");
  EXPECT_EQ(said(form.cmdlink, {no}),
            asked("Do you really want to Replace ?\r\n\r\n" + all +
                  "with 'CASH'\r\n\r\nClick 'Yes' only if you are sure about use of this "
                  "facility.\r\n\r\nConfirm ?"));
  leave(form);
}

// --- failures -----------------------------------------------------------------------------------

TEST_F(LedgerMasterTest, NothingGoesIntoALedgerDeletedMeanwhile) {
  open();
  link("GAMMA", {"RENT"});
  exec("delete from Mast_Part where Particular='GAMMA'");
  press(form.cmdlink, {yes});
  EXPECT_EQ(messages().back(), "'GAMMA' is there no more: somebody has deleted it.");
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "RENT"}));
  EXPECT_FALSE(form.lbllink.shown());
  modify("BETA");
  exec("delete from Mast_Part where Particular='BETA'");
  enter("BET");
  EXPECT_EQ(listed(), (Texts{"ALPHA", "CASH", "RENT"}));
  EXPECT_EQ(form.lblstatus.caption(), "It is there no more: somebody has deleted it.");
  exec("delete from Mast_Part where Particular='CASH'");
  modify("RENT");
  EXPECT_EQ(enter("cash"), "") << "a name that is gone is free";
  EXPECT_EQ(names(), (Texts{"CASH", "ALPHA"}));
}

TEST_F(LedgerMasterTest, AListThatCouldNotBeReadIsNotShownInPart) {
  fail("Select * From Mast_Part");
  open();
  EXPECT_EQ(listed(), Texts());
  add("OMEGA");
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "GAMMA", "OMEGA", "RENT"}));
  choose(0);
  EXPECT_EQ(listed(), (Texts{"GAMMA", "OMEGA"}));
}

// The grid shows what is stored after a failure.
TEST_F(LedgerMasterTest, AfterAFailureTheGridShowsWhatIsStored) {
  const auto adding = [&] {
    press(form.cmdadd);
    type(form.VTxt1, "A NEW ONE");
  };
  const auto renaming = [&](const char* name) {
    modify("RENT");
    type(form.VTxt1, name);
  };
  const auto stands = [&](const char* name) { return form.vsf.find(0, name) > 0; };
  const auto replaceAgain = [&](const Act& act) {
    if (!form.cmdmodify.enabled()) return act();
    if (!stands("RENT")) return;
    pickLedger("RENT");
    if (form.vsf.cell(form.vsf.current(), 1) == "Y") {
      renaming("CASH");
      return act();
    }
    // What nothing uses any more is not replaced but deleted.
    press(form.cmddelete, {yes});
    pickLedger("CASH");
  };
  const auto linkAgain = [&](const Act& act) {
    if (stands("RENT")) return act();
    if (form.lbllink.shown()) press(form.cmdback);
  };
  const auto deleteAgain = [&](const Act& act) {
    if (stands("GAMMA")) act();
  };
  const Deed deeds[] = {
      {"adding", adding, form.cmdupdate, 0},
      {"renaming", [&] { renaming("A RENT"); }, form.cmdupdate, 0},
      {"replacing", [&] { renaming("CASH"); }, form.cmdupdate, 2, 0, replaceAgain},
      {"linking",
       [&] {
         link("CASH", {"RENT", "ALPHA"});
       },
       form.cmdlink, 1, 0, linkAgain},
      {"deleting", [&] { pickLedger("GAMMA"); }, form.cmddelete, 1, 0, deleteAgain},
      {"deleting all", [&] { choose(0); }, form.cmddelete},
  };
  const auto result = [&] {
    Rows all = rows(
        "select PartId,Particular from Mast_Part union all select partid,1 from TAB_1 "
        "union all select PartId,2 from JRNL_2 union all select partid,3 from TRADE_1 "
        "order by 1,2");
    for (auto& row : shown(form.vsf)) all.push_back(row);
    all.push_back({form.cmdcancel.enabled() ? "editing" : "browsing", form.lblcount.caption()});
    return all;
  };
  ledger("OMEGA");
  keep({"Mast_Part", "TAB_1", "JRNL_2", "TRADE_1"});
  for (const Deed& deed : deeds) {
    failEach(deed, result, [&] {
      Rows all;
      for (int row = 1; row <= form.vsf.rows(); ++row) all.push_back({form.vsf.cell(row, 0)});
      EXPECT_EQ(all, rows("select Particular from Mast_Part order by 1"));
      if (form.cmdupdate.enabled() && form.lbllink.shown()) {
        EXPECT_TRUE(!stands("RENT") || form.vsf.ticked(form.vsf.find(0, "RENT"))) << "ticks stay";
      } else if (form.cmdupdate.enabled() && deed.questions == 0) {
        EXPECT_EQ(form.VTxt1.text().substr(0, 2), "A ") << "what was typed stays";
        EXPECT_NE(form.lblstatus.caption(), "");
      }
    });
  }
}

TEST_F(LedgerMasterTest, ARowStandsWhereTheOrderPutsIt) {
  open();
  add("AZURE");
  EXPECT_EQ(listed(), (Texts{"ALPHA", "AZURE", "BETA", "CASH", "GAMMA", "RENT"}));
  EXPECT_EQ(form.vsf.current(), 2);
  press(form.cmdmodify);
  enter("ZEBRA");
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "GAMMA", "RENT", "ZEBRA"}));
  EXPECT_EQ(form.VTxt1.text(), "ZEBRA");
  press(form.cmdmodify);
  answer({no});
  EXPECT_FALSE(form.close()) << "an entry is begun";
  leave(form);
}

}  // namespace
}  // namespace quillet::support
