// The group master through its form: merging, and what failures leave on the screen.
#include <gtest/gtest.h>

#include "books/merged_groups.h"
#include "masters/masters_fixture.h"

namespace quillet::support {
namespace {

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
  exec("insert into AllGrp_Map(Code_No,AllId) values('C1'," + rent + "),('C1'," + post + ")");
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
  for (const std::string table : {"AllGrp_Map Where AllId", "Mast_AllGrp where ALLID"}) {
    expected.push_back("Delete from " + table + " in (" + fares + "," + rent + ")");
  }
  EXPECT_EQ(changes(), expected);
  EXPECT_EQ(messages().back(), "Merge Successfully.");
  EXPECT_EQ(rows("select allid,amt from TAB_1 order by amt"),
            (Rows{{post, "NULL"}, {post, "100"}, {post, "300"}}))
      << "two rows of one pair stay two until the pair is saved again";
  EXPECT_EQ(rows("select AllId from JRNL_1"), (Rows{{rent}})) << "the journal keeps what it said";
  EXPECT_EQ(rows("select AllId from AllGrp_Map"), (Rows{{post}}));
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
  exec("insert into Mast_AllGrp(ALLID,ALLGRP) values(" + rent + ",'RENT')");
  EXPECT_EQ(MergedGroups(*context().host).successor(std::stol(rent)), std::stol(rent))
      << "a number that is in use again";
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
  const auto mapping = [&] {
    press(form.cmdMap);
    for (const char* name : {"POSTAGE", "RENT"}) form.vsMap.tick(form.vsMap.find(0, name), true);
    choose(form.cboSVI, "Other expenses");
  };
  const Deed deeds[] = {
      {"adding", add, form.cmdupdate, 0},
      {"renaming", rename, form.cmdupdate, 0},
      {"deleting", [&] { pickGroup("POSTAGE"); }, form.cmddelete},
      {"merging", merging, form.cmdMergeGroup, 0, 2, mergeAgain},
      {"mapping", mapping, form.cmdMapSet, 0, 2},
  };
  const auto result = [&] {
    Rows all = rows("select * from Mast_AllGrp order by ALLID");
    for (auto& row : rows("select allid from TAB_1")) all.push_back(row);
    for (auto& row : rows("select * from AllGrp_Map order by 1,2")) all.push_back(row);
    for (auto& row : shown(form.vsf)) all.push_back(row);
    all.push_back({form.cmdupdate.enabled() ? "editing" : "browsing", form.Text1.text()});
    return all;
  };
  exec("insert into AllGrp_Map values('C1'," + rent + ",35,'Other expenses',1,'Capital')");
  keep({"Mast_AllGrp", "TAB_1", "SuiteMisc", "AllGrp_Map"});
  for (const Deed& deed : deeds) {
    failEach(deed, result, [&] {
      EXPECT_EQ(shown(form.vsf), rows("select ALLGRP,Gunder,UserGrp from Mast_AllGrp join "
                                      "Mast_Gunder using(GId) order by ALLGRP"));
      if (form.famMerge.visible()) {
        EXPECT_TRUE(form.vsM.ticked(form.vsM.find(0, "RENT"))) << "the choice stays";
      } else if (form.famMap.visible() && form.vsMap.rows() > 0) {
        EXPECT_EQ(form.vsMap.cell(form.vsMap.find(0, "RENT"), 2) != "",
                  value("select count(*) from AllGrp_Map where AllId=" + rent +
                        " and Code_No<>'C1'") == "1");
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
