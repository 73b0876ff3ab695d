#include "suite/practice_start.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "suite/backup/backup.h"
#include "suite/backup/backup_place.h"
#include "suite/copy/copy_practice.h"
#include "suite/folder_format.h"
#include "suite/kept_settings.h"
#include "suite/lost_tables.h"
#include "suite/server_password.h"
#include "suite/server_settings.h"

namespace quillet::suite {
namespace {

// Shown from the first time that there is something to wait for.
class Waiting {
 public:
  explicit Waiting(FrontEnd& frontEnd) : frontEnd_(frontEnd) {}
  ~Waiting() {
    if (shown_) frontEnd_.showProgress(false);
  }
  Waiting(const Waiting&) = delete;
  Waiting& operator=(const Waiting&) = delete;

  void step() {
    if (!shown_) frontEnd_.showProgress(true);
    shown_ = true;
    frontEnd_.progressText("Examining the database...");
  }

 private:
  FrontEnd& frontEnd_;
  bool shown_ = false;
};

}  // namespace

std::unique_ptr<Database> openPractice(const DataFolder& folder, FrontEnd& frontEnd,
                                       const StartPolicy& policy) {
  const KeptSettings kept(folder);
  if (const std::string loss = kept.loss(); !loss.empty()) {
    if (!kept.areOffered() || !policy.putSettingsBack(loss)) {
      throw std::runtime_error(loss + ' ' + kept.remedy());
    }
    kept.putBack();
  }
  const Settings settings(folder.settings());
  folder_format::refuseNewer(settings, folder.root());
  std::unique_ptr<Database> database;
  if (const auto server = serverIn(settings)) {
    refusePassword(settings);
    const auto connect = [&](const std::string& password) {
      database = Database::connect({*server, password, policy.mayMakeBooks});
    };
    withPassword(*server, policy.askPassword, connect, policy.mayKeepPassword);
  } else {
    ExaminationPolicy examination = policy.examination;
    examination.mayBeNew = !kept.exist() && settings.areUnused();
    Waiting waiting(frontEnd);
    examination.working = [&] { waiting.step(); };
    database = Database::openEmbedded(folder.database(), examination);
  }
  refuseHalfCopied(*database);
  folder_format::refuseNewer(*database, folder);
  return database;
}

void noticeLostTables(Database& database, const DataFolder& folder, const StartPolicy& policy) {
  const std::vector<std::string> lost = lostTables(database);
  if (lost.empty()) return;
  constexpr std::size_t named = 6;
  std::string text = "Tables of the practice in " + folder.root().string() + " are gone:";
  for (std::size_t i = 0; i < std::min(named, lost.size()); ++i) text += ' ' + lost[i];
  if (lost.size() > named) text += " and " + std::to_string(lost.size() - named) + " more";
  text += ". What they held is not in the books any more. Restore a backup.";
  if (!policy.makeLostTables(text)) throw std::runtime_error(text + " Nothing was changed.");
}

void backUpOlder(Database& database, const DataFolder& folder, Clock& clock) {
  const bool onServer = database.schemaFolder().empty();
  if (onServer || !folder_format::isOlder(database)) return;
  try {
    const backup::BackupPlace place(folder);
    place.prepare();
    backup::write(database, folder, place.fileBefore("update", clock.now()));
  } catch (const std::exception& error) {
    throw std::runtime_error("The practice in " + folder.root().string() +
                             " was made by an earlier Quillet, and the backup before it is brought "
                             "up to this one failed: " +
                             error.what() +
                             " Nothing was changed. Where that folder cannot be written, name"
                             " another one for backups in settings.ini, as Folder in the section"
                             " [Backup].");
  }
}

void noteStart(Database& database, const DataFolder& folder, Settings& settings) {
  folder_format::write(database, settings);
  KeptSettings(folder).keep(settings);
}

}  // namespace quillet::suite
