// Settings and the data folder.
#include "suite/settings.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>

#include "suite/data_folder.h"
#include "suite/kept_settings.h"
#include "suite/private_files.h"
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
  settings.set("Server", "Host", "db.office, db2.office:3308");
  settings.set("Server", "Port", "3307");
  EXPECT_EQ(serverIn(settings).value().url(),
            "mariadb://practice@db.office:3308,db2.office:3308/quillet");
  const ServerAddress other =
      parseServerUrl("mariadb://a%40b@[::1],c:1/d?ca=/x%20y&password-file=/p&answer-seconds=5");
  keepServer(settings, other);
  EXPECT_EQ(serverIn(Settings(file)), other);
}

TEST_F(SettingsTest, AFailedWriteChangesNothing) {
  Settings settings(file);
  settings.set("A", "key", "old");
  fs::create_directory(file.string() + ".new");  // stands where the new file would be written
  EXPECT_THROW(settings.set("A", "key", "new"), std::runtime_error);
  EXPECT_EQ(settings.get("A", "key"), "old");
  EXPECT_EQ(Settings(file).get("A", "key"), "old");
}

TEST_F(SettingsTest, TellsWhatWasLost) {
  const fs::path data = folder.path() / "data";
  const DataFolder made = DataFolder::create(data);
  const std::string first = std::string(Settings::firstLine) + '\n';
  const std::string last = std::string(Settings::lastLine) + '\n';
  const std::string server = "[Server]\nHost=db.office\n";
  // What the settings and those kept hold; "-" for no file.
  struct Case {
    std::string settings, kept;
    const char* told;
  };
  const Case cases[] = {
      {first + last, first + last, ""},
      {first, "-", ""},  // of an earlier version
      {first + "[A]\nb=c\n" + last + "[Added]\nby=hand\n", first + last, ""},
      {first + server + last, first + last, ""},  // the books move to a server
      {"-", "-", "there is no file"},
      {"-", first + last, "there is no file"},
      {"", first + last, "is empty"},
      {"; Quil", first + last, "does not begin with"},
      {first + "[Sui", first + last, "cut off"},
      {first + last, first + server + last, "on a server (db.office, database quillet)"},
      {first + "[Server]\nPort=1\n" + last, first + server + last, "on a server"},
  };
  for (const auto& [settings, kept, told] : cases) {
    SCOPED_TRACE(settings + " | " + kept);
    for (const auto& [path, content] :
         {std::pair{made.settings(), settings}, {made.keptSettings(), kept}}) {
      fs::remove(path);
      if (content != "-") put(path, content);
    }
    const KeptSettings lost(made);
    EXPECT_EQ(lost.loss().empty(), *told == '\0') << lost.loss();
    EXPECT_NE(lost.loss().find(told), std::string::npos) << lost.loss();
    if (*told == '\0' || !lost.exist()) continue;
    lost.putBack();
    EXPECT_EQ(KeptSettings(made).loss(), "");
    EXPECT_EQ(serverIn(Settings(made.settings())).has_value(), kept.find("Host") != kept.npos);
  }
  fs::remove(made.settings());
  fs::create_symlink(made.settings(), made.settings());
  const KeptSettings beside(made);
  EXPECT_TRUE(beside.exist());
  EXPECT_FALSE(beside.areOffered()) << "it may be there";
  EXPECT_NE(beside.loss().find("cannot be read"), std::string::npos) << beside.loss();
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

TEST_F(DataFolderTest, IsItsOwnersAlone) {
  const mode_t mask = umask(0);
  const DataFolder folder = DataFolder::create(path / "new");
  put(folder.program() / "TalLog.log", "");
  put(folder.documents() / "C1" / "report.pdf", "");
  fs::permissions(folder.root(), fs::perms::all);
  DataFolder::open(folder.root());
  umask(mask);
  EXPECT_TRUE(isPrivate(folder.root()));
  EXPECT_FALSE(isPrivate(path)) << "not ours";
  for (const auto& entry : fs::recursive_directory_iterator(folder.root())) {
    EXPECT_TRUE(isPrivate(entry.path())) << entry.path();
  }
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
