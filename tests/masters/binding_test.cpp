// The raw-material binding through its form: lists, items and their order.
#include <gtest/gtest.h>

#include "masters/binding_fixture.h"

namespace quillet::support {
namespace {

TEST_F(BindingTest, SeedsTheHeadsAndOffersWhatTheYearUses) {
  init();
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
  bind("RMGRP_2 values('C1',1,1," + id("OPEN UNUSED") + ",777,0," + id("CLOSE UNUSED") + ",1)");
  exec("insert into RawMatGrpM values(1,'STEEL',1),(2,'COAL',1)");
  init();
  form.showModal();
  EXPECT_EQ(form.cbogroup[0].items(), (Texts{"(None)", "OPEN A", "OPEN B", "OPEN UNUSED"}));
  EXPECT_EQ(form.cbogroup[2].items(), (Texts{"(None)", "CLOSE A", "CLOSE UNUSED"}));
  EXPECT_EQ(shown(form.vsfM), (Rows{{"STEEL", "OPEN UNUSED", "777", "CLOSE UNUSED"}}));
  const Texts sent = statements();
  EXPECT_EQ(sent[1],
            "Select Distinct TAB_2.allid from TAB_2,mast_allgrp Where "
            "TAB_2.allid=mast_allgrp.allid and mast_allgrp.gid=18 and TAB_2.Code_No='C1'");
  EXPECT_EQ(sent[3], "Select Distinct TRADE_2.allid from TRADE_2 Where Code_No='C1'");
  EXPECT_EQ(sent[4], "Select * from RMGRP_2 Where Code_No='C1'");
  EXPECT_EQ(sent[7], "Select * from Mast_AllGrp Where GID=7 and AllId in (" + id("CLOSE A") + "," +
                         id("CLOSE UNUSED") + ") Order by AllGrp");
  // What went under another primary group, or is gone, stays bound as well.
  const std::string moved = id("OPEN UNUSED");
  exec("update Mast_AllGrp set GID=22 where ALLID=" + moved);
  leave(form);
  open();
  modify(1);
  choose(form.cbohead, "COAL");
  press(form.cmdupdateM);
  EXPECT_EQ(stored(), (Rows{{"1", "2", moved, "777", "0", id("CLOSE UNUSED"), "1"}}));
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
  form.vsfM.sortBy(0);  // an order by heading is none by hand
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

}  // namespace
}  // namespace quillet::support
