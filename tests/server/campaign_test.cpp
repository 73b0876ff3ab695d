// Four stations work at full speed on one server, and on a cluster. What they were told to be
// stored is stored, once.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>
#include <thread>

#include "data/errors.h"
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
      folderOfStation(folder(n), "127.0.0.1:" + std::to_string(server.port()), account);
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
    std::string told;
    for (int n = 1; n <= stations; ++n) told += output(n);
    EXPECT_EQ(run(1, words), 0) << told;
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

// The node in use dies in the middle of work, again and again. What was told to be stored is there,
// and the station goes on at the next one.
TEST(StationCampaign, NodesThatAreKilled) {
  NEEDS_REAL_SERVERS();
  RealCluster cluster;
  std::string hosts;
  for (std::size_t n = 0; n < RealCluster::size; ++n) {
    hosts += (n == 0 ? "127.0.0.1:" : ",127.0.0.1:") + std::to_string(cluster.node(n).port());
  }
  cluster.node(0).addAccount("anna", "anna");
  Station station(hosts, "anna");
  station.addYear("A1", 2008);
  station.open("A1", 2008);
  station.enter("Cash", "BANK BALANCES", "1");
  long stored = 1;
  const int kills = std::stoi(number("QUILLET_CAMPAIGN_KILLS", "1"));
  std::vector<double> seconds;
  // Of the node in use; "" while the connection is away.
  const auto portInUse = [&] {
    try {
      return station.value("select @@port");
    } catch (const RunTimeError&) {
      return std::string();
    }
  };
  for (int round = 0; round < kills; ++round) {
    const std::string port = portInUse();
    ASSERT_NE(port, "");
    std::size_t used = 0;
    while (std::to_string(cluster.node(used).port()) != port) ++used;
    std::thread killer([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(37 * (round % 10)));
      cluster.kill(used);
    });
    // What is stored leaves the fields.
    std::optional<std::chrono::steady_clock::time_point> lost;
    for (int after = 0; after < 3;) {
      const auto begun = std::chrono::steady_clock::now();
      station.enter("Cash", "BANK BALANCES", "1");
      const bool saved = station.editor().txtpart.text().empty();
      const auto notices = station.notices();
      for (const std::string& notice : notices) {
        EXPECT_EQ(notice.find("It is not known"), std::string::npos) << notice;
      }
      // Where nothing was sent yet, the step goes to the next node unnoticed.
      const bool moved = portInUse() != port;
      if ((!notices.empty() || moved) && !lost) lost = begun;
      if (saved) ++stored;
      if (!saved || !lost || ++after > 1) continue;
      seconds.push_back(
          std::chrono::duration<double>(std::chrono::steady_clock::now() - *lost).count());
    }
    killer.join();
    cluster.join(used);
  }
  EXPECT_EQ(station.value("select amt from TAB_2 where code_no='A1'"), std::to_string(stored));
  std::ranges::sort(seconds);
  const double median = seconds.at(seconds.size() / 2);
  std::cout << kills << " kills, on again after " << median << " s in the median, "
            << seconds.back() << " s at most\n";
  EXPECT_LT(median, 10);
  station.leave();
}

}  // namespace
}  // namespace quillet::support
