// Which backups are kept, and the one of the day, made while the database works.
#include <unistd.h>

#include "backup/backup_fixture.h"
#include "suite/backup/backup_place.h"
#include "suite/backup/daily_backup.h"
#include "suite/backup/unpacker.h"
#include "suite/clocks.h"

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;
using backup::BackupPlace;
using support::save;
using support::told;

using Days = std::vector<std::string>;

TEST(BackupPlaceTest, KeepsTheLastDaysAndTheLastOfEachMonth) {
  const struct {
    Days days;
    long keptDays, keptMonths;
    Days gone;
  } cases[] = {
      {{}, 14, 12, {}},
      {{"2026-11-20", "2026-11-22", "2026-11-21"}, 2, 0, {"2026-11-20"}},
      {{"2026-11-20", "2026-11-22", "2026-11-21"}, 0, 1, {"2026-11-21", "2026-11-20"}},
      // Days count that have a backup, so that a holiday costs none.
      {{"2025-01-05", "2025-01-06", "2026-11-22"}, 3, 0, {}},
      {{"2026-09-29", "2026-09-30", "2026-10-30", "2026-10-31", "2026-11-01", "2026-11-02"},
       1,
       2,
       {"2026-11-01", "2026-10-30", "2026-09-30", "2026-09-29"}},
      {{"2025-11-30", "2026-11-30"}, 1, 12, {}},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(backup::superfluous(each.days, each.keptDays, each.keptMonths), each.gone);
  }
}

class DailyTest : public support::BackupTest {
 protected:
  void set(const std::string& key, const std::string& value) {
    Settings(folder().settings()).set("Backup", key, value);
  }
  // Works on the database in a child and lets the backup of the day be made meanwhile; returns
  // what went wrong. `disturb` runs before each step.
  std::string day(const std::function<void(Database&, int step)>& disturb = {}) {
    return support::inChild([&] {
      const auto database = Database::openEmbedded(folder().database());
      FixedClock clock;
      clock.set({2026, 11, 22});
      std::string said;
      backup::DailyBackup daily(*database, folder(), clock,
                                [&](const std::string& text) { said += text; });
      std::chrono::milliseconds wait{0};
      // However long a busy machine packs.
      const auto latest = std::chrono::steady_clock::now() + std::chrono::minutes(2);
      for (int step = 0;
           wait < std::chrono::minutes(1) && std::chrono::steady_clock::now() < latest; ++step) {
        if (disturb) disturb(*database, step);
        wait = daily.step();
        if (!said.empty()) daily.step();  // tells no more than it has told
        usleep(wait == std::chrono::milliseconds(200) ? 10'000 : 0);
      }
      return said;
    });
  }
  fs::path today() { return BackupPlace(folder()).dailyFile("2026-11-22"); }
};

TEST_F(DailyTest, IsMadeOnceADayAndPutsOldOnesAway) {
  set("Days", "1");
  set("Months", "1");
  const fs::path place = BackupPlace(folder()).folder();
  const Days others{"practice-2026-11-2.tar.zst",
                    "practice-2026-11-20.tar",
                    "other-2026-11-20.tar.zst",
                    "practice-2026-11-20-101500.tar.zst",
                    "practice-before-upgrade-2026-11-01.tar.zst",
                    "notes.txt"};
  fs::create_directories(place);
  for (const std::string& name : others) std::ofstream(place / name) << "kept";
  fs::create_directories(place / "practice-2026-11-19.tar.zst");
  for (const char* old : {"practice-2026-11-20.tar.zst", "practice-2026-10-31.tar.zst",
                          "practice-2026-11-21.tar.zst.quillet-part"}) {
    std::ofstream(place / old) << "old";
  }
  EXPECT_EQ(day(), "");
  EXPECT_GT(backup::verify(today()), 10'000'000U);
  EXPECT_EQ(filesBeside(today()), static_cast<long>(others.size()) + 2);

  const auto before = fs::last_write_time(today());
  EXPECT_EQ(day(), "");
  EXPECT_EQ(fs::last_write_time(today()), before);
  fs::remove(today());
  set("Days", "0");
  set("Months", "0");
  EXPECT_EQ(day(), "");
  EXPECT_FALSE(fs::exists(today()));
}

// A line is saved at every step: what was packed meanwhile is not kept, and one is made in the end
// that holds the last line, too.
TEST_F(DailyTest, HoldsWhatStoodAtOneMoment) {
  const std::string said = day([&](Database& database, int step) {
    save(database, 1000 + step);
    std::ofstream(temporary.path() / "last") << 1000 + step;
  });
  EXPECT_EQ(said, "");
  int saved = 0;
  std::ifstream(temporary.path() / "last") >> saved;
  backup::restore(today(), other, backup::Present::refuse);
  EXPECT_EQ(ledgersIn(other), std::to_string(saved - 998) + " 1-" + std::to_string(saved));
}

TEST_F(DailyTest, TellsWhyItWasNotMade) {
  set("Folder", (temporary.path() / "disk").string());
  EXPECT_EQ(day(), "Today's backup was not made. The folder " +
                       (temporary.path() / "disk").string() +
                       " for backups is not there. Is its disk connected?");
  EXPECT_FALSE(fs::exists(temporary.path() / "disk"));
  fs::create_directories(temporary.path() / "disk");
  // It is packed when its place goes: only the older ones are not put away.
  const fs::path made = today();
  EXPECT_NE(day([&](Database&, int) {
              if (fs::exists(made.string() + ".quillet-part")) set("Folder", "gone");
            }).find("was made, but"),
            std::string::npos);
  EXPECT_GT(backup::verify(made), 0U);
  EXPECT_EQ(made.parent_path().parent_path(), temporary.path() / "disk");

  set("Folder", folder().documents().string());
  EXPECT_NE(day().find("outside of"), std::string::npos);
  set("Folder", "");
  std::ofstream(folder().root().string() + "-backups") << "a file";
  EXPECT_NE(day().find("cannot be made"), std::string::npos);
}

}  // namespace
}  // namespace quillet::suite
