// A program that ends with a year open leaves it to the others, unless it is killed.
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <optional>
#include <thread>

#include "server/long_line.h"
#include "server/station.h"

namespace quillet::support {
namespace {

TEST(Ending, LeavesTheYearsToTheOthers) {
  NEEDS_REAL_SERVERS();
  RealServer server;
  for (const char* name : {"anna", "ben"}) server.addAccount(name, name);
  Station(server, "anna").addYear("A1", 2008);
  const TemporaryFolder place;
  const std::filesystem::path folder = place.path() / "ben";
  folderOfStation(folder, "127.0.0.1:" + std::to_string(server.port()), "ben");
  const std::filesystem::path script = place.path() / "open.lua";
  std::ofstream(script) << R"(local home = quillet.show("third")
home:press("Escape")
home.mnualter:click()
home.ClGrd1:pick("A1")
home.ClGrd1:dblclick()
home.flexgrid2:pick("01/04/2008")
home.flexgrid2:dblclick()
assert(quillet.form("frmcrtb"))
local idle = coroutine.wrap(function() pcall(function() while true do end end) end)
idle()
)";
  const auto present = [&] { return server.value("select count(*) from quillet.SuitePresence"); };
  struct Case {
    int signal, status;
    const char* present;
  };
  for (const auto& [signal, status, rows] : {Case{SIGTERM, 143, "0"}, Case{SIGHUP, 129, "0"},
                                             Case{SIGINT, 130, "0"}, Case{SIGKILL, 128, "1"}}) {
    SCOPED_TRACE(signal);
    const auto output = place.path() / "output";
    const int process = startProgram({QUILLET_PROGRAM, "--data", folder, "script", script}, output);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (present() != "1" && std::chrono::steady_clock::now() < end) {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    ASSERT_EQ(present(), "1") << std::ifstream(output).rdbuf();
    kill(process, signal);
    EXPECT_EQ(waitFor(process), status);
    EXPECT_EQ(present(), rows);
  }
}

TEST(Ending, WaitsForNoSilentServer) {
  NEEDS_REAL_SERVERS();
  RealServer server;
  server.addAccount("anna", "anna");
  Station(server, "anna").addYear("A1", 2008);
  LongLine line(server.port());
  std::optional<Station> far;
  far.emplace(line.port(), "anna",
              [](suite::Settings& settings) { settings.set("Server", "AnswerSeconds", "30"); });
  far->practice().environment().yearLocks()->enter("A1", "31032009", "TAB_2",
                                                   YearLocks::Purpose::show);
  line.fallSilent();
  const auto begun = std::chrono::steady_clock::now();
  far.reset();
  EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(15));
}

}  // namespace
}  // namespace quillet::support
