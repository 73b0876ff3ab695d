#include "suite/check/backup_first.h"

#include <stdexcept>

#include "suite/backup/backup.h"
#include "suite/backup/backup_place.h"

namespace quillet::suite::check {

bool isBackedUpThere(Practice& practice) { return practice.environment().unit().shared(); }

std::string backUpFirst(Practice& practice, bool madeThere) {
  if (isBackedUpThere(practice)) {
    if (madeThere) return "the backup that was made of the database server";
    throw std::runtime_error(
        "The books of this practice are on a database server. Have them backed up there, then tell "
        "it with: quillet check --mend --backed-up");
  }
  const DataFolder& folder = practice.folder();
  const backup::BackupPlace place(folder);
  place.prepare();
  const std::string now = practice.environment().clock().now();
  const std::filesystem::path file = place.fileBefore("mending", now);
  backup::write(practice.database(), folder, file);
  return file.string();
}

}  // namespace quillet::suite::check
