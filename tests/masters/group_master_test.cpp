// The group master through its form: adding, changing and deleting groups.
#include <gtest/gtest.h>

#include "masters/masters_fixture.h"

namespace quillet::support {
namespace {

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
  enter("A'S LETTER");
  EXPECT_EQ(listed(form.vsf), (Texts{"RENT", "POSTAGE", "FIXED GROUP", "FARES", "A'S LETTER"}));
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
  } cases[] = {{"TAB_2", "AllId", 6},
               {"JRNL_1", "AllId", 3},
               {"TRADE_2", "AllId", 8},
               {"RMGRP_2", "SalGrpId", 9},
               {"RMGRP_1", "CsGrpId", 5}};
  for (const std::string& mapped : {post, rent}) {
    exec("insert into AllGrp_Map(Code_No,AllId) values('C1'," + mapped + "),('#?#COMMON#?#'," +
         mapped + ")");
  }
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
                   "Select * from RMGRP_2" + bound,
                   "Delete from AllGrp_Map Where AllId in (" + post + ")", "Flush Tables",
                   "Delete from Mast_AllGrp Where ALLID=" + post, "Flush Tables"}));
  EXPECT_EQ(rows("select distinct AllId from AllGrp_Map"), (Rows{{rent}})) << "of all clients";
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
  for (const char* all : {"from Mast_AllGrp", "history from Mast_AllGrp", "from TAB_1"})
    exec("delete " + std::string(all));
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
  press(form.cmddelete, {yes});
  messages();
  add("AFTER A DELETION");
  EXPECT_EQ(stored().back()[0], "92") << "the history means the group that is gone by its number";
}

}  // namespace
}  // namespace quillet::support
