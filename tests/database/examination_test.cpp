// The examination of a database that was not closed: what may hinder it, and who decides then.
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>

#include "database/folder_fixture.h"

namespace quillet::suite {
namespace {

using Choice = ExaminationPolicy::Choice;
using Obstacle = ExaminationPolicy::Obstacle;

// Tells why it could not be examined.
ExaminationPolicy leaving() {
  ExaminationPolicy policy;
  policy.undecided = [](const Obstacle&) { return Choice::leave; };
  return policy;
}

template <class Resource>
void limit(Resource resource, rlim_t most) {
  const rlimit both{most, most};
  setrlimit(resource, &both);
}

// Sends a signal to the process that examines the folder.
void signalExaminer(int signal) {
  std::ifstream children("/proc/self/task/" + std::to_string(getpid()) + "/children");
  for (pid_t child = 0; children >> child;) kill(child, signal);
}

TEST_F(FolderTest, SoundFilesAreNotCalledDamagedForLackOfTimeMemoryOrRoom) {
  ExaminationPolicy killing = leaving();
  killing.patience = std::chrono::milliseconds(1);
  killing.undecided = [](const Obstacle& obstacle) {
    if (obstacle.reason.find("end yet") == std::string::npos) return Choice::leave;
    signalExaminer(SIGKILL);
    return Choice::wait;
  };
  ExaminationPolicy hasty = leaving();
  hasty.patience = {};
  const auto files = [](rlim_t most) {
    return [most] {
      signal(SIGXFSZ, SIG_IGN);
      limit(RLIMIT_FSIZE, most);
    };
  };
  [[maybe_unused]] const auto memory = [](rlim_t most) {
    return [most] { limit(RLIMIT_AS, most << 20); };
  };
  struct Case {
    const char* what;
    ExaminationPolicy policy;
    std::function<void()> arrange;
  };
  std::vector<Case> cases{{"no time", hasty, [] {}},
                          {"killed", killing, [] {}},
                          {"no room for a copy", leaving(), files(1 << 20)},
                          {"no room to work", leaving(), files(12U << 20)},
                          {"no files", leaving(), [] { limit(RLIMIT_NOFILE, 12); }}};
#ifndef __SANITIZE_ADDRESS__
  // The examination succeeds from some 340 on, depending on how many of its threads run at once.
  for (const rlim_t most : {160, 220, 280}) cases.push_back({"memory", leaving(), memory(most)});
#endif
  for (const auto& [what, policy, arrange] : cases) {
    copy();
    fs::remove(folder / "sealed");
    const auto before = snapshot(folder);
    const std::string told = inChild([&, &arranged = arrange, &chosen = policy] {
      arranged();
      return Database::openEmbedded(folder, chosen) ? std::string("opened") : std::string();
    });
    EXPECT_NE(told.find("not examined to the end"), std::string::npos) << what << ": " << told;
    EXPECT_TRUE(snapshot(folder) == before) << what << " changed the folder";
    EXPECT_FALSE(fs::exists(folder.string() + ".trial")) << what;
    EXPECT_EQ(ledgers(folder), "Cash") << what;
  }
}

TEST_F(FolderTest, APersonMayWaitForAnExaminationOrGoOnWithout) {
  for (const Choice choice : {Choice::wait, Choice::openUnexamined}) {
    copy();
    fs::remove(folder / "sealed");
    ExaminationPolicy policy;
    policy.patience = {};
    policy.undecided = [&](const Obstacle&) { return choice; };
    EXPECT_EQ(ledgers(folder, policy), "Cash");
  }
}

TEST_F(FolderTest, AStartKilledWhileItExaminesLeavesNothingBehind) {
  copy();
  fs::remove(folder / "sealed");
  support::Reporting start([&](const support::Reporting::Tell& tell) {
    ExaminationPolicy policy;
    policy.patience = std::chrono::milliseconds(1);
    policy.undecided = [&](const Obstacle&) {
      if (!fs::exists(folder.string() + ".trial")) return Choice::wait;
      signalExaminer(SIGSTOP);
      tell("examining");
      pause();
      return Choice::wait;
    };
    Database::openEmbedded(folder, policy);
  });
  ASSERT_EQ(start.next(), "examining");
  start.kill();
  ASSERT_TRUE(fs::exists(folder.string() + ".trial"));
  EXPECT_EQ(ledgers(folder), "Cash");
  EXPECT_FALSE(fs::exists(folder.string() + ".trial"));
}

}  // namespace
}  // namespace quillet::suite
