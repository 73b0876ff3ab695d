// Bringing backups back: into which folders, and what a kill leaves.
#include <unistd.h>

#include "backup/backup_fixture.h"
#include "suite/folder_lock.h"
#include "suite/settings.h"

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;
using backup::Present;
using backup::restore;
using support::save;
using support::told;

class RestoreTest : public support::BackupTest {
 protected:
  // The backup has one ledger, the practice two.
  RestoreTest() {
    backup::write(folder(), file);
    support::inChild([&] {
      save(*Database::openEmbedded(folder().database()), 2);
      return std::string();
    });
  }
};

TEST_F(RestoreTest, TakesANewOrAnEmptyFolderAndReplacesAPracticeOnlyWhenTold) {
  EXPECT_EQ(restore(file, other, Present::refuse), "");
  EXPECT_EQ(ledgersIn(other), "1 1-1");

  const fs::path empty = temporary.path() / "empty", foreign = temporary.path() / "foreign";
  fs::create_directories(empty);
  EXPECT_EQ(restore(file, empty / "", Present::refuse), "");
  EXPECT_EQ(ledgersIn(empty), "1 1-1");

  fs::create_directories(foreign / "database");
  std::ofstream(foreign / "letter.txt") << "Dear";
  const fs::path root = folder().root();
  EXPECT_NE(told([&] { restore(file, foreign, Present::setAside); }).find("other files"),
            std::string::npos);
  EXPECT_NE(told([&] { restore(file, root, Present::refuse); }).find("--force"), std::string::npos);
  {
    const FolderLock working(folder().database());
    EXPECT_NE(told([&] { restore(file, root, Present::setAside); }).find("in use"),
              std::string::npos);
  }
  Settings(folder().settings()).set("Server", "Host", "server");
  EXPECT_NE(told([&] { restore(file, root, Present::setAside); }).find("database server"),
            std::string::npos);
  Settings(folder().settings()).set("Server", "Host", "");
  EXPECT_EQ(ledgersIn(root), "2 1-2");

  const fs::path kept = restore(file, root, Present::setAside);
  EXPECT_EQ(ledgersIn(root), "1 1-1");
  EXPECT_EQ(ledgersIn(kept), "2 1-2");
  // Also over one whose settings are lost.
  fs::remove(root / "settings.ini");
  restore(file, root, Present::setAside);
  EXPECT_EQ(ledgersIn(root), "1 1-1");
}

TEST_F(RestoreTest, RefusesADatabaseThatIsDamagedOrOfANewerProgram) {
  Settings(folder().settings()).set("Suite", "FolderFormat", "99");
  backup::write(folder(), file);
  EXPECT_NE(told([&] { restore(file, other, Present::refuse); }).find("a newer Quillet"),
            std::string::npos);
  Settings(folder().settings()).set("Suite", "FolderFormat", "");
  fs::resize_file(folder().database() / "ibdata1", 5 << 20);
  backup::write(folder(), file);
  EXPECT_NE(told([&] { restore(file, other, Present::refuse); }).find("is damaged"),
            std::string::npos);
  EXPECT_FALSE(fs::exists(other));
  EXPECT_FALSE(fs::exists(other.string() + ".restoring"));
}

// Whenever it is killed, the folder opens with the old books or the new ones; a repetition
// succeeds.
TEST_F(RestoreTest, LeavesTheOldOrTheNewWhenItIsKilled) {
  int isNew = 0;
  for (int delay = 0; delay < 600'000 && isNew == 0; delay += 40'000) {
    support::Reporting restoring([&](const support::Reporting::Tell&) {
      restore(file, folder().root(), Present::setAside);
    });
    usleep(delay);
    restoring.kill();
    const std::string found = ledgersIn(folder().root());
    isNew += found == "1 1-1";
    ASSERT_TRUE(found == "2 1-2" || found == "1 1-1") << delay << ": " << found;
  }
  restore(file, folder().root(), Present::setAside);
  EXPECT_EQ(ledgersIn(folder().root()), "1 1-1");
  EXPECT_FALSE(fs::exists(folder().root().string() + ".restoring"));
}

TEST_F(RestoreTest, IsCompletedWhereTwoFoldersCannotBeExchanged) {
  restore(file, other, Present::refuse);
  fs::rename(other, folder().root().string() + ".restoring");
  backup::finishRestore(folder().root());
  EXPECT_EQ(ledgersIn(folder().root()), "2 1-2");
  fs::rename(folder().root(), other);
  backup::finishRestore(folder().root() / "");
  EXPECT_EQ(ledgersIn(folder().root()), "1 1-1");
}

}  // namespace
}  // namespace quillet::suite
