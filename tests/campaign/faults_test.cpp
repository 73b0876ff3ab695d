// The disk fails at the n-th operation, for every n of an act.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <map>

#include "campaign/scene.h"

namespace quillet::campaign {
namespace {

using Plan = Disk::Plan;

const std::map<Plan, std::string> names{
    {Plan::failOnce, "once"}, {Plan::failOnwards, "onwards"}, {Plan::full, "full"}};

class DiskFaults : public ::testing::TestWithParam<std::tuple<const char*, Plan>> {};

std::string endOf(int status, const Disk& disk) {
  std::string text = disk.failed > 0 ? "failure told, " : "";
  if (WIFSIGNALED(status)) return text + "signal " + std::to_string(WTERMSIG(status));
  return text + (disk.acknowledged > 0 ? "act done" : "act not done") + ", status " +
         std::to_string(WEXITSTATUS(status));
}

TEST_P(DiskFaults, LeaveTheActWholeOrNotThere) {
  const auto [scenario, plan] = GetParam();
  Scene scene(scenario);
  std::map<std::string, int> ends;
  int bad = 0;
  // All of them, or so many that lie evenly.
  const auto runs = static_cast<std::int64_t>(seeds(3).size());
  const std::int64_t most = scene.operationsOfActs();
  for (std::int64_t i = 0; i < std::min(runs, most); ++i) {
    const std::int64_t at = 1 + i * most / std::min(runs, most);
    scene.fresh();
    const Disk& disk = scene.disk(plan, at);
    const auto program = scene.play();
    const int status = program->wait();
    const std::string end = endOf(status, disk), said = program->said();
    const std::string verdict = scene.verdict(disk.acknowledged);
    ++ends[end + ", books " + (verdict.empty() ? std::to_string(scene.found()) : "bad")];
    const bool silent = !WIFEXITED(status) && said.find("quillet: ") == std::string::npos;
    if (verdict.empty() && !silent) continue;
    if (++bad < 3) {
      ADD_FAILURE() << "operation " << at << " of " << most << ": " << end << "; "
                    << (silent ? "in silence" : verdict) << "\n"
                    << said.substr(0, 300);
    }
  }
  for (const auto& [end, count] : ends) {
    std::cout << scenario << ", " << names.at(plan) << ": " << count << " x " << end << '\n';
  }
  EXPECT_EQ(bad, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Acts, DiskFaults,
    ::testing::Combine(::testing::Values("save", "posting", "creation", "large"),
                       ::testing::Values(Plan::failOnce, Plan::failOnwards, Plan::full)),
    [](const auto& each) {
      return std::get<0>(each.param) + ("_" + names.at(std::get<1>(each.param)));
    });

}  // namespace
}  // namespace quillet::campaign
