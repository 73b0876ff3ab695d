// Groups mapped to the heads of statutory statements.
#include "books/group_mapping.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace quillet::support
