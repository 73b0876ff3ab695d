// Backups as files: what is written, read back by other programs and by us, what failing leaves,
// and archives that somebody else made.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <map>

#include "backup/backup_fixture.h"
#include "backup/tar.h"
#include "suite/backup/unpacker.h"

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;
using backup::restore;
using support::save;
using support::told;

class ArchiveTest : public support::BackupTest {
 protected:
  std::string verified(const fs::path& archive) {
    return told([&] { backup::verify(archive); });
  }
};

// Rows were deleted just before, which the server cleans up by itself, one is saved while the data
// file is read for the first time, and others afterwards: the backup holds all that stood when it
// was finished.
TEST_F(ArchiveTest, IsMadeWhileTheDatabaseWorks) {
  std::ofstream(folder().documents() / "Balance \xE0\xA4\x95 'x'.txt") << "a report";
  fs::create_symlink("/etc/passwd", folder().documents() / "link");
  support::Reporting working([&](const support::Reporting::Tell& tell) {
    umask(0);
    const auto database = Database::openEmbedded(folder().database());
    for (int id = 2; id < 400; ++id) save(*database, id);
    database->execute("delete from Mast_Part where PartId % 2=0");
    bool disturbed = false;
    const auto disturb = [&](std::uintmax_t done, std::uintmax_t total) {
      if (!disturbed && done > total / 2) save(*database, 400);
      disturbed = disturbed || done > total / 2;
    };
    tell(told([&] { backup::write(*database, folder(), file, disturb); }));
    for (int id = 1000;; ++id) save(*database, id);
  });
  ASSERT_EQ(working.next(), "");
  working.kill();

  EXPECT_EQ(std::system(("zstd -q -t '" + file.string() + "'").c_str()), 0);
  EXPECT_EQ(
      std::system(
          ("tar --zstd -tf '" + file.string() + "' | grep -qx documents/Balance.*txt").c_str()),
      0);
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(restore(file, other, backup::Present::refuse), "");
  EXPECT_EQ(ledgersIn(other), "201 1-400");
  EXPECT_TRUE(fs::exists(other / "documents" / "Balance \xE0\xA4\x95 'x'.txt"));
  EXPECT_FALSE(fs::exists(fs::symlink_status(other / "documents" / "link")));
}

TEST_F(ArchiveTest, IsRefusedInsideOfATransaction) {
  EXPECT_NE(support::inChild([&] {
              const auto database = Database::openEmbedded(folder().database());
              database->execute("start transaction");
              save(*database, 2);
              backup::write(*database, folder(), file);
              return std::string("written");
            }).find("in the middle of a change"),
            std::string::npos);
  EXPECT_FALSE(fs::exists(file));
}

// Each of these cannot be restored: it is told, and the older backup stays.
TEST_F(ArchiveTest, IsMadeOfAWholePracticeOnly) {
  backup::write(folder(), file);
  const auto before = fs::last_write_time(file);
  const fs::path database = folder().database(), elsewhere = temporary.path() / "elsewhere";
  const fs::path kept = temporary.path() / "kept";
  const std::pair<fs::path, std::function<void(const fs::path&)>> faults[] = {
      {database, [](const fs::path& at) { fs::create_directory(at); }},
      {database, [](const fs::path&) {}},
      {database / "ibdata1", [](const fs::path&) {}},
      {database / "ib_logfile0", [&](const fs::path& at) { fs::create_symlink(kept, at); }},
      {folder().settings(), [](const fs::path& at) { std::ofstream{at}; }},
      {folder().settings(), [](const fs::path& at) { std::ofstream(at) << "[Other]\n"; }},
  };
  for (const auto& [place, spoil] : faults) {
    fs::rename(place, kept);
    spoil(place);
    EXPECT_NE(told([&] { backup::write(folder(), file); }), "") << place;
    EXPECT_EQ(fs::last_write_time(file), before) << place;
    fs::remove(place);
    fs::rename(kept, place);
  }
  fs::rename(database, elsewhere);
  fs::create_directory_symlink(elsewhere, database);
  EXPECT_NE(told([&] { backup::write(folder(), elsewhere / "b.tar.zst"); }), "");
  backup::write(folder(), file);
  EXPECT_EQ(restore(file, other, backup::Present::refuse), "");
  EXPECT_EQ(ledgersIn(other), "1 1-1");
}

// The older one stays whole, and no half one stays.
TEST_F(ArchiveTest, TellsThatTheDiskIsFull) {
  backup::write(folder(), file);
  const auto before = fs::last_write_time(file);
  for (const rlim_t most : {0UL, 100UL, fs::file_size(file) / 2, fs::file_size(file) - 1}) {
    EXPECT_NE(support::inChild([&] {
                std::signal(SIGXFSZ, SIG_IGN);
                const rlimit limit{most, most};
                setrlimit(RLIMIT_FSIZE, &limit);
                backup::write(folder(), file);
                return std::string("written");
              }).find("practice.tar.zst cannot be written: File too large"),
              std::string::npos)
        << most;
    EXPECT_EQ(fs::last_write_time(file), before);
    EXPECT_EQ(filesBeside(file), 1);
  }
  EXPECT_EQ(verified(file), "");
}

TEST_F(ArchiveTest, IsWrittenOverNothingButAnOlderOne) {
  const fs::path foreign = temporary.path() / "accounts.xls", link = temporary.path() / "link";
  std::ofstream(foreign) << "figures";
  backup::write(folder(), file);
  backup::write(folder(), file);
  fs::create_symlink(file, link);
  const std::pair<fs::path, const char*> cases[] = {
      {foreign, "is not a backup"},
      {folder().documents() / "b.tar.zst", "outside of"},
      {temporary.path() / "no" / "folder" / "b.tar.zst", "No such file or directory"},
      {other, "is not a backup"},
      {link, "is not an ordinary file"},
      {"/dev/full", "is not a backup"},
  };
  fs::create_directories(other);
  for (const auto& [place, message] : cases) {
    const std::string text = told([&, &at = place] { backup::write(folder(), at); });
    EXPECT_NE(text.find(message), std::string::npos) << place << ": " << text;
  }
  EXPECT_EQ(fs::file_size(foreign), 7U);
}

TEST_F(ArchiveTest, IsRefusedWhenItIsCutOrGarbled) {
  backup::write(folder(), file);
  const std::uintmax_t whole = fs::file_size(file);
  for (const std::uintmax_t left : {std::uintmax_t{0}, std::uintmax_t{3}, whole / 3, whole - 1}) {
    fs::copy_file(file, other, fs::copy_options::overwrite_existing);
    fs::resize_file(other, left);
    EXPECT_NE(verified(other), "") << left;
  }
  for (const std::uintmax_t at : {whole / 9, whole / 2, whole - 20}) {
    fs::copy_file(file, other, fs::copy_options::overwrite_existing);
    std::fstream(other, std::ios::in | std::ios::out).seekp(static_cast<long>(at)) << "garbled";
    EXPECT_NE(verified(other).find("damaged"), std::string::npos) << at;
  }
}

// Each is a backup but for one entry.
TEST_F(ArchiveTest, IsRefusedWhenSomebodyElseMadeIt) {
  const support::TarEntry settings{"settings.ini", "; Quillet data folder\n"};
  const support::TarEntry cases[] = {
      {"../outside", "x"},
      {"database/../../outside", "x"},
      {"/tmp/outside", "x"},
      {"documents/link", "", '2', "/etc"},
      {"documents/hard", "", '1', "settings.ini"},
      {"documents", "", '2', "/etc"},
      {"documents/device", "", '3'},
      {"settings.ini/x", "x"},
      {".profile", "x"},
      {"database", "x"},
      {"", "x"},
      {"settings.ini", "; Quillet data folder\nagain"},
      {"documents/huge", "", '0', "", 077777777777},
  };
  for (const support::TarEntry& evil : cases) {
    support::packByHand(file, {settings, {"database/ibdata1", "x"}, evil});
    EXPECT_NE(told([&] { restore(file, other, backup::Present::refuse); }), "") << evil.name;
    EXPECT_FALSE(fs::exists(other)) << evil.name;
    EXPECT_EQ(filesBeside(file), 1) << evil.name;
  }
  const std::vector<support::TarEntry> foreign[] = {
      {}, {{"letter.txt", "Dear"}}, {{"settings.ini", "[Other]\n"}}, {settings}};
  for (const auto& entries : foreign) {
    support::packByHand(file, entries);
    EXPECT_NE(verified(file), "");
  }
}

}  // namespace
}  // namespace quillet::suite
