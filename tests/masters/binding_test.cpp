// The raw-material binding through its form: lists, items, order, import, heads.
#include <gtest/gtest.h>

#include "masters/frmgrpRM.h"
#include "masters/masters_fixture.h"

namespace quillet::support {
namespace {

class BindingTest : public MasterTest<frmgrpRM> {
 protected:
  BindingTest() {
    for (const char* name : {"OPEN A", "OPEN B", "OPEN UNUSED"}) group(name, 18);
    for (const char* name : {"BUY A", "BUY B"}) group(name, 19);
    for (const char* name : {"CLOSE A", "CLOSE UNUSED"}) group(name, 7);
    addYear("C1", 2007);
    addYear("C1", 2008,
            {{"a", "OPEN A", 1}, {"b", "OPEN B", 1}, {"c", "BUY A", 1}, {"d", "BUY B", 1}});
    addYear("O'C2", 2008);
    addYear("O'C2", 2009, {{"e", "OPEN UNUSED", 1}});
    exec("insert into TRADE_2(code_no,partid,allid,amt) values('C1',1," + id("CLOSE A") + ",1)");
    neighbour = "values('O\\'C2',7,1," + id("OPEN A") + ",0,0,0,4)";
    exec("insert into RMGRP_2 " + neighbour);
  }
  std::string id(const std::string& name) { return std::to_string(group(name)); }
  void bind(const std::string& values) { exec("insert into " + values); }
  // Shows the form without a question about the previous year.
  void open() {
    form.INITDATA({"C1", "Asha Traders", "TAB_2", "01042008", "31032009"});
    MasterTest::open();
  }
  std::string enter(const std::string& head, const Texts& groups) {
    if (!head.empty()) choose(form.cbohead, head);
    for (int i = 0; i < 3; ++i) choose(form.cbogroup[i], groups[static_cast<std::size_t>(i)]);
    return said(form.cmdupdateM);
  }
  void modify(long srNo) {
    pickId(form.vsfM, srNo);
    press(form.cmdmodifyM);
  }
  std::string enterHead(const std::string& text, const std::string& type = {}) {
    MastersTest::type(form.txthead, text);
    if (!type.empty()) choose(form.cbotype, type);
    return said(form.cmdupdateG);
  }
  Rows stored(const std::string& client = "C1") {
    return rows(
        "select SrNo,GrpSr,OsGrpId,PurGrpId,SalGrpId,CsGrpId,GrpOrder from RMGRP_2 where "
        "Code_No='" +
        client + "' order by SrNo");
  }
  // Three items in the order 2, 3, 1 of their numbers.
  void bindThree() {
    bind("RMGRP_2 values('C1',1,1," + id("OPEN A") + ",0,0,0,3),('C1',2,2," + id("OPEN B") +
         ",0,0,0,1),('C1',3,3,0," + id("BUY A") + ",0,0,2)");
  }
  Texts order() { return listed(form.vsfM); }

  std::string neighbour;
};

TEST_F(BindingTest, SeedsTheHeadsAndOffersWhatTheYearUses) {
  form.INITDATA({"C1", "Asha Traders", "tab_2", "01042008", "31032009"});
  form.showModal();
  EXPECT_EQ(form.caption(),
            "Group Binding (Manufacturing) of Asha Traders for the Period from 01/04/2008 to "
            "31/03/2009");
  EXPECT_EQ(changes(),
            (Texts{"Insert into RawMatGrpM Values (1,'RAW MATERIAL',1)",
                   "Insert into RawMatGrpM Values (2,'FINISHED GOODS',2)",
                   "Insert into RawMatGrpM Values (3,'WORK-IN-PROGRESS',3)",
                   "Insert into RawMatGrpM Values (4,'STORES AND SPARES',4)",
                   "Insert into RawMatGrpM Values (5,'OTHER CONSUMABLES',4)", "Flush Tables"}));
  EXPECT_EQ(form.cbohead.items(), (Texts{"RAW MATERIAL", "FINISHED GOODS", "WORK-IN-PROGRESS",
                                         "STORES AND SPARES", "OTHER CONSUMABLES"}));
  EXPECT_EQ(form.cbogroup[0].items(), (Texts{"(None)", "OPEN A", "OPEN B"}));
  EXPECT_EQ(form.cbogroup[1].items(), (Texts{"(None)", "BUY A", "BUY B"}));
  EXPECT_EQ(form.cbogroup[2].items(), (Texts{"(None)", "CLOSE A"}));
  EXPECT_EQ(form.vsfM.rows(), 0) << "the neighbour's items stay his";
}

TEST_F(BindingTest, OffersWhatIsBoundThoughTheYearHasLostIt) {
  bind("RMGRP_2 values('C1',1,1," + id("OPEN UNUSED") + ",0,0," + id("CLOSE UNUSED") + ",1)");
  exec("insert into RawMatGrpM values(1,'STEEL',1)");
  form.INITDATA({"C1", "Asha Traders", "TAB_2", "01042008", "31032009"});
  form.showModal();
  EXPECT_EQ(form.cbogroup[0].items(), (Texts{"(None)", "OPEN A", "OPEN B", "OPEN UNUSED"}));
  EXPECT_EQ(form.cbogroup[2].items(), (Texts{"(None)", "CLOSE A", "CLOSE UNUSED"}));
  EXPECT_EQ(shown(form.vsfM), (Rows{{"STEEL", "OPEN UNUSED", "(None)", "CLOSE UNUSED"}}));
  const Texts sent = statements();
  EXPECT_EQ(sent[1],
            "Select Distinct TAB_2.allid from TAB_2,mast_allgrp Where "
            "TAB_2.allid=mast_allgrp.allid and mast_allgrp.gid=18 and TAB_2.Code_No='C1'");
  EXPECT_EQ(sent[3], "Select Distinct TRADE_2.allid from TRADE_2 Where Code_No='C1'");
  EXPECT_EQ(sent[4], "Select * from RMGRP_2 Where Code_No='C1'");
  EXPECT_EQ(sent[7], "Select * from Mast_AllGrp Where GID=7 and AllId in (" + id("CLOSE A") + "," +
                         id("CLOSE UNUSED") + ") Order by AllGrp");
}

// --- items --------------------------------------------------------------------------------------

TEST_F(BindingTest, AddsAndChangesItems) {
  open();
  press(form.cmdaddM);
  EXPECT_EQ(form.cbogroup[1].text(), "(None)");
  enter("RAW MATERIAL", {"OPEN A", "BUY A", "CLOSE A"});
  const std::string column = " Where Code_No='C1' and ";
  Texts sent = statements();
  EXPECT_EQ(sent.back(), "Select * from RMGRP_2" + column + "SrNo=1");
  sent.resize(7);
  EXPECT_EQ(sent, (Texts{"Select * from RMGRP_2" + column + "OsGrpId=" + id("OPEN A"),
                         "Select * from RMGRP_2" + column + "PurGrpId=" + id("BUY A"),
                         "Select * from RMGRP_2" + column + "CsGrpId=" + id("CLOSE A"),
                         "Select Max(SrNo) from RMGRP_2 Where Code_No='C1'",
                         "Select Max(GrpOrder) from RMGRP_2 Where Code_No='C1'",
                         "Insert Into RMGRP_2 Values ('C1',1,1," + id("OPEN A") + "," +
                             id("BUY A") + ",0," + id("CLOSE A") + ",1)",
                         "Flush Tables"}));
  press(form.cmdaddM);
  enter("RAW MATERIAL", {"OPEN B", "(None)", "(None)"});
  EXPECT_EQ(shown(form.vsfM), (Rows{{"RAW MATERIAL", "OPEN A", "BUY A", "CLOSE A"},
                                    {"RAW MATERIAL", "OPEN B", "(None)", "(None)"}}));
  exec("update RMGRP_2 set SalGrpId=99 where Code_No='C1'");
  statements();
  press(form.cmdmodifyM);
  enter("FINISHED GOODS", {"OPEN B", "BUY B", "(None)"});
  EXPECT_EQ(statements()[2], "Update RMGRP_2 Set GrpSr=2,OsGrpId=" + id("OPEN B") +
                                 ",PurGrpId=" + id("BUY B") +
                                 ",SalGrpId=0,CsGrpId=0 Where Code_No='C1' and SrNo=2");
  EXPECT_EQ(stored()[1], (Texts{"2", "2", id("OPEN B"), id("BUY B"), "0", "0", "2"}));
  EXPECT_EQ(stored("O\\'C2").size(), 1U);
}

TEST_F(BindingTest, AGroupThatIsReleasedIsNoLongerOffered) {
  bind("RMGRP_2 values('C1',1,1,0,0,0," + id("CLOSE UNUSED") + ",1),('C1',2,2," +
       id("OPEN UNUSED") + ",0,0,0,2)");
  open();
  modify(1);
  enter("", {"(None)", "(None)", "CLOSE A"});
  EXPECT_EQ(form.cbogroup[2].items(), (Texts{"(None)", "CLOSE A"}));
  EXPECT_EQ(form.cbogroup[2].text(), "CLOSE A") << "the fields show the saved item";
  pickId(form.vsfM, 2);
  press(form.cmddeleteM, {yes});
  EXPECT_EQ(form.cbogroup[0].items(), (Texts{"(None)", "OPEN A", "OPEN B"}));
  EXPECT_EQ(form.cbogroup[2].text(), "CLOSE A") << "of the item that is left";
}

TEST_F(BindingTest, ABoundGroupIsKeptWhereverItWent) {
  const std::string moved = id("OPEN UNUSED");
  bind("RMGRP_2 values('C1',1,1," + moved + ",777,0,0,1)");
  exec("update Mast_AllGrp set GID=22 where ALLID=" + moved);
  open();
  EXPECT_EQ(shown(form.vsfM), (Rows{{"RAW MATERIAL", moved, "777", "(None)"}}));
  modify(1);
  choose(form.cbohead, "FINISHED GOODS");
  press(form.cmdupdateM);
  EXPECT_EQ(stored(), (Rows{{"1", "2", moved, "777", "0", "0", "1"}}));
}

TEST_F(BindingTest, RefusalsComeInTheirOrder) {
  bindThree();
  open();
  const Texts none = {"(None)", "(None)", "(None)"};
  for (Button* command : {&form.cmdmodifyM, &form.cmddeleteM}) {
    EXPECT_EQ(said(*command), told("Please Select an Item."));
  }
  press(form.cmdaddM);
  EXPECT_EQ(said(form.cmdupdateM), told("Please Select 'Raw Material Group Type'."));
  EXPECT_EQ(form.active(), &form.cbohead);
  EXPECT_EQ(enter("RAW MATERIAL", none), told("Please Select Group for atleast one Item."));
  EXPECT_EQ(enter("", {"OPEN A", "BUY A", "(None)"}), told("Opening Stock already used!!"));
  EXPECT_EQ(enter("", {"(None)", "BUY A", "(None)"}), told("Purchases already used!!"));
  press(form.cmdcancelM);
  modify(1);
  EXPECT_EQ(enter("", {"OPEN B", "(None)", "(None)"}), told("Opening Stock already used!!"));
  EXPECT_EQ(said(keys::Escape, {no}), asked("Do you want to Cancel Entry?"));
  EXPECT_EQ(changes(), Texts());
  EXPECT_EQ(enter("", {"OPEN A", "(None)", "(None)"}), "") << "an item's own group is free to it";
}

TEST_F(BindingTest, DeletingClosesTheGapInTheOrder) {
  bindThree();
  open();
  EXPECT_EQ(order(), (Texts{"FINISHED GOODS", "WORK-IN-PROGRESS", "RAW MATERIAL"}));
  pickId(form.vsfM, 3);
  EXPECT_EQ(said(form.cmddeleteM, {no}),
            asked("Do you want to delele the Selected Item ?", "Delete Confirmation"));
  EXPECT_EQ(changes(), Texts());
  press(form.cmddeleteM, {yes});
  EXPECT_EQ(changes(), (Texts{"Delete from RMGRP_2 Where Code_No='C1' and SrNo=3", "Flush Tables",
                              "Update RMGRP_2 Set GrpOrder=GrpOrder-1 Where Code_No='C1' and "
                              "GrpOrder>2",
                              "Flush Tables"}));
  EXPECT_EQ(rows("select SrNo,GrpOrder from RMGRP_2 where Code_No='C1' order by GrpOrder"),
            (Rows{{"2", "1"}, {"1", "2"}}));
  EXPECT_EQ(rows("select GrpOrder from RMGRP_2 where Code_No<>'C1'"), (Rows{{"4"}}));
  EXPECT_EQ(form.vsfM.current(), 2);
  EXPECT_EQ(form.cbohead.text(), "RAW MATERIAL") << "the fields follow";
}

TEST_F(BindingTest, SortsByHand) {
  bindThree();
  open();
  EXPECT_FALSE(form.cmdup.enabled());
  press(form.cmdsortorder);
  EXPECT_EQ(said(form.cmdup), told("Please Select an Item."));
  pickId(form.vsfM, 1);
  for (int step = 0; step < 3; ++step) press(form.cmdup);
  EXPECT_EQ(order(), (Texts{"RAW MATERIAL", "FINISHED GOODS", "WORK-IN-PROGRESS"}));
  press(form.cmddown);
  EXPECT_EQ(order(), (Texts{"FINISHED GOODS", "RAW MATERIAL", "WORK-IN-PROGRESS"}));
  EXPECT_EQ(said(keys::Escape, {yes}), asked("Do you want to Cancel Changes in Sorting Order?"));
  EXPECT_EQ(order(), (Texts{"FINISHED GOODS", "WORK-IN-PROGRESS", "RAW MATERIAL"}));
  EXPECT_EQ(changes(), Texts());

  press(form.cmdsortorder);
  pickId(form.vsfM, 3);
  press(form.cmdup);
  for (const Answer reply : {no, yes}) {
    EXPECT_EQ(said(form.cmdupdateM, {reply}), asked("Do you want to Update Sorting Order?"));
  }
  const auto update = [](int place, int item) {
    return "Update RMGRP_2 Set GrpOrder=" + std::to_string(place) +
           " Where Code_No='C1' and SrNo=" + std::to_string(item);
  };
  EXPECT_EQ(changes(), (Texts{update(1, 3), update(2, 2), update(3, 1), "Flush Tables"}));
  EXPECT_EQ(order(), (Texts{"WORK-IN-PROGRESS", "FINISHED GOODS", "RAW MATERIAL"}));
  EXPECT_EQ(form.vsfM.current(), 1);
  for (const Answer reply : {no, yes}) {
    EXPECT_EQ(said(form.cmdbackM, {reply}), asked("Do you want to Exit?"));
    EXPECT_EQ(form.visible(), reply == no);
  }
}

// --- the previous year --------------------------------------------------------------------------

TEST_F(BindingTest, ImportsThePreviousYear) {
  bind("RMGRP_1 values('C1',1,1," + id("OPEN A") + ",0,0,0,2),('C1',2,2," + id("OPEN B") +
       ",0,0,0,1)");
  bind("RMGRP_1 " + neighbour);
  exec("insert into RmSchSetup values('C1',2008,'It\\'s','R','O','P','S','C')");
  answer({no});
  open();
  EXPECT_EQ(onlyMessage(), asked("Do you want to Import from Previous Year?"));
  EXPECT_EQ(stored(), Rows());
  answer({yes, yes});
  form.close();
  statements();
  form.showModal();
  const Texts sent = statements();
  const auto from = std::find(sent.begin(), sent.end(),
                              "Select * from master where code_no='C1' and f_yr='01042007' and "
                              "s_yr='31032008'");
  ASSERT_NE(from, sent.end());
  EXPECT_EQ(Texts(from + 1, from + 8),
            (Texts{"Select * from RMGRP_1 Where Code_No='C1' Order by GrpOrder",
                   "Insert into RMGRP_2 Select * from RMGRP_1 Where Code_No='C1'", "Flush Tables",
                   "Select * from RmSchSetup Where Code_No='C1' and FYr=2008",
                   "Select * from RmSchSetup Where Code_No='C1' and FYr=2009",
                   "Insert into RmSchSetup Values ('C1',2009,'It\\'s','R','O','P','S','C')",
                   "Flush Tables"}));
  EXPECT_EQ(order(), (Texts{"FINISHED GOODS", "RAW MATERIAL"}));
  EXPECT_EQ(stored().size(), 2U);
  EXPECT_EQ(stored("O\\'C2").size(), 1U);
  leave(form);
  form.showModal();
  EXPECT_TRUE(messages().empty()) << "a year that has a binding keeps it";

  leave(form);
  exec("delete from RMGRP_2 where Code_No='C1'");
  exec("update RmSchSetup set Head='new' where FYr=2009");
  answer({yes});
  form.showModal();
  EXPECT_EQ(rows("select Head from RmSchSetup where FYr=2009"), (Rows{{"new"}}));
}

TEST_F(BindingTest, AQuoteInTheClientsCodeKeepsItsRowsApart) {
  bindThree();
  exec("delete from RMGRP_2 where Code_No<>'C1'");
  bind("RMGRP_1 " + neighbour);
  exec("insert into RmSchSetup values(\"O'C2\",2009,'H','R','O','P','S','C')");
  answer({yes});
  form.INITDATA({"O'C2", "Neighbour & Co", "TAB_2", "01042009", "31032010"});
  form.showModal();
  EXPECT_EQ(onlyMessage(), asked("Do you want to Import from Previous Year?"));
  EXPECT_EQ(value("select Head from RmSchSetup where FYr=2010"), "H");
  press(form.cmdaddM);
  enter("FINISHED GOODS", {"OPEN UNUSED", "(None)", "(None)"});
  press(form.cmdsortorder);
  press(form.cmdup);
  press(form.cmdsortorder, {yes});
  EXPECT_EQ(order(), (Texts{"FINISHED GOODS", "RAW MATERIAL"}));
  EXPECT_EQ(stored("O\\'C2"), (Rows{{"7", "1", id("OPEN A"), "0", "0", "0", "2"},
                                    {"8", "2", id("OPEN UNUSED"), "0", "0", "0", "1"}}));
  press(form.cmddeleteM, {yes});
  EXPECT_EQ(stored("O\\'C2"), (Rows{{"7", "1", id("OPEN A"), "0", "0", "0", "1"}}));
  EXPECT_EQ(stored().size(), 3U);
  EXPECT_EQ(trapped(), Texts());
}

TEST_F(BindingTest, NothingIsImportedWhenTheYearCannotBeRead) {
  bindThree();
  bind("RMGRP_1 values('C1',1,1,0,0,0,0,1)");
  exec("rename table RMGRP_2 to RMGRP_AWAY");
  open();
  exec("rename table RMGRP_AWAY to RMGRP_2");
  EXPECT_EQ(trapped(), (Texts{"frmgrpRM\tLOADLIST", "frmgrpRM\tLOADGRIDM"}));
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(stored().size(), 3U);
}

TEST_F(BindingTest, AnItemLosesNothingWhenTheListsCannotBeRead) {
  bind("RMGRP_2 values('C1',1,1," + id("OPEN A") + "," + id("BUY A") + ",0,0,1)");
  fail("Where GID=19");
  open();
  for (Button* command : {&form.cmdaddM, &form.cmdmodifyM}) {
    form.vsfM.setCurrent(1);
    fail("Where GID=19");
    press(*command);
    EXPECT_EQ(form.lblstatus.caption(),
              "The groups to choose from could not be read; the error log says why.");
    EXPECT_FALSE(form.cmdupdateM.enabled());
  }
  press(form.cmdmodifyM);
  choose(form.cbohead, "FINISHED GOODS");
  press(form.cmdupdateM);
  EXPECT_EQ(stored(), (Rows{{"1", "2", id("OPEN A"), id("BUY A"), "0", "0", "1"}}));
  EXPECT_EQ(shown(form.vsfM), (Rows{{"FINISHED GOODS", "OPEN A", "BUY A", "(None)"}}));
}

// --- heads --------------------------------------------------------------------------------------

TEST_F(BindingTest, KeepsTheHeads) {
  open();
  exec("update RawMatGrpM set GrpHead='OTHER  CONSUMABLES' where GrpId=5");
  press(form.cmdgrpM);
  EXPECT_EQ(shown(form.vsfG).back(), (Texts{"OTHER  CONSUMABLES", "OTHERS"}));
  press(form.cmdaddG);
  EXPECT_EQ(enterHead(""), told("Please Specify 'Heading'."));
  EXPECT_EQ(enterHead("raw material"), told("Please Select 'Type'."));
  EXPECT_EQ(enterHead("raw material", "RAW MATERIAL"), told("Duplicate Raw Material Group!!"));
  EXPECT_EQ(enterHead("other consumables", "OTHERS"), told("Duplicate Raw Material Group!!"))
      << "blanks do not count";
  statements();
  EXPECT_EQ(enterHead("\u200BRAW\u00A0 MATERIAL"), "");
  EXPECT_EQ(statements(),
            (Texts{"Select * from RawMatGrpM Where GrpHead='RAW MATERIAL' and GrpType=4",
                   "Select Max(GrpId) from RawMatGrpM",
                   "Insert Into RawMatGrpM Values (6,'RAW MATERIAL',4)", "Flush Tables",
                   "Select * from RawMatGrpM Where GrpId=6"}))
      << "the same heading may stand under another type";
  form.vsfG.sortBy(0);
  press(form.cmdmodifyG);
  fail("Update RawMatGrpM");
  enterHead("O'Neill \\ \"x\" ☕ 100%");
  EXPECT_EQ(trapped(), (Texts{"frmgrpRM\tCMDUDPATEG_CLICK"}));
  changes();
  press(form.cmdupdateG);
  EXPECT_EQ(changes(),
            (Texts{"Update RawMatGrpM Set GrpHead='O\\'Neill \\\\ \\\"x\\\" ☕ 100%',GrpType=4 "
                   "Where GrpId=6",
                   "Flush Tables"}));
  EXPECT_EQ(shown(form.vsfG)[1], (Texts{"O'Neill \\ \"x\" ☕ 100%", "OTHERS"}))
      << "where the order puts it";
  press(form.cmdaddG);
  type(form.txthead, std::string(5000, 'x'));
  EXPECT_EQ(form.txthead.text(), std::string(100, 'x'));
  EXPECT_EQ(form.lblhint.caption(), "A heading holds at most 100 characters.");
  EXPECT_EQ(said(keys::Escape, {yes}), asked("Do you want to Cancel Entry?"));
  press(form.cmdbackG);
  EXPECT_EQ(form.cbohead.items().back(), "O'Neill \\ \"x\" ☕ 100%");
}

TEST_F(BindingTest, AHeadThatAnyYearBindsCannotBeDeleted) {
  open();
  press(form.cmdgrpM);
  EXPECT_EQ(said(form.cmddeleteG), told("Please Select an Item."));
  pickId(form.vsfG, 1);
  EXPECT_EQ(said(form.cmddeleteG),
            told("Raw Material Group already in use. You can not delete this Group."));
  pickId(form.vsfG, 5);
  EXPECT_EQ(said(form.cmddeleteG, {yes}),
            asked("Do you want to delele the Raw Material Group [OTHER "
                  "CONSUMABLES] ?",
                  "Delete Confirmation"));
  EXPECT_EQ(statementsWith("GrpSr="),
            (Texts{"Select * from RMGRP_1 Where GrpSr=1", "Select * from RMGRP_2 Where GrpSr=1",
                   "Select * from RMGRP_1 Where GrpSr=5", "Select * from RMGRP_2 Where GrpSr=5"}));
  EXPECT_EQ(form.vsfG.rows(), 4);
  fail("RMGRP_2");
  press(form.cmddeleteG);
  EXPECT_EQ(trapped(), (Texts{"frmgrpRM\tCHECKEXISTS"}));
  EXPECT_EQ(form.lblstatus.caption(),
            "The search failed; the error log says why. Nothing was deleted.");
  EXPECT_EQ(value("select count(*) from RawMatGrpM"), "4");
  exec("update master set tbl_nm='TAB_404'");
  press(form.cmddeleteG, {yes});
  EXPECT_EQ(form.lblstatus.caption(), "Missing and passed over: RMGRP_404.");
  EXPECT_EQ(form.vsfG.rows(), 3);
}

// --- failures -----------------------------------------------------------------------------------

// The grid of the page shows what is stored after a failure.
TEST_F(BindingTest, AfterAFailureTheGridShowsWhatIsStored) {
  const auto choices = [&] {
    choose(form.cbohead, "OTHER CONSUMABLES");
    choose(form.cbogroup[1], "BUY B");
  };
  const auto adding = [&] {
    press(form.cmdaddM);
    choices();
  };
  const auto modifying = [&] {
    modify(1);
    choices();
  };
  const auto sorting = [&] {
    press(form.cmdsortorder);
    pickId(form.vsfM, 1);
    press(form.cmdup);
  };
  const auto lastHead = [&] {
    press(form.cmdgrpM);
    pickId(form.vsfG, 5);
  };
  const auto head = [&](Button& command) {
    lastHead();
    press(command);
    type(form.txthead, "A HEAD");
    choose(form.cbotype, "OTHERS");
  };
  const auto deleteAgain = [&](const Act& act) {
    if (form.vsfG.rows() == 5) act();
  };
  // What is deleted is gone, and its place in the order may stay empty. The order that a person
  // made is the grid itself, which shows the stored one again.
  const Deed deeds[] = {
      {"adding", adding, form.cmdupdateM, 1, 9},
      {"modifying", modifying, form.cmdupdateM, 1, 9},
      {"deleting", [&] { pickId(form.vsfM, 3); }, form.cmddeleteM, 1, 9, {}, false},
      {"sorting", sorting, form.cmdupdateM, 1, 1, {}, false},
      {"adding a head", [&] { head(form.cmdaddG); }, form.cmdupdateG},
      {"modifying a head", [&] { head(form.cmdmodifyG); }, form.cmdupdateG},
      {"deleting a head", lastHead, form.cmddeleteG, 1, 0, deleteAgain},
  };
  const auto page = [&]() -> Grid& { return form.famG.visible() ? form.vsfG : form.vsfM; };
  const auto result = [&] {
    Rows all = stored();
    for (auto& row : rows("select * from RawMatGrpM")) all.push_back(row);
    for (auto& row : shown(page())) all.push_back(row);
    all.push_back({form.cmdupdateM.enabled() ? "editing" : "browsing"});
    return all;
  };
  bindThree();
  open();
  keep({"RMGRP_2", "RawMatGrpM"});
  for (const Deed& deed : deeds) {
    failEach(deed, result, [&] {
      Texts now;
      for (const auto& row :
           rows(form.famG.visible()
                    ? "select GrpHead from RawMatGrpM order by GrpId"
                    : "select GrpHead from RMGRP_2 join RawMatGrpM on GrpSr=GrpId where "
                      "Code_No='C1' order by GrpOrder,SrNo")) {
        now.push_back(row[0]);
      }
      EXPECT_EQ(listed(page()), now);
      if (form.famG.visible() && form.cmdupdateG.enabled()) {
        EXPECT_EQ(form.txthead.text(), "A HEAD");
      } else if (form.cmdupdateM.enabled() && deed.what != "sorting") {
        EXPECT_EQ(form.cbogroup[1].text(), "BUY B") << "what was chosen stays";
      }
    });
  }
  leave(form);
}

}  // namespace
}  // namespace quillet::support
