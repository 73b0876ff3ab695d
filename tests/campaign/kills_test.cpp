// The program is killed at a random moment, or between two operations of its disk.
#include <gtest/gtest.h>
#include <unistd.h>

#include <random>

#include "campaign/scene.h"

namespace quillet::campaign {
namespace {

class Kills : public ::testing::TestWithParam<const char*> {};

// Kills the program and returns what it had acknowledged: at a moment of the acts, between two of
// their operations, between any two until the program's end.
std::size_t killOnce(Scene& scene, unsigned seed) {
  std::mt19937 random(seed);
  const auto draw = [&](std::int64_t most) {
    return std::uniform_int_distribution<std::int64_t>(0, most)(random);
  };
  scene.fresh();
  if (seed % 4 != 0) {
    const auto most = seed % 4 == 3 ? scene.operations() : scene.operationsOfActs();
    const Disk& disk = scene.disk(Disk::Plan::kill, 1 + draw(most));
    scene.play()->wait();
    return disk.acknowledged;
  }
  const Disk& disk = scene.disk(Disk::Plan::work);
  const auto program = scene.play();
  while (!disk.begun) usleep(20);
  usleep(static_cast<useconds_t>(draw(scene.microseconds())));
  program->kill();
  return disk.acknowledged;
}

TEST_P(Kills, LeaveEveryActWholeOrNotThere) {
  Scene scene(GetParam());
  int unfinished = 0, bad = 0;
  const auto all = seeds(2);
  for (const unsigned seed : all) {
    const std::size_t acknowledged = killOnce(scene, seed);
    if (acknowledged < scene.acts()) ++unfinished;
    const std::string verdict = scene.verdict(acknowledged);
    if (verdict.empty()) continue;
    if (++bad < 3) ADD_FAILURE() << "QUILLET_CAMPAIGN_SEED=" << seed << ": " << verdict;
  }
  std::cout << GetParam() << ": " << all.size() << " kills, " << unfinished
            << " before the last act was done, " << bad << " bad\n";
  EXPECT_EQ(bad, 0);
}

INSTANTIATE_TEST_SUITE_P(Acts, Kills,
                         ::testing::Values("lines", "vouchers", "creations", "deletions", "merges",
                                           "groups", "links", "replacements", "import", "binding",
                                           "locks", "large"),
                         [](const auto& each) { return std::string(each.param); });

}  // namespace
}  // namespace quillet::campaign
