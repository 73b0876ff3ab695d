#include "suite/check/backup_first.h"

#include "suite/backup/backup.h"
#include "suite/backup/backup_place.h"

namespace quillet::suite::check {

std::string backUpFirst(Practice& practice) {
  const DataFolder& folder = practice.folder();
  const backup::BackupPlace place(folder);
  place.prepare();
  const std::string now = practice.environment().clock().now();
  const std::filesystem::path file = place.fileBefore("mending", now);
  backup::write(practice.database(), folder, file);
  return file.string();
}

}  // namespace quillet::suite::check
