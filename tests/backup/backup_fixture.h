// A data folder with one ledger, and places for backups of it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "suite/backup/backup.h"
#include "suite/backup/restore.h"
#include "suite/schema.h"
#include "support/child.h"
#include "support/practice.h"

namespace quillet::support {

namespace fs = std::filesystem;

// What the deed throws; "" when it succeeds.
inline std::string told(const std::function<void()>& deed) {
  try {
    deed();
  } catch (const std::exception& error) {
    return error.what();
  }
  return "";
}

inline void save(suite::Database& database, int ledger) {
  const std::string id = std::to_string(ledger);
  database.execute("insert into Mast_Part values(" + id + ",'Ledger " + id + "')");
}

class BackupTest : public ::testing::Test {
 protected:
  // Made once: the tests copy it.
  static void SetUpTestSuite() {
    master = new TemporaryFolder();
    const auto folder = suite::DataFolder::create(master->path() / "made");
    ASSERT_EQ(inChild([&] {
                const auto database = suite::Database::openEmbedded(folder.database());
                suite::completeSchema(*database, 1);
                save(*database, 1);
                return std::string("made");
              }),
              "made");
  }
  static void TearDownTestSuite() { delete master; }

  BackupTest() { fs::create_directories(file.parent_path()); }

  const suite::DataFolder& folder() const { return folder_; }
  // How many ledgers the practice has, and the first and the last of them.
  static std::string ledgersIn(const fs::path& root) {
    return inChild([&] {
      const auto database = suite::Database::openEmbedded(root / "database");
      return database
          ->query(
              "select concat(count(*),' ',min(PartId),'-',max(PartId))"
              " from Mast_Part")
          ->text(0);
    });
  }
  static long filesBeside(const fs::path& file) {
    const fs::directory_iterator files(file.parent_path());
    return std::distance(begin(files), end(files));
  }

  static inline TemporaryFolder* master = nullptr;
  TemporaryFolder temporary;
  fs::path file = temporary.path() / "backups" / "practice.tar.zst";
  fs::path other = temporary.path() / "other";

 private:
  suite::DataFolder folder_ = [&] {
    fs::copy(master->path() / "made", temporary.path() / "practice", fs::copy_options::recursive);
    return suite::DataFolder::open(temporary.path() / "practice" / "");
  }();
};

}  // namespace quillet::support
