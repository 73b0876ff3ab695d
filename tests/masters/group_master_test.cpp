// The group master through its form: adding, changing, deleting and merging groups.
#include <gtest/gtest.h>

#include "host/merged_groups.h"
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
  void beginMerge(const Texts& groups, const std::string& target) {
    press(form, form.cmdMerge);
    for (const std::string& name : groups) form.vsM.tick(form.vsM.find(1, name), true);
    pick(form.vsMW, 1, target);
    dialogs.queueAnswer(Answer::Yes);
  }
  void merge(const std::string& name, const std::string& target) {
    beginMerge({name}, target);
    press(form, form.cmdMergeGroup);
    press(form, form.cmdMergeBack);
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
  const Texts sent = statements();
  ASSERT_EQ(sent.size(), 8U);
  EXPECT_NE(
      sent[4].find("Select Max(AllId) from AllGrp_Map Union All Select Max(AllId) from TAB_1"),
      std::string::npos)
      << "one statement for all years: " << sent[4];
  EXPECT_EQ((Texts{sent[0], sent[1], sent[5], sent[6], sent[7]}),
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
  merge("SECOND", "ONE");
  EXPECT_EQ(form.newGroup(), "") << "merged away";
  add("THREE");
  dialogs.queueAnswer(Answer::Yes);
  press(form, form.cmddelete);
  EXPECT_EQ(form.newGroup(), "") << "deleted";
  press(form, form.cmdback);
  open();
  EXPECT_FALSE(form.groupsChanged() || form.linesTouched());
}

TEST_F(GroupMasterTest, TheFirstGroupOfAllGetsIdOne) {
  for (const char* all : {"Mast_AllGrp", "TAB_1"}) exec("delete from " + std::string(all));
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
    std::string place = {};
  } cases[] = {
      {"insert into TAB_2(srno,code_no,partid,allid,amt,nid) values(1,'C1'," + line + ",1,1)",
       "delete from TAB_2 where allid=" + post, 6, "It stands in TAB_2."},
      {"insert into JRNL_1(code_no,VID,PartId,AllId,Amount) values('C1',1," + line + ",1)",
       "delete from JRNL_1", 3, "It stands in JRNL_1."},
      {"insert into TRADE_2(code_no,partid,allid,amt) values('O\\'C2'," + line + ",1)",
       "delete from TRADE_2", 8, "It stands in TRADE_2."},
      {"insert into RMGRP_2 values('C1',1,1,0,0," + post + ",0,1)", "delete from RMGRP_2", 9,
       "It stands in RMGRP_2."},
      {"insert into RMGRP_1 values('C1',1,1,0,0,0," + post + ",1)", "delete from RMGRP_1", 5,
       "It stands in RMGRP_1."},
      {"insert into AllGrp_Map(Code_No,AllId) values('#?#COMMON#?#'," + post + ")",
       "delete from AllGrp_Map", 10, "It stands in AllGrp_Map."},
  };
  open();
  for (const auto& each : cases) {
    exec(each.insert);
    pickGroup("POSTAGE");
    press(form, form.cmddelete);
    EXPECT_EQ(onlyMessage(), told("Group already in use. You can not delete this Group."));
    EXPECT_EQ(statementsWith("select").size(), each.selects) << "the first use ends the search";
    EXPECT_EQ(form.lblstatus.caption(), each.place);
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
  const std::string bound = " Where " + post + " in (OsGrpId,PurGrpId,SalGrpId,CsGrpId)";
  EXPECT_EQ(statements(),
            (Texts{"Select distinct tbl_nm from master", "Select * from TAB_1" + where,
                   "Select * from JRNL_1" + where, "Select * from TRADE_1" + where,
                   "Select * from RMGRP_1" + bound, "Select * from TAB_2" + where,
                   "Select * from JRNL_2" + where, "Select * from TRADE_2" + where,
                   "Select * from RMGRP_2" + bound, "Select * from AllGrp_Map" + where,
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
  exec("insert into master(code_no,tbl_nm) values('C1','')");
  open();
  pickGroup("POSTAGE");
  host().statements().failNext("JRNL_2");
  press(form, form.cmddelete);
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(errors(), (Texts{"frmgrpmas\tCHECKEXISTS"}));
  EXPECT_EQ(form.lblstatus.caption(),
            "The search failed; the error log says why. Nothing was deleted.");
  EXPECT_EQ(stored().size(), 4U);
}

TEST_F(GroupMasterTest, AMissingTableIsNamedAndPassedOver) {
  exec("update master set tbl_nm='TAB_404' where f_yr='01042009'");
  exec("insert into TAB_2(srno,code_no,partid,allid,amt,nid) values(1,'C1',1," + rent + ",1,1)");
  const std::string named = "Missing and passed over: TAB_404, JRNL_404, TRADE_404, RMGRP_404.";
  open();
  press(form, form.cmdadd);
  EXPECT_EQ(form.lblstatus.caption(), "");
  enter("NEW", "EXPENSES");
  EXPECT_EQ(form.lblstatus.caption(), named);
  pickGroup("POSTAGE");
  dialogs.queueAnswer(Answer::Yes);
  press(form, form.cmddelete);
  EXPECT_EQ(form.lblstatus.caption(), named);
  EXPECT_EQ(form.vsf.find(1, "POSTAGE"), 0);
  exec("rename table TAB_1 to TAB_AWAY");
  beginMerge({"RENT"}, "FARES");
  press(form, form.cmdMergeGroup);
  exec("rename table TAB_AWAY to TAB_1");
  EXPECT_EQ(form.lblstatus.caption(),
            "Missing and passed over: JRNL_404, TRADE_404. "
            "Missing and passed over: TAB_1.");
  EXPECT_EQ(value("select allid from TAB_2"), fares) << "the others are rewritten";
  EXPECT_EQ(errors(), Texts());
}

TEST_F(GroupMasterTest, ANewIdIsAboveEveryIdInUse) {
  const std::string cases[] = {
      "insert into TAB_2(srno,code_no,partid,allid,amt,nid) values(1,'C1',1,30,1,1)",
      "insert into JRNL_1(code_no,VID,PartId,AllId,Amount) values('C1',1,1,40,1)",
      "insert into TRADE_2(code_no,partid,allid,amt) values('C1',1,50,1)",
      "insert into RMGRP_2 values('C1',1,1,60,0,0,0,1),('C1',2,1,null,0,0,0,2)",
      "insert into RMGRP_1 values('C1',1,1,0,0,0,70,1)",
      "insert into AllGrp_Map(Code_No,AllId) values('C1',80)",
      "insert into SuiteMisc(Section,Name,Value) values('AllGrp','Merged','90>3 ')",
  };
  open();
  int id = 30;
  for (const std::string& use : cases) {
    exec(use);
    press(form, form.cmdadd);
    enter("GROUP " + std::to_string(id), "EXPENSES");
    EXPECT_EQ(stored().back()[0], std::to_string(id + 1)) << use;
    id += 10;
  }
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
  beginMerge({"FARES", "RENT"}, "POSTAGE");
  dialogs.queueAnswer(Answer::Yes);
  statements();
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
  open();
  beginMerge({"RENT"}, "POSTAGE");
  EXPECT_EQ(progressOf([&] { press(form, form.cmdMergeGroup); }),
            "Merging Groups.... 6 of 6 moving");
  EXPECT_EQ(stored().size(), 3U);
}

TEST_F(GroupMasterTest, AMergeNamesThoseWhoseEntriesKeepTheGroup) {
  exec("insert into JRNL_1(code_no,VID,PartId,AllId,Amount) values('C1',1,1," + rent +
       ",5),('O\\'C2',2,1," + rent + ",5)");
  exec("insert into TRADE_1(code_no,partid,allid,amt) values('C1',1," + rent + ",1)");
  exec("insert into TRADE_2(code_no,partid,allid,amt) values('GONE',1," + rent + ",1)");
  open();
  merge("FARES", "POSTAGE");
  EXPECT_EQ(messages().size(), 2U) << "no entry has it";
  beginMerge({"RENT"}, "POSTAGE");
  dialogs.queueAnswer(Answer::No);
  statements();
  press(form, form.cmdMergeGroup);
  const auto asked = dialogs.takeMessages();
  ASSERT_EQ(asked.size(), 2U);
  EXPECT_EQ(styled(asked[1].message),
            "Adjustment entries or closing stocks carry the selected group(s) and will keep "
            "them:\r\n\r\n"
            "Asha Traders, 01/04/2008 - 31/03/2009: Adj. Entries, Closing Stock\r\n"
            "GONE: Closing Stock\r\n"
            "Neighbour & Co, 01/04/2008 - 31/03/2009: Adj. Entries\r\n"
            "\r\nAn entry that is altered or deleted after the merge counts in the group merged "
            "with.\r\n\r\nMerge all the same ?|YesNo question No|Group Master");
  EXPECT_EQ(changes(), Texts());
  dialogs.queueAnswer(Answer::Yes);
  dialogs.queueAnswer(Answer::Yes);
  press(form, form.cmdMergeGroup);
  EXPECT_EQ(messages().back(), "Merge Successfully.");
  press(form, form.cmdMergeBack);

  // What was merged into it counts as its own.
  group("LAST", 22);
  open();
  merge("POSTAGE", "LAST");
  EXPECT_TRUE(dialogs.takeFailure()) << "asked about the entries under the first name";
}

TEST_F(GroupMasterTest, WhereAMergedGroupWentIsKept) {
  open();
  merge("RENT", "FARES");
  merge("FARES", "POSTAGE");
  practice.restartModule();
  const MergedGroups merged(context());
  for (const std::string& id : {rent, fares, post}) {
    EXPECT_EQ(std::to_string(merged.successor(std::stol(id))), post);
  }
  EXPECT_EQ(merged.successor(4711), 4711);
  EXPECT_EQ(merged.predecessors(std::stol(post)),
            (std::vector<long>{std::stol(rent), std::stol(fares)}));
}

TEST_F(GroupMasterTest, AGroupStaysWhileEntriesCarryOneThatWasMergedIntoIt) {
  exec("insert into JRNL_1(code_no,VID,PartId,AllId,Amount) values('C1',1,1," + rent + ",5)");
  open();
  dialogs.queueAnswer(Answer::Yes);
  merge("RENT", "FARES");
  exec("delete from TAB_1");
  pickGroup("FARES");
  messages();
  press(form, form.cmddelete);
  EXPECT_EQ(messages(), (Texts{"Group already in use. You can not delete this Group."}));
}

// --- failures -----------------------------------------------------------------------------------

TEST_F(GroupMasterTest, AGroupDeletedMeanwhileTakesNoLines) {
  open();
  beginMerge({"RENT"}, "POSTAGE");
  exec("delete from Mast_AllGrp where ALLID=" + post);
  press(form, form.cmdMergeGroup);
  EXPECT_EQ(messages().back(), "The groups have been changed meanwhile. Please choose again.");
  EXPECT_EQ(form.vsMW.find(1, "POSTAGE"), 0);
  EXPECT_TRUE(form.vsM.ticked(form.vsM.find(1, "RENT"))) << "ticks stay";
  EXPECT_EQ(changes(), Texts());
  press(form, form.cmdMergeBack);
  pickGroup("POSTAGE");
  press(form, form.cmdmodify);
  enter("POST", "");
  EXPECT_EQ(form.vsf.find(0, post), 0);
  EXPECT_EQ(form.lblstatus.caption(), "It is there no more: somebody has deleted it.");
}

TEST_F(GroupMasterTest, WhatCannotBeReadIsNotShown) {
  open();
  pickGroup("RENT");
  press(form, form.cmdback);
  host().statements().failNext("Select * From Mast_AllGrp");
  open();
  EXPECT_EQ(form.vsf.rows(), 0);
  EXPECT_EQ(form.lblstatus.caption(), "The list could not be read; the error log says why.");
  press(form, form.cmdadd);
  enter("NEW", "EXPENSES");
  EXPECT_EQ(form.vsf.rows(), 5) << "not the new one alone";
  host().statements().failNext("order by ALLGRP");
  press(form, form.cmdMerge);
  EXPECT_EQ(form.vsM.rows() + form.vsMW.rows(), 0);
}

TEST_F(GroupMasterTest, PrimaryGroupsThatCouldNotBeReadAreAskedForOnceMore) {
  const auto fail = [&] { host().statements().failNext("Mast_Gunder"); };
  fail();
  open();
  for (Button* command : {&form.cmdadd, &form.cmdmodify}) {
    pickGroup("RENT");
    fail();
    press(form, *command);
    EXPECT_EQ(form.lblstatus.caption(),
              "The primary groups could not be read; the error log says why.");
    EXPECT_FALSE(form.cmdupdate.enabled());
  }
  press(form, form.cmdmodify);
  enter("A RENT", "");
  EXPECT_EQ(shown(form.vsf)[0], (Texts{"A RENT", "EXPENSES", "Y"}));
}

TEST_F(GroupMasterTest, AnAddingThatFailedIsNotTakenForSomebodyElsesRow) {
  open();
  press(form, form.cmdadd);
  host().statements().failNext("Insert Into");
  enter("MINE", "EXPENSES");
  exec("insert into Mast_AllGrp values(5,22,'THEIRS','Y')");
  host().statements().failNext("Select Max");
  for (int attempt = 0; attempt < 2; ++attempt) press(form, form.cmdupdate);
  EXPECT_EQ(rows("select ALLID,ALLGRP from Mast_AllGrp where ALLID>4 order by 1"),
            (Rows{{"5", "THEIRS"}, {"6", "MINE"}}));
}

// Each statement of each deed fails once. The grids show what is stored then, and the deed done
// again ends as it does without a failure.
TEST_F(GroupMasterTest, AfterAFailureTheGridShowsWhatIsStored) {
  const auto begin = [&](const std::string& name, Button& command, const std::string& text) {
    if (!name.empty()) pickGroup(name);
    press(form, command);
    if (text.empty()) return;
    type(form.Text1, text);
    choose(form.Combo1, "CAPITAL");
  };
  const struct {
    std::string what;
    Act arrange;
    Button& act;
    std::size_t behind = 0;
  } deeds[] = {
      {"adding", [&] { begin("", form.cmdadd, "A NEW ONE"); }, form.cmdupdate},
      {"renaming", [&] { begin("RENT", form.cmdmodify, "A RENT"); }, form.cmdupdate},
      {"deleting", [&] { pickGroup("POSTAGE"); }, form.cmddelete},
      {"merging",
       [&] {
         beginMerge({"RENT", "FARES"}, "POSTAGE");
       },
       form.cmdMergeGroup, 2},
  };
  keep({"Mast_AllGrp", "TAB_1", "SuiteMisc"});
  for (const auto& deed : deeds) {
    const auto act = [&] {
      if (!form.famMerge.visible()) dialogs.queueAnswer(Answer::Yes);
      if (deed.act.enabled()) press(form, deed.act);
    };
    failEachStatement(
        {.what = deed.what,
         .arrange =
             [&] {
               leave(form);
               restore();
               open();
               deed.arrange();
             },
         .act = act,
         .result =
             [&] {
               Rows all = rows("select * from Mast_AllGrp order by ALLID");
               for (auto& row : rows("select allid from TAB_1")) all.push_back(row);
               for (auto& row : shown(form.vsf)) all.push_back(row);
               all.push_back(
                   {form.cmdupdate.enabled() ? "editing" : "browsing", form.Text1.text()});
               return all;
             },
         .next = {{"the same again",
                   [&] {
                     if (form.famMerge.visible()) dialogs.queueAnswer(Answer::Yes);
                     act();
                   }}},
         .place = "frmgrpmas\t",
         .stops = false,
         .behind = deed.behind,
         .check =
             [&] {
               EXPECT_EQ(shown(form.vsf),
                         rows("select ALLGRP,Gunder,UserGrp from Mast_AllGrp join Mast_Gunder "
                              "using(GId) order by ALLGRP"));
               if (form.famMerge.visible()) {
                 EXPECT_TRUE(form.vsM.ticked(form.vsM.find(1, "RENT"))) << "the choice stays";
               } else if (form.cmdupdate.enabled()) {
                 EXPECT_EQ(form.Text1.text().substr(0, 2), "A ") << "and what was typed";
                 EXPECT_NE(form.lblstatus.caption(), "");
               }
               EXPECT_TRUE(form.linesTouched() || deed.what != "merging" ||
                           value("select count(*) from TAB_1 where allid=" + post) == "0")
                   << "an editor must read anew";
             }});
  }
}

TEST_F(GroupMasterTest, ARowStandsWhereTheOrderPutsIt) {
  open();
  press(form, form.cmdadd);
  enter("LETTERS", "EXPENSES");
  const auto names = [&] {
    Texts all;
    for (const auto& row : shown(form.vsf)) all.push_back(row[0]);
    return all;
  };
  EXPECT_EQ(names(), (Texts{"FARES", "FIXED GROUP", "LETTERS", "POSTAGE", "RENT"}));
  EXPECT_EQ(form.vsf.cell(form.vsf.current(), 1), "LETTERS");
  form.vsf.sortBy(1);  // a click on the heading turns it round
  press(form, form.cmdmodify);
  enter("A LETTER", "");
  EXPECT_EQ(names(), (Texts{"RENT", "POSTAGE", "FIXED GROUP", "FARES", "A LETTER"}));
  EXPECT_EQ(form.vsf.current(), 5);
}

TEST_F(GroupMasterTest, ClosingAsksWhenAnEntryIsBegun) {
  open();
  press(form, form.cmdadd);
  dialogs.queueAnswer(Answer::No);
  EXPECT_FALSE(form.close());
  EXPECT_EQ(onlyMessage(), "Do you want to Cancel this Entry?|YesNo question No|Group Master");
  EXPECT_TRUE(form.cmdupdate.enabled());
  dialogs.queueAnswer(Answer::Yes);
  EXPECT_TRUE(form.close());
  open();
  EXPECT_TRUE(form.close());
}

}  // namespace
}  // namespace quillet::support
