// The group master through its form: adding, changing, deleting and merging groups.
#include <gtest/gtest.h>

#include "books/merged_groups.h"
#include "masters/frmgrpmas.h"
#include "masters/masters_fixture.h"

namespace quillet::support {
namespace {

class GroupMasterTest : public MasterTest<frmgrpmas> {
 protected:
  GroupMasterTest() {
    group("FIXED GROUP", 1, true);
    rent = std::to_string(group("RENT", 22));
    fares = std::to_string(group("FARES", 22));
    post = std::to_string(group("POSTAGE", 22));
    addYear("C1", 2008, {{"Office Rent", "RENT", 100}});
    addYear("O'C2", 2008, {{"Shop Rent", "RENT", 300}});
    addYear("C1", 2009);
  }
  void beginMerge(const Texts& groups, const std::string& target) {
    press(form.cmdMerge);
    for (const std::string& name : groups) form.vsM.tick(form.vsM.find(0, name), true);
    pick(form.vsMW, 0, target);
    answer({yes});
  }
  void merge(const std::string& name, const std::string& target) {
    beginMerge({name}, target);
    press(form.cmdMergeGroup);
    press(form.cmdMergeBack);
  }
  void pickGroup(const std::string& name) { pick(form.vsf, 0, name); }
  std::string enter(const std::string& name, const std::string& under = {}) {
    type(form.Text1, name);
    if (!under.empty()) choose(form.Combo1, under);
    return said(form.cmdupdate);
  }
  void add(const std::string& name) {
    press(form.cmdadd);
    EXPECT_EQ(enter(name, "EXPENSES"), "");
  }
  void modify(const std::string& name) {
    pickGroup(name);
    press(form.cmdmodify);
  }
  Rows stored() { return rows("select ALLID,GID,ALLGRP,UserGrp from Mast_AllGrp order by ALLID"); }

  std::string rent, fares, post;
};

TEST_F(GroupMasterTest, ShowsGroupsUnderTheirPrimaryGroupAndProtectsPredefinedOnes) {
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
    EXPECT_EQ(said(*command), told("Please Select a Group."));
    EXPECT_EQ(form.active(), &form.vsf);
  }
  pickGroup("RENT");
  EXPECT_EQ(form.Text1.text() + " " + form.Combo1.text(), "RENT EXPENSES");
  form.press(U'f');
  EXPECT_EQ(form.Text1.text(), "FARES") << "typing finds the next group that begins so";
  form.press(U'f');
  EXPECT_EQ(form.Text1.text(), "FIXED GROUP");
  EXPECT_EQ(said(form.cmdmodify), told("You Can not Modify Predefined Group."));
  EXPECT_EQ(said(form.cmddelete), told("You Can not Delete Predefined Group."));
  EXPECT_EQ(statements(), Texts());
}

TEST_F(GroupMasterTest, AddsWithTheNextId) {
  const std::string name = "O'Wages\\ & \"Bonus\" 👩‍💼";
  const std::string escaped = "'O\\'Wages\\\\ & \\\"Bonus\\\" 👩‍💼'";
  open();
  press(form.cmdadd);
  EXPECT_EQ(form.active(), &form.Text1);
  EXPECT_FALSE(form.cmddelete.enabled());
  enter(" " + name + " ", "EXPENSES");
  Texts sent = statements();
  ASSERT_EQ(sent.size(), 8U);
  EXPECT_NE(
      sent[4].find("Select Max(AllId) from AllGrp_Map Union All Select Max(AllId) from TAB_1"),
      std::string::npos)
      << "one statement for all years: " << sent[4];
  sent.erase(sent.begin() + 2, sent.begin() + 5);
  EXPECT_EQ(sent, (Texts{"Select * from Mast_AllGrp Where ALLGRP=" + escaped,
                         "Select Max(AllId) from Mast_AllGrp",
                         "Insert Into Mast_AllGrp Values (5,22," + escaped + ",'Y')",
                         "Flush Tables", "Select * From Mast_AllGrp Where AllId=5"}));
  EXPECT_EQ(stored().back(), (Texts{"5", "22", name, "Y"}));
  EXPECT_EQ(listed(form.vsf), (Texts{"FARES", "FIXED GROUP", name, "POSTAGE", "RENT"}));
  EXPECT_EQ(current() + form.newGroup(), name + name);
  EXPECT_TRUE(form.groupsChanged());
  form.vsf.sortBy(0);  // a click on the heading turns it round
  press(form.cmdmodify);
  enter("A LETTER");
  EXPECT_EQ(listed(form.vsf), (Texts{"RENT", "POSTAGE", "FIXED GROUP", "FARES", "A LETTER"}));
  EXPECT_EQ(form.vsf.current(), 5);
  press(form.cmdback);
  EXPECT_EQ(closed, 1);
}

TEST_F(GroupMasterTest, TellsWhatBecameOfTheGroupAddedLast) {
  open();
  add("ONE");
  add("TWO");
  EXPECT_EQ(form.newGroup(), "TWO");
  EXPECT_FALSE(form.linesTouched()) << "no line stands under a new group";
  press(form.cmdmodify);
  enter("SECOND");
  EXPECT_EQ(form.newGroup(), "SECOND");
  EXPECT_TRUE(form.linesTouched());
  merge("SECOND", "ONE");
  EXPECT_EQ(form.newGroup(), "") << "merged away";
  messages();
  add("THREE");
  press(form.cmddelete, {yes});
  EXPECT_EQ(form.newGroup(), "") << "deleted";
  press(form.cmdback);
  open();
  EXPECT_FALSE(form.groupsChanged() || form.linesTouched());
}

TEST_F(GroupMasterTest, ChangesNameAndPrimaryGroup) {
  open();
  modify("RENT");
  enter("RENT", "CAPITAL");  // its own name is no duplicate
  EXPECT_EQ(statements(), (Texts{"Select * from Mast_AllGrp Where ALLGRP='RENT' and ALLID<>" + rent,
                                 "Update Mast_AllGrp Set ALLGRP='RENT', GID=1 Where AllId=" + rent,
                                 "Flush Tables", "Select * From Mast_AllGrp Where AllId=" + rent}));
  EXPECT_EQ(form.vsf.rows(), 4);
  EXPECT_EQ(current(1), "CAPITAL");
  EXPECT_EQ(form.newGroup(), "") << "nothing new for an entry to take";
  press(form.cmdmodify);
  enter("rent");
  EXPECT_EQ(current(), "rent") << "only the case may change";
}

TEST_F(GroupMasterTest, RefusalsComeInTheirOrder) {
  open();
  press(form.cmdadd);
  EXPECT_EQ(enter("   "), told("Please Specify 'Group' Name."));
  EXPECT_EQ(form.active(), &form.Text1);
  EXPECT_EQ(enter("fares"), told("Please Select 'Under Group'."));
  EXPECT_EQ(form.active(), &form.Combo1);
  EXPECT_EQ(enter("fares", "EXPENSES"), told("Duplicate Group!!"));
  EXPECT_EQ(enter("\u200Bfa\u00ADres "), told("Duplicate Group!!"));
  EXPECT_EQ(enter("ＦＡＲＥＳ"), told("Duplicate Group!!\r\n\r\nThere is 'FARES', and the "
                                      "database cannot tell 'ＦＡＲＥＳ' from it."));
  answer({no});
  EXPECT_FALSE(form.close());
  EXPECT_EQ(onlyMessage(), asked("Do you want to Cancel this Entry?"));
  for (const Answer reply : {no, yes}) {
    EXPECT_EQ(said(keys::Escape, {reply}), asked("Do you want to Cancel this Entry?"));
    EXPECT_EQ(form.cmdupdate.enabled(), reply == no);
  }
  modify("FARES");
  EXPECT_EQ(enter("RENT"), told("Duplicate Group!!"));
  press(form.cmdcancel);
  EXPECT_EQ(form.Text1.text(), "FARES") << "the selected row shows again";
  EXPECT_EQ(changes(), Texts());
  EXPECT_FALSE(form.groupsChanged());
  press(form.cmdadd);
  type(form.Text1, std::string(5000, 'x'));
  EXPECT_EQ(form.Text1.text().size(), 100U);
  EXPECT_EQ(form.lblhint.caption(), "A group name holds at most 100 characters.");
  leave(form);
}

TEST_F(GroupMasterTest, AGroupThatAnyTableUsesCannotBeDeleted) {
  const struct {
    std::string table, column;
    std::size_t selects;
  } cases[] = {{"TAB_2", "AllId", 6},      {"JRNL_1", "AllId", 3},    {"TRADE_2", "AllId", 8},
               {"RMGRP_2", "SalGrpId", 9}, {"RMGRP_1", "CsGrpId", 5}, {"AllGrp_Map", "AllId", 10}};
  open();
  for (const auto& each : cases) {
    exec("insert into " + each.table + "(Code_No," + each.column + ") values('C1'," + post + ")");
    pickGroup("POSTAGE");
    EXPECT_EQ(said(form.cmddelete), told("Group already in use. You can not delete this Group."));
    EXPECT_EQ(statementsWith("select").size(), each.selects) << "the first use ends the search";
    EXPECT_EQ(status(), "It stands in " + each.table + ".");
    exec("delete from " + each.table + " where " + each.column + "=" + post);
  }
  EXPECT_EQ(said(form.cmddelete, {no}),
            asked("Do you want to delele the Group [POSTAGE] ?", "Delete Confirmation"));
  EXPECT_EQ(stored().size(), 4U);
  statements();
  press(form.cmddelete, {yes});
  EXPECT_EQ(current() + form.Text1.text(), "RENTRENT") << "the row in its place, in the fields too";
  const std::string where = " Where AllId=" + post;
  const std::string bound = " Where " + post + " in (OsGrpId,PurGrpId,SalGrpId,CsGrpId)";
  EXPECT_EQ(statements(),
            (Texts{"Select distinct tbl_nm from master", "Select * from TAB_1" + where,
                   "Select * from JRNL_1" + where, "Select * from TRADE_1" + where,
                   "Select * from RMGRP_1" + bound, "Select * from TAB_2" + where,
                   "Select * from JRNL_2" + where, "Select * from TRADE_2" + where,
                   "Select * from RMGRP_2" + bound, "Select * from AllGrp_Map" + where,
                   "Delete from Mast_AllGrp Where ALLID=" + post, "Flush Tables"}));
  press(form.cmddelete);
  EXPECT_EQ(stored().size(), 3U) << "lines stand under it";
  exec("delete from TAB_1");
  press(form.cmddelete, {yes});
  EXPECT_EQ(current() + form.Text1.text(), "FIXED GROUPFIXED GROUP") << "the last row is gone";
}

TEST_F(GroupMasterTest, ASearchThatFailsDeletesNothing) {
  exec("insert into master(code_no,tbl_nm) values('C1','')");
  open();
  pickGroup("POSTAGE");
  pressFailing("JRNL_2", form.cmddelete);
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(trapped(), (Texts{"frmgrpmas\tCHECKEXISTS"}));
  EXPECT_EQ(status(), unsearched);
  EXPECT_EQ(stored().size(), 4U);
}

TEST_F(GroupMasterTest, AMissingTableIsNamedAndPassedOver) {
  exec("update master set tbl_nm='TAB_404' where f_yr='01042009'");
  use("TAB_2", "1", rent);
  const std::string named = "Missing and passed over: TAB_404, JRNL_404, TRADE_404, RMGRP_404.";
  open();
  EXPECT_EQ(status(), "");
  add("NEW");
  EXPECT_EQ(status(), named);
  pickGroup("POSTAGE");
  press(form.cmddelete, {yes});
  EXPECT_EQ(status(), named);
  EXPECT_EQ(form.vsf.find(0, "POSTAGE"), 0);
  exec("rename table TAB_1 to TAB_AWAY");
  beginMerge({"RENT"}, "FARES");
  press(form.cmdMergeGroup);
  exec("rename table TAB_AWAY to TAB_1");
  EXPECT_EQ(status(),
            "Missing and passed over: JRNL_404, TRADE_404. "
            "Missing and passed over: TAB_1.");
  EXPECT_EQ(value("select allid from TAB_2"), fares) << "the others are rewritten";
  EXPECT_EQ(trapped(), Texts());
}

TEST_F(GroupMasterTest, ANewIdIsAboveEveryIdInUse) {
  for (const char* all : {"Mast_AllGrp", "TAB_1"}) exec("delete from " + std::string(all));
  open();
  int id = 1;
  for (const std::string each :
       {"", "TAB_2(AllId) values(30)", "JRNL_1(AllId) values(40)", "TRADE_2(AllId) values(50)",
        "RMGRP_2 values('C1',1,1,60,0,0,0,1),('C1',2,1,null,0,0,0,2)",
        "RMGRP_1(CsGrpId) values(70)", "AllGrp_Map(AllId) values(80)",
        "SuiteMisc(Section,Name,Value) values('AllGrp','Merged','90>3 ')"}) {
    if (!each.empty()) exec("insert into " + each);
    add("GROUP " + std::to_string(id));
    EXPECT_EQ(stored().back(),
              (Texts{std::to_string(id), "22", "GROUP " + std::to_string(id), "Y"}))
        << each;
    id = id == 1 ? 31 : id + 10;
  }
}

// --- merging ------------------------------------------------------------------------------------

TEST_F(GroupMasterTest, MergeRefusesInItsOrder) {
  open();
  press(form.cmdMerge);
  EXPECT_EQ(
      shown(form.vsM),
      (Rows{{"FARES", "EXPENSES", ""}, {"POSTAGE", "EXPENSES", ""}, {"RENT", "EXPENSES", ""}}))
      << "what is predefined is not merged away";
  EXPECT_EQ(form.vsMW.rows(), 4) << "but other groups may be merged into it";
  EXPECT_EQ(said(form.cmdMergeGroup), told("Please select at least one group to merge."));
  form.vsM.tick(1, true);
  EXPECT_EQ(said(form.cmdMergeGroup), told("Please select merge with group."));
  pick(form.vsMW, 0, "FARES");
  EXPECT_EQ(said(form.cmdMergeGroup), told("Merge with grouop should be different."));
  pick(form.vsMW, 0, "FIXED GROUP");
  EXPECT_EQ(said(form.cmdMergeGroup, {no}),
            "Are you sure to merge selected group(s)?\r\nThis process can not be undone in any "
            "circuminstances.|YesNo none No|Group Master");
  EXPECT_EQ(changes(), Texts());
  form.press(keys::Escape);
  EXPECT_TRUE(form.vsf.shown());
  EXPECT_FALSE(form.vsM.shown());
}

TEST_F(GroupMasterTest, MergeRewritesTrialBalancesOnly) {
  use("JRNL_1", "1", rent);
  use("TAB_1", "1", post);
  open();
  beginMerge({"FARES", "RENT"}, "POSTAGE");
  answer({yes});
  statements();
  EXPECT_EQ(progressOf([&] { press(form.cmdMergeGroup); }), "Merging Groups.... 6 of 6 moving");
  Texts expected;
  for (long i = 1; i <= host().GetTbCount(); ++i) {
    expected.push_back("Update tab_" + host().GETTBNAME(i) + " set ALLID=" + post +
                       " where ALLID in (" + fares + "," + rent + ")");
  }
  expected.push_back("Delete from Mast_AllGrp where ALLID in (" + fares + "," + rent + ")");
  EXPECT_EQ(changes(), expected);
  EXPECT_EQ(messages().back(), "Merge Successfully.");
  EXPECT_EQ(rows("select allid,amt from TAB_1 order by amt"),
            (Rows{{post, "NULL"}, {post, "100"}, {post, "300"}}))
      << "two rows of one pair stay two until the pair is saved again";
  EXPECT_EQ(rows("select AllId from JRNL_1"), (Rows{{rent}})) << "the journal keeps what it said";
  EXPECT_EQ(shown(form.vsM), (Rows{{"POSTAGE", "EXPENSES", ""}}));
  press(form.cmdMergeBack);
  EXPECT_EQ(form.vsf.rows(), 2);
  EXPECT_TRUE(form.groupsChanged());
}

TEST_F(GroupMasterTest, AMergeNamesThoseWhoseEntriesKeepTheGroup) {
  for (const char* client : {"'C1'", "'O\\'C2'"}) use("JRNL_1", "1", rent, client);
  use("TRADE_1", "1", rent);
  use("TRADE_2", "1", rent, "'GONE'");
  open();
  merge("FARES", "POSTAGE");
  EXPECT_EQ(messages().size(), 2U) << "no entry has it";
  beginMerge({"RENT"}, "POSTAGE");
  answer({no});
  statements();
  press(form.cmdMergeGroup);
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
  press(form.cmdMergeGroup, {yes, yes});
  EXPECT_EQ(messages().back(), "Merge Successfully.");
  press(form.cmdMergeBack);
  pickGroup("POSTAGE");
  exec("delete from TAB_1");
  EXPECT_EQ(said(form.cmddelete), told("Group already in use. You can not delete this Group."))
      << "while entries carry a group that was merged into it";
  // What was merged into it counts as its own.
  group("LAST", 22);
  press(form.cmdback);
  open();
  merge("POSTAGE", "LAST");
  EXPECT_TRUE(dialogs.takeFailure()) << "asked about the entries under the first name";
}

TEST_F(GroupMasterTest, WhereAMergedGroupWentIsKept) {
  open();
  merge("RENT", "FARES");
  merge("FARES", "POSTAGE");
  EXPECT_TRUE(form.close());
  practice.restartModule();
  const MergedGroups merged(*context().host);
  for (const std::string& id : {rent, fares, post}) {
    EXPECT_EQ(std::to_string(merged.successor(std::stol(id))), post);
  }
  EXPECT_EQ(merged.successor(4711), 4711);
  EXPECT_EQ(merged.predecessors(std::stol(post)),
            (std::vector<long>{std::stol(rent), std::stol(fares)}));
}

// --- failures -----------------------------------------------------------------------------------

TEST_F(GroupMasterTest, AGroupDeletedMeanwhileTakesNoLines) {
  open();
  beginMerge({"RENT"}, "POSTAGE");
  exec("delete from Mast_AllGrp where ALLID=" + post);
  press(form.cmdMergeGroup);
  EXPECT_EQ(messages().back(), "The groups have been changed meanwhile. Please choose again.");
  EXPECT_EQ(form.vsMW.find(0, "POSTAGE"), 0);
  EXPECT_TRUE(form.vsM.ticked(form.vsM.find(0, "RENT"))) << "ticks stay";
  EXPECT_EQ(changes(), Texts());
  press(form.cmdMergeBack);
  modify("POSTAGE");
  enter("POST");
  EXPECT_EQ(form.vsf.findId(std::stol(post)), 0);
  EXPECT_EQ(status(), "It is there no more: somebody has deleted it.");
}

TEST_F(GroupMasterTest, WhatCannotBeReadIsNotShown) {
  open();
  pickGroup("RENT");
  press(form.cmdback);
  fail("Select * From Mast_AllGrp");
  open();
  EXPECT_EQ(form.vsf.rows(), 0);
  EXPECT_EQ(status(), "The list could not be read; the error log says why.");
  add("NEW");
  EXPECT_EQ(form.vsf.rows(), 5) << "not the new one alone";
  pressFailing("order by ALLGRP", form.cmdMerge);
  EXPECT_EQ(form.vsM.rows() + form.vsMW.rows(), 0);
}

TEST_F(GroupMasterTest, PrimaryGroupsThatCouldNotBeReadAreAskedForOnceMore) {
  fail("Mast_Gunder");
  open();
  for (Button* command : {&form.cmdadd, &form.cmdmodify}) {
    pickGroup("RENT");
    pressFailing("Mast_Gunder", *command);
    EXPECT_EQ(status(), "The primary groups could not be read; the error log says why.");
    EXPECT_FALSE(form.cmdupdate.enabled());
  }
  press(form.cmdmodify);
  enter("A RENT");
  EXPECT_EQ(shown(form.vsf)[0], (Texts{"A RENT", "EXPENSES", "Y"}));
}

TEST_F(GroupMasterTest, AnAddingThatFailedIsNotTakenForSomebodyElsesRow) {
  open();
  press(form.cmdadd);
  fail("Insert Into");
  enter("MINE", "EXPENSES");
  exec("insert into Mast_AllGrp values(5,22,'THEIRS','Y')");
  fail("Select Max");
  for (int attempt = 0; attempt < 2; ++attempt) press(form.cmdupdate);
  EXPECT_EQ(rows("select ALLID,ALLGRP from Mast_AllGrp where ALLID>4 order by 1"),
            (Rows{{"5", "THEIRS"}, {"6", "MINE"}}));
}

// The grids show what is stored after a failure.
TEST_F(GroupMasterTest, AfterAFailureTheGridShowsWhatIsStored) {
  const auto type = [&](const char* text) {
    MastersTest::type(form.Text1, text);
    choose(form.Combo1, "CAPITAL");
  };
  const auto add = [&] {
    press(form.cmdadd);
    type("A NEW ONE");
  };
  const auto rename = [&] {
    modify("RENT");
    type("A RENT");
  };
  const auto merging = [&] { beginMerge({"RENT", "FARES"}, "POSTAGE"); };
  const auto mergeAgain = [&](const Act& act) {
    if (form.famMerge.visible()) answer({yes});
    act();
  };
  const Deed deeds[] = {
      {"adding", add, form.cmdupdate, 0},
      {"renaming", rename, form.cmdupdate, 0},
      {"deleting", [&] { pickGroup("POSTAGE"); }, form.cmddelete},
      {"merging", merging, form.cmdMergeGroup, 0, 2, mergeAgain},
  };
  const auto result = [&] {
    Rows all = rows("select * from Mast_AllGrp order by ALLID");
    for (auto& row : rows("select allid from TAB_1")) all.push_back(row);
    for (auto& row : shown(form.vsf)) all.push_back(row);
    all.push_back({form.cmdupdate.enabled() ? "editing" : "browsing", form.Text1.text()});
    return all;
  };
  keep({"Mast_AllGrp", "TAB_1", "SuiteMisc"});
  for (const Deed& deed : deeds) {
    failEach(deed, result, [&] {
      EXPECT_EQ(shown(form.vsf), rows("select ALLGRP,Gunder,UserGrp from Mast_AllGrp join "
                                      "Mast_Gunder using(GId) order by ALLGRP"));
      if (form.famMerge.visible()) {
        EXPECT_TRUE(form.vsM.ticked(form.vsM.find(0, "RENT"))) << "the choice stays";
      } else if (form.cmdupdate.enabled()) {
        EXPECT_EQ(form.Text1.text().substr(0, 2), "A ") << "and what was typed";
        EXPECT_NE(status(), "");
      }
      EXPECT_TRUE(form.linesTouched() || deed.what != "merging" ||
                  value("select count(*) from TAB_1 where allid=" + post) == "0")
          << "an editor must read anew";
    });
  }
}

}  // namespace
}  // namespace quillet::support
