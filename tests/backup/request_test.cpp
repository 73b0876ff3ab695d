// Asking the running program for a backup.
#include "suite/backup/request.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>

#include "support/child.h"
#include "support/practice.h"

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;
using backup::requestBackup;
using backup::RequestSocket;
using Work = std::function<void(const fs::path&)>;

// What the asker in a child is told while we are the running program.
std::string asked(const fs::path& folder, const Work& work) {
  RequestSocket socket(folder);
  struct stat state {};
  EXPECT_EQ(lstat((folder / "socket").c_str(), &state), 0);
  EXPECT_EQ(state.st_mode & 0777U, 0600U);
  support::Reporting asking([&](const support::Reporting::Tell& tell) {
    tell(support::inChild([&] {
      const std::string name(3000, 'x');
      return requestBackup(folder, "/" + name, {std::chrono::seconds(1), std::chrono::seconds(1)})
                 ? std::string("made")
                 : std::string("nobody");
    }));
  });
  pollfd waiting{socket.descriptor(), POLLIN, 0};
  EXPECT_EQ(poll(&waiting, 1, 5000), 1);
  if (work) socket.answer(work);
  const std::string reply = asking.next();
  // Whoever gave up is not served any more.
  socket.answer([](const fs::path&) { ADD_FAILURE(); });
  return reply;
}

TEST(RequestTest, IsAnsweredInAFolderOfAnyLength) {
  const support::TemporaryFolder temporary;
  for (const fs::path& folder :
       {temporary.path(), temporary.path() / std::string(200, 'a') / std::string(200, 'b')}) {
    fs::create_directories(folder);
    EXPECT_FALSE(requestBackup(folder, "/file"));
    fs::path file;
    EXPECT_EQ(asked(folder, [&](const fs::path& named) { file = named; }), "made");
    EXPECT_EQ(file.string().size(), 3001U);
    EXPECT_FALSE(fs::exists(folder / "socket"));
  }
  const fs::path& folder = temporary.path();
  EXPECT_EQ(asked(folder, [](const fs::path&) { throw std::runtime_error("The disk is full."); }),
            "error: The disk is full.");
  EXPECT_NE(asked(folder, {}).find("does not answer"), std::string::npos);
  EXPECT_NE(asked(folder, [](const fs::path&) { sleep(2); }).find("does not answer"),
            std::string::npos);
  // What a killed program leaves.
  support::inChild([&] {
    new RequestSocket(folder);
    return std::string();
  });
  EXPECT_FALSE(requestBackup(folder, "/file"));
  EXPECT_EQ(asked(folder, [](const fs::path&) {}), "made");
}

}  // namespace
}  // namespace quillet::suite
