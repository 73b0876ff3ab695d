// Four stations work at full speed on one server, and on a cluster. What they were told to be
// stored is stored, once.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>

#include "server/real_cluster.h"
#include "server/station.h"

namespace quillet::support {
namespace {

namespace fs = std::filesystem;

constexpr int stations = 4;

std::string number(const char* name, const char* usual) {
  const char* given = std::getenv(name);
  return given != nullptr ? given : usual;
}

class Campaign {
 public:
  explicit Campaign(RealServer& server) {
    for (int n = 1; n <= stations; ++n) {
      const std::string account = "s" + std::to_string(n);
      server.addAccount(account, account);
      // The first one makes the books.
      if (n == 1) Station{server, account};
      folderOfStation(folder(n), server.port(), account);
    }
  }

  void play() {
    EXPECT_EQ(run(1, {"arrange"}), 0) << output(1);
    std::vector<int> days;
    for (int n = 1; n <= stations; ++n) {
      days.push_back(start(n, {"day", std::to_string(n), number("QUILLET_CAMPAIGN_SEED", "1"),
                               number("QUILLET_CAMPAIGN_ACTS", "25"), log(n)}));
    }
    for (int n = 1; n <= stations; ++n) {
      EXPECT_EQ(waitFor(days.at(static_cast<std::size_t>(n - 1))), 0) << output(n);
    }
    std::vector<std::string> words{"verify"};
    for (int n = 1; n <= stations; ++n) words.push_back(log(n));
    EXPECT_EQ(run(1, words), 0);
    std::cout << output(1);
  }

 private:
  fs::path folder(int n) const { return place_.path() / ("station" + std::to_string(n)); }
  std::string log(int n) const { return folder(n).string() + ".log"; }
  std::string output(int n) const {
    std::ostringstream text;
    text << std::ifstream(folder(n).string() + ".out").rdbuf();
    return text.str();
  }
  int start(int n, const std::vector<std::string>& words) const {
    std::vector<std::string> all{QUILLET_PROGRAM, "--data", folder(n).string(), "script",
                                 QUILLET_STATION};
    all.insert(all.end(), words.begin(), words.end());
    return startProgram(all, folder(n).string() + ".out");
  }
  int run(int n, const std::vector<std::string>& words) const { return waitFor(start(n, words)); }

  TemporaryFolder place_;
};

TEST(StationCampaign, OnAServer) {
  NEEDS_REAL_SERVERS();
  RealServer server;
  Campaign(server).play();
}

TEST(StationCampaign, OnACluster) {
  NEEDS_REAL_SERVERS();
  RealCluster cluster;
  Campaign(cluster.node(0)).play();
}

}  // namespace
}  // namespace quillet::support
