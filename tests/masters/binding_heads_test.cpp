// The raw-material binding through its form: import, heads, failures.
#include <gtest/gtest.h>

#include "masters/binding_fixture.h"

namespace quillet::support {
namespace {

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
  init("O'C2", 2009);
  form.showModal();
  EXPECT_EQ(onlyMessage(), asked("Do you want to Import from Previous Year?"));
  EXPECT_EQ(value("select Head from RmSchSetup where FYr=2010"), "H");
  press(form.cmdaddM);
  enter("FINISHED GOODS", {"OPEN UNUSED", "(None)", "(None)"});
  EXPECT_EQ(order(), (Texts{"RAW MATERIAL", "FINISHED GOODS"}));
  press(form.cmdsortorder);
  press(form.cmdup);
  press(form.cmdsortorder, {yes});
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
    pressFailing("Where GID=19", *command);
    EXPECT_EQ(status(), "The groups to choose from could not be read; the error log says why.");
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
  const std::string awkward = "O'Neill \\ \"x\" ☕ 100%";
  open();
  const std::string duplicate = told("Duplicate Raw Material Group!!");
  exec("update RawMatGrpM set GrpHead='OTHER  CONSUMABLES' where GrpId=5");
  press(form.cmdgrpM);
  EXPECT_EQ(shown(form.vsfG).back(), (Texts{"OTHER  CONSUMABLES", "OTHERS"}));
  press(form.cmdaddG);
  EXPECT_EQ(enterHead(""), told("Please Specify 'Heading'."));
  EXPECT_EQ(enterHead("raw material"), told("Please Select 'Type'."));
  EXPECT_EQ(enterHead("raw material", "RAW MATERIAL"), duplicate);
  EXPECT_EQ(enterHead("other consumables", "OTHERS"), duplicate) << "blanks do not count";
  statements();
  EXPECT_EQ(enterHead("\u200BRAW\u00A0 MATERIAL"), "");
  EXPECT_EQ(statements(),
            (Texts{"Select * from RawMatGrpM Where GrpHead='RAW MATERIAL' and GrpType=4",
                   "Select Max(GrpId) from RawMatGrpM",
                   "Insert Into RawMatGrpM Values (6,'RAW MATERIAL',4)", "Flush Tables",
                   "Select * from RawMatGrpM Where GrpId=6"}))
      << "the same heading may stand under another type";
  press(form.cmdmodifyG);
  fail("Update RawMatGrpM");
  enterHead(awkward);
  EXPECT_EQ(trapped(), (Texts{"frmgrpRM\tCMDUDPATEG_CLICK"}));
  changes();
  press(form.cmdupdateG);
  EXPECT_EQ(changes(),
            (Texts{"Update RawMatGrpM Set GrpHead='O\\'Neill \\\\ \\\"x\\\" ☕ 100%',GrpType=4 "
                   "Where GrpId=6",
                   "Flush Tables"}));
  EXPECT_EQ(shown(form.vsfG)[5], (Texts{awkward, "OTHERS"}));
  press(form.cmdaddG);
  type(form.txthead, std::string(5000, 'x'));
  EXPECT_EQ(form.txthead.text(), std::string(100, 'x'));
  EXPECT_EQ(form.lblhint.caption(), "A heading holds at most 100 characters.");
  EXPECT_EQ(said(keys::Escape, {yes}), asked("Do you want to Cancel Entry?"));
  press(form.cmdbackG);
  EXPECT_EQ(form.cbohead.items().back(), awkward);
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
            asked("Do you want to delele the Raw Material Group [OTHER CONSUMABLES] ?",
                  "Delete Confirmation"));
  EXPECT_EQ(statementsWith("GrpSr="),
            (Texts{"Select * from RMGRP_1 Where GrpSr=1", "Select * from RMGRP_2 Where GrpSr=1",
                   "Select * from RMGRP_1 Where GrpSr=5", "Select * from RMGRP_2 Where GrpSr=5"}));
  EXPECT_EQ(form.vsfG.rows(), 4);
  pressFailing("RMGRP_2", form.cmddeleteG);
  EXPECT_EQ(trapped(), (Texts{"frmgrpRM\tCHECKEXISTS"}));
  EXPECT_EQ(status(), unsearched);
  EXPECT_EQ(value("select count(*) from RawMatGrpM"), "4");
  exec("update master set tbl_nm='TAB_404'");
  press(form.cmddeleteG, {yes});
  EXPECT_EQ(status(), "Missing and passed over: RMGRP_404.");
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
