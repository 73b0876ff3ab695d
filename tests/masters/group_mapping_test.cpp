// Groups mapped to the heads of statutory statements.
#include "books/group_mapping.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "masters/masters_fixture.h"

namespace quillet::support {
namespace {

TEST_F(MastersTest, AClientsOwnMappingStandsBeforeTheCommonOne) {
  GroupMapper common(host());
  GroupMapper mapper(host(), "O'C2");
  common.save(1, {.schedule6 = {10, "Trade payables"}});
  common.save(2, {.schedule6 = {22, "Inventories"}, .incomeTax = {5, "Stock"}});
  statements();
  mapper.save(2, {.incomeTax = {6, "Owner's"}, .own = true});
  EXPECT_EQ(
      statements(),
      (Texts{"Delete from AllGrp_Map Where Code_No='O\\'C2' and AllId=2", "Flush Tables",
             "Insert Into AllGrp_Map Values ('O\\'C2',2,0,'',6,'Owner\\'s')", "Flush Tables"}));
  const auto shown = [](const GroupMappings& mappings) {
    Texts all;
    for (const auto& [group, mapping] : mappings) {
      all.push_back(std::to_string(group) + ' ' + mapping.schedule6.name + '/' +
                    mapping.incomeTax.name + (mapping.own ? " own" : ""));
    }
    return all;
  };
  EXPECT_EQ(shown(mapper.effective()), (Texts{"1 Trade payables/", "2 /Owner's own"}));
  EXPECT_EQ(shown(GroupMapper(host(), "C1").effective()),
            (Texts{"1 Trade payables/", "2 Inventories/Stock"}));
  mapper.copyCommon({1, 2, 3});
  EXPECT_EQ(shown(mapper.own()), (Texts{"1 Trade payables/ own", "2 Inventories/Stock own"}));
  mapper.clear({1}, true);
  EXPECT_EQ(shown(mapper.effective()), (Texts{"1 Trade payables/", "2 Inventories/Stock own"}));
  mapper.mapCommon(false);
  EXPECT_TRUE(!mapper.mapsCommon() && common.mapsCommon()) << "without a client nothing is its own";
}

class MappingPageTest : public GroupMasterTest {
 protected:
  MappingPageTest() { context().clientCode = "O'C2"; }
  void openPage() {
    open();
    press(form.cmdMap);
    statements();
  }
  void tick(const Texts& groups) {
    for (const std::string& name : groups) form.vsMap.tick(form.vsMap.find(0, name), true);
  }
  void map(const Texts& groups, const std::string& schedule6, const std::string& incomeTax = {}) {
    tick(groups);
    choose(form.cboSVI, schedule6);
    if (!incomeTax.empty()) choose(form.cboIT, incomeTax);
    press(form.cmdMapSet);
  }
  // Group, heads and whose row it is, of the shown rows that are mapped.
  Texts mapped() {
    Texts all;
    for (const auto& row : shown(form.vsMap)) {
      if (!row[4].empty()) all.push_back(row[0] + ": " + row[2] + "/" + row[3] + " " + row[4]);
    }
    return all;
  }
};

TEST_F(MappingPageTest, TickedGroupsGetAHeadByOneChoice) {
  openPage();
  EXPECT_EQ(shown(form.vsMap)[1], (Texts{"FIXED GROUP", "CAPITAL", "", "", "", ""}));
  tick({"FIXED GROUP", "RENT"});
  EXPECT_EQ(form.lblMapCount.caption(), "4 groups, 4 not mapped, 2 ticked");
  form.press(keys::Enter);
  for (const char letter : std::string("other e")) form.press(static_cast<Key>(letter));
  EXPECT_EQ(form.cboSVI.text(), "Other expenses");
  form.press(keys::Enter);
  const std::string row = "AllGrp_Map Where Code_No='#?#COMMON#?#' and AllId=";
  const std::string values = "Insert Into AllGrp_Map Values ('#?#COMMON#?#',";
  EXPECT_EQ(changes(), (Texts{"Delete from " + row + "1", "Flush Tables",
                              values + "1,35,'Other expenses',0,'')", "Flush Tables",
                              "Delete from " + row + rent, "Flush Tables",
                              values + rent + ",35,'Other expenses',0,'')", "Flush Tables"}));
  EXPECT_EQ(mapped(),
            (Texts{"FIXED GROUP: Other expenses/ Common", "RENT: Other expenses/ Common"}));
  EXPECT_EQ(form.active(), &form.vsMap);
  EXPECT_EQ(form.lblMapCount.caption(), "4 groups, 4 not mapped") << "nor ticked any more";
  EXPECT_EQ(said(form.cmdMapSet),
            told("Please choose a head of Schedule VI or of the income-tax return."));
  // One head is taken away, the other stays.
  map({"RENT"}, "(as it is)", "Rent paid");
  map({"RENT"}, "(none)");
  EXPECT_EQ(mapped(), (Texts{"FIXED GROUP: Other expenses/ Common", "RENT: /Rent paid Common"}));
  choose(form.cboMapShow, "Without Schedule VI");
  EXPECT_EQ(listed(form.vsMap), (Texts{"FARES", "POSTAGE", "RENT"}));
  tick({"POSTAGE", "RENT"});
  choose(form.cboMapShow, "Without Income Tax");
  press(form.cmdMapTick);
  choose(form.cboMapShow, "All groups");
  EXPECT_EQ(form.lblMapCount.caption(), "4 groups, 4 not mapped, 3 ticked")
      << "what was not in sight is not ticked";
  form.press(keys::Escape);
  EXPECT_EQ(form.active(), &form.vsf);
  EXPECT_EQ(shown(form.vsf)[0].size(), 3U) << "the master shows the columns that it always showed";
}

TEST_F(MappingPageTest, TheClientsOwnMappingIsEditedOnRequest) {
  openPage();
  map({"FARES", "RENT"}, "Other expenses", "Rent paid");
  press(form.optMap[1]);
  map({"POSTAGE", "RENT"}, "Finance costs");
  map({"FARES"}, "(none)", "(none)");
  const Texts own = {"FARES: / Own", "POSTAGE: Finance costs/ Own",
                     "RENT: Finance costs/Rent paid Own"};
  EXPECT_EQ(mapped(), own);
  press(form.cmdMapBack);
  press(form.cmdback);
  openPage();
  EXPECT_EQ(mapped(), own) << "the choice is kept";
  press(form.optMap[0]);
  EXPECT_EQ(mapped(), (Texts{"FARES: Other expenses/Rent paid Common, Own", "POSTAGE: / Own",
                             "RENT: Other expenses/Rent paid Common, Own"}));
  // Clearing brings the common ones back.
  press(form.optMap[1]);
  tick({"POSTAGE", "RENT", "FIXED GROUP"});
  EXPECT_EQ(said(form.cmdMapClear, {yes}), asked("Clear the client's own mapping of 2 groups ?"
                                                 "\r\n\r\nThe common one holds again."));
  EXPECT_EQ(mapped(), (Texts{"FARES: / Own", "RENT: Other expenses/Rent paid Common"}));
  // Copying asks about what is the client's own.
  for (const Answer answer : {Answer::Cancel, Answer::No, Answer::Yes}) {
    said(form.cmdMapCopy, {answer});
    EXPECT_EQ(mapped(),
              (Texts{answer == Answer::Yes ? "FARES: Other expenses/Rent paid Own" : "FARES: / Own",
                     "RENT: Other expenses/Rent paid " +
                         std::string(answer == Answer::Cancel ? "Common" : "Own")}));
  }
  EXPECT_EQ(status(), "2 groups copied.");
  press(form.cmdMapBack);
  press(form.cmdback);
  form.INITDATA("");
  openPage();
  EXPECT_EQ(mapped(), (Texts{"FARES: Other expenses/Rent paid Common",
                             "RENT: Other expenses/Rent paid Common"}));
  EXPECT_FALSE(form.optMap[1].enabled() || form.cmdMapCopy.enabled()) << "there is no client";
}

TEST_F(MappingPageTest, TheMasterShowsTheColumnsThatWereChosen) {
  openPage();
  map({"RENT"}, "Other expenses");
  exec("update AllGrp_Map set SVIMapId=4711,SVIMapName='Gone'");
  press(form.cmdMapBack);
  press(form.cmdShow);
  for (const int row : {2, 3}) form.vsCols.tick(row, row == 3);
  statements();
  form.press(keys::Escape);
  EXPECT_EQ(form.active(), &form.vsf);
  const Rows chosen = {{"FARES", "EXPENSES", ""},
                       {"FIXED GROUP", "CAPITAL", ""},
                       {"POSTAGE", "EXPENSES", ""},
                       {"RENT", "EXPENSES", "Gone (no such head)"}};
  EXPECT_EQ(shown(form.vsf), chosen);
  press(form.cmdback);
  open();
  EXPECT_EQ(shown(form.vsf), chosen);
  press(form.cmdMap);
  choose(form.cboMapShow, "Without Schedule VI");
  EXPECT_EQ(form.vsMap.rows(), 4) << "a head that is gone is none";
  EXPECT_EQ(listed(form.vsMap).size(), 4U);
}

TEST_F(MappingPageTest, APracticesOwnListIsTakenAndWhatIsWrongInItTold) {
  const auto file = practice.folder().statutoryHeads();
  std::ofstream(file) << "scheme\tid\tkind\tsection\theading\tname\tnote\trole\n"
                         "Schedule VI\t35\t\t\t\tSundry expenses\t\t\n"
                         "Schedule VI\t1000\texpenses\tS\t\tN\t\t\n";
  openPage();
  EXPECT_EQ(status(), "statutory_heads.tsv, line 3: there is no such kind: \"expenses\".");
  EXPECT_GT(form.cboSVI.find("Sundry expenses"), 0);
  std::filesystem::remove(file);
  press(form.cmdMapBack);
  press(form.cmdMap);
  EXPECT_EQ(form.cboSVI.find("Sundry expenses"), 0);
}

}  // namespace
}  // namespace quillet::support
