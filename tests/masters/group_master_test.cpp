// The group master through its form: adding, changing, deleting and merging groups.
#include <gtest/gtest.h>

#include "masters/frmgrpmas.h"
#include "masters/masters_fixture.h"

namespace quillet::support {
namespace {

class GroupMasterTest : public MastersTest {
 protected:
  GroupMasterTest() {
    fixed = std::to_string(group("FIXED GROUP", 1, true));
    rent = std::to_string(group("RENT", 22));
    fares = std::to_string(group("FARES", 22));
    post = std::to_string(group("POSTAGE", 22));
    table = addYear("C1", 2008, {{"Office Rent", "RENT", 100}});
    addYear("O'C2", 2008, {{"Shop Rent", "RENT", 300}});
    addYear("C1", 2009);
  }
  void open() {
    form.showModal([this] { ++closed; });
    statements();
  }
  void pickGroup(const std::string& name) { pick(form.vsf, 1, name); }
  void enter(const std::string& name, const std::string& under) {
    type(form.Text1, name);
    if (!under.empty()) choose(form.Combo1, under);
    press(form, form.cmdupdate);
  }
  std::string told(const std::string& text) { return text + "|OK information OK|Group Master"; }
  Rows stored() { return rows("select ALLID,GID,ALLGRP,UserGrp from Mast_AllGrp order by ALLID"); }

  frmgrpmas form{context()};
  int closed = 0;
  std::string fixed, rent, fares, post, table;
};

TEST_F(GroupMasterTest, ShowsGroupsUnderTheirPrimaryGroupAndStartsCalm) {
  open();
  EXPECT_EQ(shown(form.vsf), (Rows{{"FARES", "EXPENSES", "Y"},
                                   {"FIXED GROUP", "CAPITAL", "N"},
                                   {"POSTAGE", "EXPENSES", "Y"},
                                   {"RENT", "EXPENSES", "Y"}}));
  EXPECT_EQ(form.vsf.current(), 0);
  EXPECT_TRUE(form.Text1.locked());
  EXPECT_FALSE(form.Combo1.enabled());
  EXPECT_FALSE(form.cmdupdate.enabled());
  for (Control* command : {&form.cmdmodify, &form.cmddelete}) {
    press(form, *command);
    EXPECT_EQ(onlyMessage(), told("Please Select a Group."));
    EXPECT_EQ(form.active(), &form.vsf);
  }
  pickGroup("RENT");
  EXPECT_EQ(form.Text1.text() + " " + form.Combo1.text(), "RENT EXPENSES");
  form.press(U'f');
  EXPECT_EQ(form.Text1.text(), "FARES") << "typing finds the next group that begins so";
  form.press(U'f');
  EXPECT_EQ(form.Text1.text(), "FIXED GROUP");
}

TEST_F(GroupMasterTest, AddsWithTheNextId) {
  open();
  press(form, form.cmdadd);
  EXPECT_EQ(form.active(), &form.Text1);
  EXPECT_FALSE(form.cmddelete.enabled());
  enter(" Wages & \"Bonus\" ", "EXPENSES");
  EXPECT_EQ(statements(),
            (Texts{"Select * from Mast_AllGrp Where ALLGRP='Wages & \\\"Bonus\\\"'",
                   "Select Max(AllId) from Mast_AllGrp",
                   "Insert Into Mast_AllGrp Values (5,22,'Wages & \\\"Bonus\\\"','Y')",
                   "Flush Tables", "Select * From Mast_AllGrp Where AllId=5"}));
  EXPECT_EQ(stored().back(), (Texts{"5", "22", "Wages & \"Bonus\"", "Y"}));
  EXPECT_EQ(form.vsf.cell(form.vsf.current(), 1), "Wages & \"Bonus\"");
  EXPECT_TRUE(form.cmdadd.enabled());
  EXPECT_TRUE(form.groupsChanged());
  EXPECT_EQ(form.newGroup(), "Wages & \"Bonus\"");
  press(form, form.cmdback);
  EXPECT_EQ(closed, 1);
}

TEST_F(GroupMasterTest, TellsWhatBecameOfTheGroupAddedLast) {
  const auto add = [&](const char* name) {
    press(form, form.cmdadd);
    enter(name, "EXPENSES");
  };
  open();
  add("ONE");
  add("TWO");
  EXPECT_EQ(form.newGroup(), "TWO");
  EXPECT_FALSE(form.linesTouched()) << "no line stands under a new group";
  press(form, form.cmdmodify);
  enter("SECOND", "");
  EXPECT_EQ(form.newGroup(), "SECOND");
  EXPECT_TRUE(form.linesTouched());
  press(form, form.cmdMerge);
  form.vsM.tick(form.vsM.find(1, "SECOND"), true);
  pick(form.vsMW, 1, "ONE");
  dialogs.queueAnswer(Answer::Yes);
  press(form, form.cmdMergeGroup);
  EXPECT_EQ(form.newGroup(), "") << "merged away";
  press(form, form.cmdMergeBack);
  add("THREE");
  dialogs.queueAnswer(Answer::Yes);
  press(form, form.cmddelete);
  EXPECT_EQ(form.newGroup(), "") << "deleted";
  press(form, form.cmdback);
  open();
  EXPECT_FALSE(form.groupsChanged() || form.linesTouched());
}

TEST_F(GroupMasterTest, TheFirstGroupOfAllGetsIdOne) {
  exec("delete from Mast_AllGrp");
  open();
  press(form, form.cmdadd);
  enter("FIRST", "CAPITAL");
  EXPECT_EQ(stored(), (Rows{{"1", "1", "FIRST", "Y"}}));
}

TEST_F(GroupMasterTest, ChangesNameAndPrimaryGroup) {
  open();
  pickGroup("RENT");
  press(form, form.cmdmodify);
  enter("RENT", "CAPITAL");  // its own name is no duplicate
  EXPECT_EQ(statements(), (Texts{"Select * from Mast_AllGrp Where ALLGRP='RENT' and ALLID<>" + rent,
                                 "Update Mast_AllGrp Set ALLGRP='RENT', GID=1 Where AllId=" + rent,
                                 "Flush Tables", "Select * From Mast_AllGrp Where AllId=" + rent}));
  EXPECT_EQ(form.vsf.rows(), 4);
  EXPECT_EQ(form.vsf.cell(form.vsf.current(), 2), "CAPITAL");
  EXPECT_EQ(form.newGroup(), "") << "nothing new for an entry to take";
  press(form, form.cmdmodify);
  enter("rent", "");
  EXPECT_EQ(form.vsf.cell(form.vsf.current(), 1), "rent") << "only the case may change";
}

TEST_F(GroupMasterTest, RefusalsComeInTheirOrder) {
  open();
  press(form, form.cmdadd);
  enter("   ", "");
  EXPECT_EQ(onlyMessage(), told("Please Specify 'Group' Name."));
  EXPECT_EQ(form.active(), &form.Text1);
  enter("fares", "");
  EXPECT_EQ(onlyMessage(), told("Please Select 'Under Group'."));
  EXPECT_EQ(form.active(), &form.Combo1);
  for (const char* same : {"fares", "\u200Bfa\u00ADres "}) {
    enter(same, "EXPENSES");
    EXPECT_EQ(onlyMessage(), told("Duplicate Group!!"));
  }
  enter("ＦＡＲＥＳ", "EXPENSES");
  EXPECT_EQ(onlyMessage(), told("Duplicate Group!!\r\n\r\nThere is 'FARES', and the database "
                                "cannot tell 'ＦＡＲＥＳ' from it."));
  dialogs.queueAnswer(Answer::No);
  form.press(keys::Escape);
  EXPECT_EQ(onlyMessage(), "Do you want to Cancel this Entry?|YesNo question No|Group Master");
  EXPECT_TRUE(form.cmdupdate.enabled());
  dialogs.queueAnswer(Answer::Yes);
  form.press(keys::Escape);
  EXPECT_FALSE(form.cmdupdate.enabled());
  pickGroup("FARES");
  dialogs.takeMessages();
  press(form, form.cmdmodify);
  enter("RENT", "");
  EXPECT_EQ(onlyMessage(), told("Duplicate Group!!"));
  press(form, form.cmdcancel);
  EXPECT_EQ(form.Text1.text(), "FARES") << "the selected row shows again";
  EXPECT_EQ(changes(), Texts());
  EXPECT_FALSE(form.groupsChanged());
}

TEST_F(GroupMasterTest, PredefinedGroupsAreProtected) {
  open();
  pickGroup("FIXED GROUP");
  press(form, form.cmdmodify);
  EXPECT_EQ(onlyMessage(), told("You Can not Modify Predefined Group."));
  press(form, form.cmddelete);
  EXPECT_EQ(onlyMessage(), told("You Can not Delete Predefined Group."));
  EXPECT_EQ(statements(), Texts());
}

TEST_F(GroupMasterTest, AwkwardNamesAreStoredAsTheyAre) {
  const std::string names[] = {
      "O'Brien & Sons", "back\\slash\\",          "100% _sure_",
      "\"quoted\"",     "coffee ☕ 👩‍💼", "x'); drop table master; -- "};
  open();
  for (const std::string& name : names) {
    press(form, form.cmdadd);
    enter(name, "EXPENSES");
    EXPECT_EQ(stored().back()[2], std::string(trimmed(name)));
  }
  press(form, form.cmdadd);
  type(form.Text1, std::string(5000, 'x'));
  EXPECT_EQ(form.Text1.text().size(), 100U);
  EXPECT_EQ(form.lblhint.caption(), "A group name holds at most 100 characters.");
  EXPECT_EQ(errors(), Texts());
}

TEST_F(GroupMasterTest, AGroupThatAnyTableUsesCannotBeDeleted) {
  const std::string line = std::to_string(ledger("Old")) + "," + post;
  const struct {
    std::string insert, clear;
    std::size_t selects;
  } cases[] = {
      {"insert into TAB_2(srno,code_no,partid,allid,amt,nid) values(1,'C1'," + line + ",1,1)",
       "delete from TAB_2 where allid=" + post, 5},
      {"insert into JRNL_1(code_no,VID,PartId,AllId,Amount) values('C1',1," + line + ",1)",
       "delete from JRNL_1", 3},
      {"insert into TRADE_2(code_no,partid,allid,amt) values('O\\'C2'," + line + ",1)",
       "delete from TRADE_2", 7},
  };
  open();
  for (const auto& each : cases) {
    exec(each.insert);
    pickGroup("POSTAGE");
    press(form, form.cmddelete);
    EXPECT_EQ(onlyMessage(), told("Group already in use. You can not delete this Group."));
    EXPECT_EQ(statementsWith("select").size(), each.selects) << "the first use ends the search";
    exec(each.clear);
  }
  dialogs.queueAnswer(Answer::No);
  press(form, form.cmddelete);
  EXPECT_EQ(onlyMessage(),
            "Do you want to delele the Group [POSTAGE] ?|YesNo question No|Delete Confirmation");
  EXPECT_EQ(stored().size(), 4U);
  statements();
  dialogs.queueAnswer(Answer::Yes);
  press(form, form.cmddelete);
  const std::string where = " Where AllId=" + post;
  EXPECT_EQ(statements(), (Texts{"Select distinct tbl_nm from master",
                                 "Select * from TAB_1" + where, "Select * from JRNL_1" + where,
                                 "Select * from TRADE_1" + where, "Select * from TAB_2" + where,
                                 "Select * from JRNL_2" + where, "Select * from TRADE_2" + where,
                                 "Delete from Mast_AllGrp Where ALLID=" + post, "Flush Tables"}));
  EXPECT_EQ(stored().size(), 3U);
}

TEST_F(GroupMasterTest, TheSelectionStaysWhereTheDeletedRowWas) {
  group("A1", 22);
  group("A2", 22);
  group("ZZ", 22);
  open();
  dialogs.queueAnswer(Answer::Yes);
  form.vsf.setCurrent(1);
  press(form, form.cmddelete);
  EXPECT_EQ(form.vsf.current(), 1);
  EXPECT_EQ(form.Text1.text(), "A2") << "the fields follow";
  dialogs.queueAnswer(Answer::Yes);
  form.vsf.setCurrent(form.vsf.rows());
  press(form, form.cmddelete);
  EXPECT_EQ(form.vsf.current(), form.vsf.rows());
  EXPECT_EQ(form.Text1.text(), "RENT");
}

TEST_F(GroupMasterTest, ASearchThatFailsDeletesNothing) {
  exec("update master set tbl_nm='TAB_404' where f_yr='01042009'");
  exec("insert into master(code_no,tbl_nm) values('C1','')");
  open();
  pickGroup("POSTAGE");
  press(form, form.cmddelete);
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(errors(), (Texts{"frmgrpmas\tCHECKEXISTS"}));
  EXPECT_EQ(stored().size(), 4U);
  EXPECT_TRUE(form.visible());
}

// --- merging ------------------------------------------------------------------------------------

TEST_F(GroupMasterTest, MergeRefusesInItsOrder) {
  open();
  press(form, form.cmdMerge);
  EXPECT_EQ(
      shown(form.vsM),
      (Rows{{"FARES", "EXPENSES", ""}, {"POSTAGE", "EXPENSES", ""}, {"RENT", "EXPENSES", ""}}))
      << "what is predefined is not merged away";
  EXPECT_EQ(form.vsMW.rows(), 4) << "but other groups may be merged into it";
  press(form, form.cmdMergeGroup);
  EXPECT_EQ(onlyMessage(), told("Please select at least one group to merge."));
  form.vsM.tick(1, true);
  press(form, form.cmdMergeGroup);
  EXPECT_EQ(onlyMessage(), told("Please select merge with group."));
  pick(form.vsMW, 1, "FARES");
  press(form, form.cmdMergeGroup);
  EXPECT_EQ(onlyMessage(), told("Merge with grouop should be different."));
  pick(form.vsMW, 1, "FIXED GROUP");
  dialogs.queueAnswer(Answer::No);
  press(form, form.cmdMergeGroup);
  EXPECT_EQ(onlyMessage(),
            "Are you sure to merge selected group(s)?\r\nThis process can not be undone in any "
            "circuminstances.|YesNo none No|Group Master");
  EXPECT_EQ(changes(), Texts());
  form.press(keys::Escape);
  EXPECT_TRUE(form.vsf.shown());
  EXPECT_FALSE(form.vsM.shown());
}

TEST_F(GroupMasterTest, MergeRewritesTrialBalancesOnly) {
  exec("insert into JRNL_1(code_no,VID,PartId,AllId,Amount) values('C1',1,1," + rent + ",5)");
  exec("insert into TAB_1(srno,code_no,partid,allid,amt,nid) values(2,'C1'," +
       std::to_string(ledger("Office Rent")) + "," + post + ",40,1)");
  open();
  press(form, form.cmdMerge);
  form.vsM.tick(form.vsM.find(1, "FARES"), true);
  form.vsM.tick(form.vsM.find(1, "RENT"), true);
  pick(form.vsMW, 1, "POSTAGE");
  statements();
  dialogs.queueAnswer(Answer::Yes);
  press(form, form.cmdMergeGroup);
  Texts expected;
  for (long i = 1; i <= host().GetTbCount(); ++i) {
    expected.push_back("Update tab_" + host().GETTBNAME(i) + " set ALLID=" + post +
                       " where ALLID in (" + fares + "," + rent + ")");
  }
  expected.push_back("Delete from Mast_AllGrp where ALLID in (" + fares + "," + rent + ")");
  EXPECT_EQ(changes(), expected);
  EXPECT_EQ(messages().back(), "Merge Successfully.");
  EXPECT_EQ(rows("select code_no,allid,amt from TAB_1 order by code_no,srno"),
            (Rows{{"C1", post, "100"}, {"C1", post, "40"}, {"O'C2", post, "300"}}))
      << "two rows of one pair stay two until the pair is saved again";
  EXPECT_EQ(rows("select AllId from JRNL_1"), (Rows{{rent}})) << "the journal keeps what it said";
  EXPECT_EQ(shown(form.vsM), (Rows{{"POSTAGE", "EXPENSES", ""}}));
  press(form, form.cmdMergeBack);
  EXPECT_EQ(form.vsf.rows(), 2);
  EXPECT_TRUE(form.groupsChanged());
}

TEST_F(GroupMasterTest, AMergeWalksTheTablesThatThereAreAndShowsItsProgress) {
  exec("update master set tbl_nm='TAB_404' where f_yr='01042009'");
  open();
  press(form, form.cmdMerge);
  form.vsM.tick(form.vsM.find(1, "RENT"), true);
  pick(form.vsMW, 1, "POSTAGE");
  dialogs.queueAnswer(Answer::Yes);
  EXPECT_EQ(progressOf([&] { press(form, form.cmdMergeGroup); }),
            "Merging Groups.... 6 of 6 moving");
  EXPECT_EQ(errors(), Texts()) << "what the registry names besides is not its business";
  EXPECT_EQ(stored().size(), 3U);
}

TEST_F(GroupMasterTest, AMergeThatFailsHalfWayKeepsWhatItRewrote) {
  open();
  press(form, form.cmdMerge);
  form.vsM.tick(form.vsM.find(1, "RENT"), true);
  pick(form.vsMW, 1, "POSTAGE");
  host().statements().failNext("Update tab_2");
  dialogs.queueAnswer(Answer::Yes);
  press(form, form.cmdMergeGroup);
  EXPECT_EQ(errors(), (Texts{"frmgrpmas\tCMDMODIFY_CLICK"}));
  EXPECT_EQ(messages().size(), 1U) << "the question alone";
  EXPECT_EQ(value("select count(*) from TAB_1 where allid=" + post), "2");
  EXPECT_EQ(stored().size(), 4U);
  EXPECT_TRUE(form.groupsChanged() && form.linesTouched()) << "an editor must read anew";
}

// Each statement of an addition fails once: nothing after it is sent, and the form goes on.
TEST_F(GroupMasterTest, FailuresStopWhereTheyHappen) {
  const auto begin = [&] {
    form.close();
    open();
    if (form.vsf.find(1, "NEW ONE") > 0) return;
    press(form, form.cmdadd);
    type(form.Text1, "NEW ONE");
    choose(form.Combo1, "EXPENSES");
  };
  const auto update = [&] {
    if (form.cmdupdate.enabled()) press(form, form.cmdupdate);
  };
  failEachStatement({.what = "adding",
                     .arrange =
                         [&] {
                           exec("delete from Mast_AllGrp where ALLGRP='NEW ONE'");
                           begin();
                         },
                     .act = update,
                     .result = [&] { return stored(); },
                     .next = {{"opened and given again",
                               [&] {
                                 begin();
                                 update();
                               }}},
                     .place = "frmgrpmas\t"});
}

}  // namespace
}  // namespace quillet::support
