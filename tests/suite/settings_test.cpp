// Settings and the data folder.
#include "suite/settings.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "suite/data_folder.h"
#include "suite/server_settings.h"
#include "support/practice.h"

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

void put(const fs::path& file, const std::string& content) {
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << content;
}

class SettingsTest : public ::testing::Test {
 protected:
  support::TemporaryFolder folder;
  fs::path file = folder.path() / "settings.ini";
};

TEST_F(SettingsTest, AnyTextSurvivesTheFile) {
  const std::string awkward[] = {
      "",    " ",       "plain",       "a=b",          "=",      "line\nbreak\r\nand more",
      "\\",  "\\n",     "trailing \\", "  blanks  ",   "; note", "[section]",
      "]",   "\ttab\t", "\"quoted\"",  "अंश & Söhne €", "# hash", "a\\ ",
      "\\ ", "\r",      "\n",          "=\\=\\\\=",
  };
  {
    Settings settings(file);
    for (const std::string& text : awkward) {
      settings.set("Values", "k" + text, text);
      settings.set("S" + text, "key", text);
    }
  }
  const Settings again(file);
  for (const std::string& text : awkward) {
    EXPECT_EQ(again.get("Values", "k" + text, "missing"), text) << "as value and key";
    EXPECT_EQ(again.get("S" + text, "key", "missing"), text) << "in a section of that name";
  }
}

TEST_F(SettingsTest, ReadsWhatAHandWrote) {
  put(file,
      "; Quillet data folder\r\n\r\n[Suite]\r\n  CompanyName = Rao & Co.  \r\nnonsense\n"
      "TableCount=12\n[\n=\n");
  const Settings settings(file);
  EXPECT_EQ(settings.companyName(), "Rao & Co.");
  EXPECT_EQ(settings.tableCount(), 12);
  EXPECT_EQ(Settings(folder.path() / "none").tableCount(), std::nullopt);
}

TEST_F(SettingsTest, NamesAServerOnlyWhenAsked) {
  Settings settings(file);
  EXPECT_FALSE(serverIn(settings).has_value());
  settings.set("Server", "User", "practice");
  EXPECT_FALSE(serverIn(settings).has_value());
  settings.set("Server", "Host", "db.office");
  settings.set("Server", "Port", "3307");
  const auto server = serverIn(settings);
  ASSERT_TRUE(server.has_value());
  EXPECT_EQ(server->host + ' ' + server->user + ' ' + server->schema, "db.office practice quillet");
  EXPECT_EQ(server->port, 3307U);
}

TEST_F(SettingsTest, AFailedWriteChangesNothing) {
  Settings settings(file);
  settings.set("A", "key", "old");
  fs::create_directory(file.string() + ".new");  // stands where the new file would be written
  EXPECT_THROW(settings.set("A", "key", "new"), std::runtime_error);
  EXPECT_EQ(settings.get("A", "key"), "old");
  EXPECT_EQ(Settings(file).get("A", "key"), "old");
}

class DataFolderTest : public ::testing::Test {
 protected:
  support::TemporaryFolder temporary;
  fs::path path = temporary.path() / "data";
};

TEST_F(DataFolderTest, OpensWhatItCreated) {
  const DataFolder made = DataFolder::create(path);
  const DataFolder opened = DataFolder::open(path / ".." / "data");
  EXPECT_EQ(opened.root(), made.root());
  EXPECT_TRUE(fs::is_directory(opened.program() / "Databases"));
  EXPECT_TRUE(fs::is_directory(opened.documents()));
  EXPECT_EQ(Settings(opened.settings()).tableCount(), 40);
}

TEST_F(DataFolderTest, ReplacingKeepsForeignFilesAndNeverFollowsLinks) {
  const fs::path outside = temporary.path() / "outside";
  put(outside / "precious.txt", "mine");
  const DataFolder folder = DataFolder::create(path);
  put(folder.documents() / "files" / "old.txt", "old");
  put(path / "notes.txt", "put here by hand");
  fs::create_directory_symlink(outside, folder.documents() / "link");
  fs::create_directory_symlink(outside, folder.database());
  Settings(folder.settings()).set("Suite", "CompanyName", "Old");

  DataFolder::create(path, DataFolder::Existing::replace);
  EXPECT_EQ(contentOf(outside / "precious.txt"), "mine");
  EXPECT_EQ(contentOf(path / "notes.txt"), "put here by hand");
  EXPECT_FALSE(fs::exists(folder.documents() / "files"));
  EXPECT_NE(Settings(folder.settings()).companyName(), "Old");
}

TEST_F(DataFolderTest, TheStandardFolderIsInTheUsersDataHome) {
  setenv("XDG_DATA_HOME", "/somewhere/share", 1);
  EXPECT_EQ(DataFolder::standard(), "/somewhere/share/quillet");
  setenv("XDG_DATA_HOME", "relative", 1);
  setenv("HOME", "/home/somebody", 1);
  EXPECT_EQ(DataFolder::standard(), "/home/somebody/.local/share/quillet");
  unsetenv("XDG_DATA_HOME");
  EXPECT_EQ(DataFolder::standard(), "/home/somebody/.local/share/quillet");
}

}  // namespace
}  // namespace quillet::suite
