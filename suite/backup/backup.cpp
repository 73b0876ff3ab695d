#include "suite/backup/backup.h"

#include <stdexcept>
#include <string>

#include "suite/backup/archive_reader.h"
#include "suite/backup/quiet_state.h"
#include "suite/server_settings.h"

namespace quillet::suite::backup {
namespace {

namespace fs = std::filesystem;

constexpr int attempts = 10;

bool isBackup(const fs::path& file) {
  try {
    return ArchiveReader(file).next().has_value();
  } catch (const std::runtime_error&) {
    return false;
  }
}

bool isBelow(const fs::path& path, const fs::path& folder) {
  const fs::path way = fs::weakly_canonical(path).lexically_relative(fs::weakly_canonical(folder));
  return !way.empty() && *way.begin() != "..";
}

}  // namespace

void checkPlace(const DataFolder& folder, const fs::path& file) {
  // A part may be a link to elsewhere.
  for (const fs::path& own :
       {folder.root(), folder.database(), folder.program(), folder.documents()}) {
    if (!isBelow(file, own)) continue;
    throw std::runtime_error(
        "A backup in the data folder would be lost with it. Choose a place outside of " +
        own.string() + ".");
  }
  if (fs::exists(fs::symlink_status(file)) && !(fs::is_regular_file(file) && isBackup(file))) {
    throw std::runtime_error(
        file.string() + " is there and is not a backup. Nothing was changed; choose another name.");
  }
  refuseServer(folder.settings(), "Back them up there.");
}

void refuseServer(const fs::path& settings, const std::string& instead) {
  if (!serverIn(Settings(settings))) return;
  throw std::runtime_error("The books of this practice are on a database server. " + instead);
}

void write(const DataFolder& folder, const fs::path& file, const Progress& progress) {
  checkPlace(folder, file);
  PartFile part(file);
  pack(folder, part, progress);
  part.finish();
}

void write(Database& database, const DataFolder& folder, const fs::path& file,
           const Progress& progress) {
  checkPlace(folder, file);
  for (int attempt = 0; attempt < attempts; ++attempt) {
    PartFile part(file);
    bringToRest(database);
    const std::string before = restState(database);
    if (before.empty()) continue;
    pack(folder, part, progress);
    if (restState(database) == before) return part.finish();
  }
  throw std::runtime_error(
      "The database does not come to rest; the backup was not made. Try again.");
}

}  // namespace quillet::suite::backup
