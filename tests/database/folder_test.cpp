// The embedded database on its folder: what it does when the folder is new, held by another
// process, not ours, not writable or damaged, and after a process was killed.
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <vector>

#include "database/folder_fixture.h"
#include "suite/backup/restore.h"
#include "suite/private_files.h"
#include "suite/standalone_environment.h"

namespace quillet::suite {
namespace {

// Copied without its file times.
TEST_F(FolderTest, KeepsWhatWasWrittenAndOpensAgain) {
  for (const fs::path& each : {copy(), folder}) EXPECT_EQ(ledgers(each), "Cash");
}

TEST_F(FolderTest, StartsOnlyOnceInAProcess) {
  const std::string second = inChild([&] {
    { const auto first = Database::openEmbedded(folder); }
    return Database::openEmbedded(folder) ? std::string("opened") : std::string();
  });
  EXPECT_TRUE(second.starts_with("error: ")) << second;
}

TEST_F(FolderTest, TellsThatItCannotBeWritten) {
  copy();
  fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                              fs::perms::others_exec);
  fs::permissions(temporary.path(), fs::perms::all);
  const auto before = snapshot(folder);
  const std::string told = inChild([&] {
    if (geteuid() == 0 && seteuid(65534) != 0) return std::string("no other user");
    return Database::openEmbedded(folder) ? std::string("opened") : std::string();
  });
  EXPECT_NE(told.find("cannot be"), std::string::npos) << told;
  EXPECT_NE(told.find(folder.string()), std::string::npos) << told;
  EXPECT_TRUE(snapshot(folder) == before);
}

TEST_F(FolderTest, LeavesForeignFoldersAlone) {
  fs::create_directories(folder / "photos");
  std::ofstream(folder / "letter.txt") << "Dear";
  const auto before = snapshot(folder);
  const std::string told = ledgers(folder);
  EXPECT_NE(told.find(folder.string()), std::string::npos) << told;
  EXPECT_TRUE(snapshot(folder) == before);
}

TEST_F(FolderTest, AFirstStartThatWasCutShortBeginsAgain) {
  fs::create_directories(folder);
  std::ofstream(folder / "making") << "";
  std::ofstream(folder / "ibdata1") << "half";
  EXPECT_EQ(make(folder), "made");
  EXPECT_EQ(ledgers(folder), "Cash");
}

TEST_F(FolderTest, TellsThatItIsDamagedAndLeavesItUntouched) {
  const std::pair<const char*, void (*)(const fs::path& folder)> cases[] = {
      {"data file cut",
       [](const fs::path& f) { fs::resize_file(f / "ibdata1", fs::file_size(f / "ibdata1") / 3); }},
      {"data file empty", [](const fs::path& f) { fs::resize_file(f / "ibdata1", 0); }},
      {"data file garbled at its head",
       [](const fs::path& f) { overwrite(f / "ibdata1", 0, 100000); }},
      {"data file garbled in a table",
       [](const fs::path& f) { overwrite(f / "ibdata1", 5 << 20, 2 << 20); }},
      {"data file missing", [](const fs::path& f) { fs::remove(f / "ibdata1"); }},
      {"log missing", [](const fs::path& f) { fs::remove(f / "ib_logfile0"); }},
      {"log garbled", [](const fs::path& f) { overwrite(f / "ib_logfile0", 0, 20000); }},
      {"log cut", [](const fs::path& f) { fs::resize_file(f / "ib_logfile0", 5000); }},
      {"control file missing", [](const fs::path& f) { fs::remove(f / "aria_log_control"); }},
      {"control file garbled", [](const fs::path& f) { overwrite(f / "aria_log_control", 0, 52); }},
      {"definition garbled",
       [](const fs::path& f) { overwrite(f / "quillet" / "mast_part.frm", 0, 500); }},
      {"definition empty",
       [](const fs::path& f) { fs::resize_file(f / "quillet" / "mast_part.frm", 0); }},
      {"definition missing",
       [](const fs::path& f) { fs::remove(f / "quillet" / "mast_part.frm"); }},
      {"all definitions missing", [](const fs::path& f) { fs::remove_all(f / "quillet"); }},
  };
  for (const auto& [what, damage] : cases) {
    damage(copy());
    const auto before = snapshot(folder);
    const std::string told = ledgers(folder);
    EXPECT_NE(told.find("damaged"), std::string::npos) << what << ": " << told;
    EXPECT_NE(told.find(folder.string()), std::string::npos) << what << ": " << told;
    EXPECT_TRUE(snapshot(folder) == before) << what << " changed the folder";
  }
}

TEST_F(FolderTest, ItsFilesAreTheOwnersAlone) {
  for (const bool made : {true, false}) {
    fs::remove_all(folder);
    if (made) {
      const mode_t mask = umask(0);
      EXPECT_EQ(make(folder), "made");
      umask(mask);
    } else {
      copy();
      for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        fs::permissions(entry.path(), fs::perms::group_read | fs::perms::others_read,
                        fs::perm_options::add);
      }
      fs::permissions(folder, fs::perms::group_all | fs::perms::others_all, fs::perm_options::add);
      EXPECT_EQ(ledgers(folder), "Cash");
    }
    EXPECT_TRUE(isPrivate(folder));
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      EXPECT_TRUE(isPrivate(entry.path())) << entry.path();
    }
  }
}

// Opens a practice and runs a statement there.
std::string practice(const fs::path& folder, const std::string& sql,
                     const StartPolicy& policy = {}) {
  return inChild([&] {
    QueuedDialogs dialogs;
    HeadlessFrontEnd frontEnd(dialogs);
    FixedClock clock;
    Practice opened(DataFolder::open(folder), frontEnd, clock, policy);
    opened.database().execute(sql);
    return std::string("opened");
  });
}

// Leaves an intact database that holds nothing.
void loseTables(const fs::path& folder) {
  inChild([&] {
    Database::openEmbedded(folder)->execute("drop database quillet");
    return std::string();
  });
}

TEST_F(FolderTest, APracticeThatLostSomethingIsNotBegunAnew) {
  const DataFolder made = DataFolder::create(temporary.path() / "practice");
  Settings(made.settings()).set("Suite", "TableCount", "1");
  ASSERT_EQ(practice(made.root(), "insert into Mast_Part values(1,'Cash')"), "opened");
  const std::pair<std::function<void()>, const char*> cases[] = {
      {[&] { fs::remove_all(made.database()); }, "books of the practice are gone"},
      {[&] {
         fs::remove_all(made.database());
         fs::remove(made.keptSettings());
       },
       "books of the practice are gone"},
      {[&] {
         fs::remove_all(made.database());
         fs::remove(made.keptSettings());
         std::ofstream(made.settings()) << Settings::firstLine << "\n[Suite]\nTableCount=1\n";
       },
       "books of the practice are gone"},
      {[&] { loseTables(made.database()); }, "books of the practice are gone"},
      {[&] { fs::remove(made.settings()); }, "settings of the practice are gone"},
      {[&] { Settings(made.settings()).set("Suite", "FolderFormat", "99"); }, "newer Quillet"},
  };
  const fs::path aside = temporary.path() / "aside";
  fs::copy(made.root(), aside, fs::copy_options::recursive);
  for (const auto& [lose, told] : cases) {
    lose();
    const std::string said = practice(made.root(), "do 1");
    EXPECT_NE(said.find(told), std::string::npos) << said;
    fs::remove_all(made.root());
    fs::copy(aside, made.root(), fs::copy_options::recursive);
  }
  std::ofstream(made.database() / "making") << "";
  EXPECT_EQ(practice(made.root(), "do 1"), "opened") << "a mark that came back";
  EXPECT_EQ(ledgers(made.database()), "Cash");
  fs::remove(made.settings());
  StartPolicy policy;
  policy.putSettingsBack = [](const std::string&) { return true; };
  EXPECT_EQ(
      practice(made.root(), "update SuiteMisc set Value='99' where Name='FolderFormat'", policy),
      "opened");
  EXPECT_EQ(Settings(made.settings()).tableCount(), 1);
  const std::string newer = practice(made.root(), "do 1");
  EXPECT_NE(newer.find("newer Quillet"), std::string::npos) << newer;
}

TEST_F(FolderTest, AnOlderPracticeIsBackedUpBeforeItIsBroughtUp) {
  const DataFolder made = DataFolder::create(temporary.path() / "practice");
  Settings(made.settings()).set("Suite", "TableCount", "1");
  ASSERT_EQ(practice(made.root(), "insert into Mast_Part values(1,'Cash')"), "opened");
  const std::string older = "delete from SuiteMisc where Name='FolderFormat'";
  ASSERT_EQ(practice(made.root(), older), "opened");
  const fs::path place = temporary.path() / "practice-backups";
  EXPECT_FALSE(fs::exists(place)) << "a new one";
  std::ofstream(place) << "in the way";
  const std::string failed = practice(made.root(), "do 1");
  EXPECT_NE(failed.find("the backup before"), std::string::npos) << failed;
  fs::remove(place);
  EXPECT_EQ(practice(made.root(), "do 1"), "opened");
  EXPECT_EQ(practice(made.root(), "do 1"), "opened");
  ASSERT_EQ(std::distance(fs::directory_iterator(place), {}), 1);
  const fs::path archive = fs::directory_iterator(place)->path();
  backup::restore(archive, temporary.path() / "before", backup::Present::refuse);
  EXPECT_EQ(ledgers(temporary.path() / "before" / "database"), "Cash");
}

// A child saves lines one by one and tells each as soon as it is acknowledged; it is killed in the
// middle of that. What it told must be there, line for line.
TEST_F(FolderTest, KeepsEverythingAcknowledgedWhenKilled) {
  copy();
  const std::string table = "TAB_" + tableSuffix(1);
  int told = 0;
  for (int round = 0; round < 4; ++round) {
    support::Reporting saving([&](const support::Reporting::Tell& tell) {
      const auto database = Database::openEmbedded(folder);
      for (int id = told + 1;; ++id) {
        const std::string number = std::to_string(id);
        database->execute("insert into " + table + " values(" + number + ",'C1',1,1," + number +
                          ".5,1)");
        database->execute("flush tables");
        tell(number);
      }
    });
    for (int i = 0; i < 20 + 17 * round; ++i) {
      const std::string line = saving.next();
      ASSERT_FALSE(line.empty());
      told = std::stoi(line);
    }
    const std::string rest = saving.kill();
    // The last whole line counts too.
    const std::size_t end = rest.rfind('\n');
    if (end != std::string::npos) {
      const std::size_t begin = end == 0 ? std::string::npos : rest.rfind('\n', end - 1);
      told = std::stoi(rest.substr(begin == std::string::npos ? 0 : begin + 1));
    }
    const std::string found = inChild([&] {
      const auto database = Database::openEmbedded(folder);
      const auto counted = database->query("select count(distinct srno) from " + table +
                                           " where amt=srno+0.5 and srno<=" + std::to_string(told));
      // A line that was saved but not told any more does not count, either way.
      database->execute("delete from " + table + " where srno>" + std::to_string(told));
      return counted->text(0);
    });
    ASSERT_EQ(found, std::to_string(told)) << "round " << round;
  }
}

// Killed while the tables are made, the folder opens and is whole at the next start.
TEST_F(FolderTest, SurvivesBeingKilledWhileItsTablesAreMade) {
  for (const int after : {1, 20, 40}) {
    fs::remove_all(folder);
    support::Reporting making([&](const support::Reporting::Tell& tell) {
      const auto database = Database::openEmbedded(folder);
      completeSchema(*database, 1, [&](long done, long) {
        tell(std::to_string(done));
        if (done == after) pause();
      });
      tell("all");
      pause();
    });
    std::string done = making.next();
    while (!done.empty() && done != "all" && done != std::to_string(after)) done = making.next();
    ASSERT_EQ(done, std::to_string(after));
    making.kill();
    EXPECT_EQ(make(folder), "made");
    EXPECT_EQ(ledgers(folder), "Cash") << "killed after " << after << " tables";
  }
}

}  // namespace
}  // namespace quillet::suite
