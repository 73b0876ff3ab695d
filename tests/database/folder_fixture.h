// A folder with an embedded database, made once and copied for each test. Every opening happens in
// a child process.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <utility>

#include "suite/database.h"
#include "suite/schema.h"
#include "support/child.h"
#include "support/practice.h"

namespace quillet::suite {

namespace fs = std::filesystem;
using support::inChild;

// Every file with its size and the time of its last change.
using Snapshot = std::map<std::string, std::pair<std::uintmax_t, fs::file_time_type>>;

inline Snapshot snapshot(const fs::path& folder) {
  Snapshot files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_directory()) continue;
    files[entry.path().string()] = {entry.file_size(), entry.last_write_time()};
  }
  return files;
}

inline void overwrite(const fs::path& file, std::streamoff at, std::size_t bytes) {
  std::string noise;
  for (std::size_t i = 0; i < bytes; ++i) noise += static_cast<char>(i * 131 + 7);
  std::fstream stream(file, std::ios::binary | std::ios::in | std::ios::out);
  stream.seekp(at).write(noise.data(), static_cast<std::streamsize>(noise.size()));
}

inline std::string make(const fs::path& folder) {
  return inChild([&] {
    const auto database = Database::openEmbedded(folder);
    completeSchema(*database, 1);
    database->execute("insert into Mast_Part values(1,'Cash')");
    return std::string("made");
  });
}

inline std::string ledgers(const fs::path& folder, const ExaminationPolicy& policy = {}) {
  return inChild([&] {
    const auto database = Database::openEmbedded(folder, policy);
    return database->query("select group_concat(Particular) from Mast_Part")->text(0);
  });
}

class FolderTest : public ::testing::Test {
 protected:
  // Made once: the tests copy it.
  static void SetUpTestSuite() {
    master = new support::TemporaryFolder();
    ASSERT_EQ(make(master->path() / "made"), "made");
  }
  static void TearDownTestSuite() { delete master; }

  const fs::path& copy() {
    fs::remove_all(folder);
    fs::copy(master->path() / "made", folder, fs::copy_options::recursive);
    return folder;
  }

  static inline support::TemporaryFolder* master = nullptr;
  support::TemporaryFolder temporary;
  fs::path folder = temporary.path() / "database";
};

}  // namespace quillet::suite
