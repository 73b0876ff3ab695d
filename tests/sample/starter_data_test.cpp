#include "suite/starter_data.h"

#include <map>
#include <set>
#include <string>

#include "support/practice.h"

namespace quillet::suite {
namespace {

TEST(StarterGroups, HangTogether) {
  std::set<long> ids, used;
  std::set<std::string> names;
  for (const AccountGroup& group : accountGroups()) {
    EXPECT_TRUE(ids.insert(group.id).second) << group.id;
    EXPECT_TRUE(names.insert(group.name).second) << group.name;
    used.insert(group.primary->id);
    // The scratch tables of the journal's reports hold a hundred characters.
    EXPECT_LE(group.name.size(), 100u) << group.name;
  }
  EXPECT_EQ(used.size(), 29u) << "a primary group without a group to choose";
}

// The summary adds assets and expenses on the debit side and the others on the credit side, by
// these numbers.
TEST(StarterGroups, StandUnderTheGrandGroupThatTheSummaryExpects) {
  const std::map<GrandGroup, std::set<long>> expected = {
      {GrandGroup::assets, {5, 6, 7, 8, 9, 10, 11, 14, 27}},
      {GrandGroup::liabilities, {1, 2, 3, 4, 12, 13, 28}},
      {GrandGroup::incomes, {15, 17}},
      {GrandGroup::expenses, {16, 18, 19, 20, 21, 22, 23, 24, 25, 26, 29}}};
  std::map<GrandGroup, std::set<long>> found;
  for (const PrimaryGroup& group : primaryGroups()) found[group.grand].insert(group.id);
  EXPECT_EQ(found, expected);
}

class StarterDataTest : public support::PracticeTest {
 protected:
  void SetUp() override {
    exec("delete from Mast_Gunder");
    exec("delete from Mast_AllGrp");
  }
  void install() { installStarterData(practice.database()); }
};

TEST_F(StarterDataTest, GroupsArePredefinedAndReachTheirPrimaryGroup) {
  install();
  EXPECT_EQ(value("select count(*) from Mast_Gunder"), "29");
  EXPECT_EQ(value("select count(*) from Mast_AllGrp where UserGrp<>'N'"), "0");
  EXPECT_EQ(value("select count(*) from Mast_AllGrp,Mast_Gunder where Mast_AllGrp.GID="
                  "Mast_Gunder.GId"),
            std::to_string(accountGroups().size()));
  EXPECT_EQ(value("select GID from Mast_AllGrp where ALLGRP='DEPRECIATION'"), "29");
  EXPECT_EQ(value("select ggid from Mast_Gunder where GId=13"), "2");
}

TEST_F(StarterDataTest, WhatAUserHasIsLeftAlone) {
  exec("insert into Mast_AllGrp(ALLID,GID,ALLGRP,UserGrp) values(7,1,'MINE','Y')");
  install();
  EXPECT_EQ(value("select group_concat(ALLGRP) from Mast_AllGrp"), "MINE");
  EXPECT_EQ(value("select count(*) from Mast_Gunder"), "29");
  exec("delete from Mast_Gunder where GId=28");
  install();
  EXPECT_EQ(value("select count(*) from Mast_Gunder"), "28");
}

}  // namespace
}  // namespace quillet::suite
