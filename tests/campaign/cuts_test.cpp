// The power goes at a random moment: the folder is rebuilt as the disk holds it then.
#include <gtest/gtest.h>

#include "campaign/recording.h"
#include "campaign/scene.h"

namespace quillet::campaign {
namespace {

class PowerCuts : public ::testing::TestWithParam<const char*> {};

TEST_P(PowerCuts, LoseNothingThatWasAcknowledged) {
  Scene scene(GetParam());
  scene.fresh();
  scene.disk(Disk::Plan::work, 0, true);
  const auto program = scene.play();
  ASSERT_EQ(program->wait(), 0) << program->said();
  const Recording recording(scene.record());
  int unfinished = 0, open = 0, bad = 0;
  const auto all = seeds(2);
  for (const unsigned seed : all) {
    std::mt19937 random(seed);
    // Among the acts, or up to the program's end.
    const std::size_t end = seed % 2 == 0 ? recording.ended() : recording.size();
    const std::size_t cut = recording.begun() + random() % (end - recording.begun());
    recording.cut(scene.fresh(), cut, random);
    const std::size_t acknowledged = recording.acknowledgedBefore(cut);
    if (acknowledged < scene.acts()) ++unfinished;
    if (recording.openPageWrites(cut) > 0) ++open;
    const std::string verdict = scene.verdict(acknowledged);
    if (verdict.empty()) continue;
    if (++bad < 3) ADD_FAILURE() << "QUILLET_CAMPAIGN_SEED=" << seed << ": " << verdict;
  }
  std::cout << GetParam() << ": " << all.size() << " power cuts, " << unfinished
            << " before the last act was done, " << open << " with page writes under way, " << bad
            << " bad\n";
  EXPECT_EQ(bad, 0);
}

INSTANTIATE_TEST_SUITE_P(Acts, PowerCuts,
                         ::testing::Values("lines", "vouchers", "creations", "deletions", "links",
                                           "large"),
                         [](const auto& each) { return std::string(each.param); });

}  // namespace
}  // namespace quillet::campaign
