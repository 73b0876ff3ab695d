#include "suite/backup/restore.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>

#include "suite/atomic_file.h"
#include "suite/backup/backup.h"
#include "suite/backup/part_file.h"
#include "suite/backup/unpacker.h"
#include "suite/data_folder.h"
#include "suite/database_check.h"
#include "suite/folder_fingerprint.h"
#include "suite/folder_format.h"
#include "suite/folder_lock.h"
#include "suite/settings.h"

namespace quillet::suite::backup {
namespace {

namespace fs = std::filesystem;

// In an unpacked folder until it is whole and examined.
constexpr const char* marker = "being-restored";

fs::path besideOf(const fs::path& folder) { return folder.string() + ".restoring"; }

// A name that is free, with the time in it.
fs::path nameToKeep(const fs::path& folder) {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  char stamp[32];
  std::strftime(stamp, sizeof stamp, "%Y-%m-%d-%H%M%S", &parts);
  const std::string name = folder.string() + "-before-" + stamp;
  fs::path free = name;
  for (int i = 2; fs::exists(fs::symlink_status(free)); ++i) free = name + "-" + std::to_string(i);
  return free;
}

[[noreturn]] void failWith(const fs::path& folder, const std::string& what, int error) {
  throw std::runtime_error("The folder " + folder.string() + " cannot be " + what + ": " +
                           std::generic_category().message(error) + ".");
}

void moveTo(const fs::path& from, const fs::path& to) {
  if (rename(from.c_str(), to.c_str()) != 0) failWith(from, "renamed", errno);
}

// The folder into which a backup is unpacked. What a restoring that was killed left there is
// removed; a folder without our mark is whole, and kept.
class Staging {
 public:
  explicit Staging(const fs::path& folder) : path_(besideOf(folder)) {
    hold(folder);
    if (!fs::is_empty(path_) && !fs::exists(path_ / marker)) {
      moveTo(path_, nameToKeep(folder));
      close(descriptor_);
      hold(folder);
    }
    for (const fs::directory_entry& left : fs::directory_iterator(path_)) {
      if (left.path().filename() != marker) fs::remove_all(left.path());
    }
    std::ofstream(path_ / marker) << "A backup is being restored here.\n";
  }
  ~Staging() {
    std::error_code ignored;
    if (fs::exists(path_ / marker, ignored)) fs::remove_all(path_, ignored);
    close(descriptor_);
  }
  Staging(const Staging&) = delete;
  Staging& operator=(const Staging&) = delete;

  const fs::path& path() const { return path_; }
  void complete() {
    fs::remove(path_ / marker);
    synchroniseFolder(path_);
  }

 private:
  void hold(const fs::path& folder) {
    if (mkdir(path_.c_str(), 0700) != 0 && errno != EEXIST) failWith(path_, "made", errno);
    descriptor_ = openLocked(path_, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    if (descriptor_ < 0 && errno == EWOULDBLOCK) {
      throw std::runtime_error("Another Quillet is restoring " + folder.string() + " just now.");
    }
    if (descriptor_ < 0) failWith(path_, "made", errno);
  }

  fs::path path_;
  int descriptor_ = -1;
};

bool holdsPractice(const fs::path& folder) {
  return DataFolder::isThere(folder) || fs::exists(folder / "database" / "ib_logfile0");
}

bool isThere(const fs::path& folder) {
  if (!fs::exists(fs::symlink_status(folder))) return false;
  return !fs::is_directory(folder) || !fs::is_empty(folder);
}

void checkTarget(const fs::path& folder, Present present) {
  if (!isThere(folder)) return;
  if (!holdsPractice(folder)) {
    throw std::runtime_error("The folder " + folder.string() +
                             " holds other files. Nothing was changed; name a new folder.");
  }
  if (present == Present::refuse) {
    throw std::runtime_error("There is a practice in " + folder.string() +
                             " already. Nothing was changed; name a new folder, or say --force to"
                             " put the backup in its place.");
  }
  refuseServer(folder / "settings.ini",
               "Restore them there, or name a new folder for this backup.");
}

void examineUnpacked(const fs::path& archive, const fs::path& database) {
  const Verdict verdict = DatabaseCheck(database).waitForEnd();
  if (verdict.kind == Verdict::Kind::damaged) {
    throw std::runtime_error("The database in the backup " + archive.string() + " is damaged (" +
                             verdict.reason + "). Nothing was changed; take another backup.");
  }
  if (verdict.kind != Verdict::Kind::sound) {
    throw std::runtime_error("The database in the backup " + archive.string() +
                             " cannot be examined at present (" + verdict.reason +
                             "). Nothing was changed.");
  }
  folder_fingerprint::write(database);  // examined, so that the next start need not do it again
}

// Puts the new folder in place of the old one; returns where the old one is.
fs::path exchange(const fs::path& fresh, const fs::path& folder) {
  const fs::path kept = nameToKeep(folder);
  if (renameat2(AT_FDCWD, fresh.c_str(), AT_FDCWD, folder.c_str(), RENAME_EXCHANGE) == 0) {
    moveTo(fresh, kept);
    return kept;
  }
  // Not every file system can: finishRestore then does what is left after a kill.
  moveTo(folder, kept);
  if (rename(fresh.c_str(), folder.c_str()) != 0) {
    const int error = errno;
    moveTo(kept, folder);
    failWith(fresh, "renamed", error);
  }
  return kept;
}

}  // namespace

fs::path restore(const fs::path& archive, const fs::path& target, Present present) {
  const fs::path folder = DataFolder::pathOf(target);
  checkTarget(folder, present);
  std::optional<FolderLock> nobodyWorksThere;
  if (fs::is_directory(folder / "database")) nobodyWorksThere.emplace(folder / "database");
  verify(archive);
  std::error_code error;
  fs::create_directories(folder.parent_path(), error);
  if (error) failWith(folder.parent_path(), "made", error.value());

  Staging staging(folder);
  unpack(archive, staging.path());
  folder_format::refuseNewer(Settings(staging.path() / "settings.ini"), archive);
  examineUnpacked(archive, staging.path() / "database");
  staging.complete();
  fs::path kept;
  if (isThere(folder)) {
    kept = exchange(staging.path(), folder);
  } else {
    moveTo(staging.path(), folder);
  }
  synchroniseFolder(folder.parent_path());
  return kept;
}

void finishRestore(const fs::path& target) {
  const fs::path folder = DataFolder::pathOf(target);
  const fs::path fresh = besideOf(folder);
  const int held = openLocked(fresh, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
  if (held < 0) return;  // there is none, or it is being restored just now
  const bool isLeft = !fs::exists(fs::symlink_status(folder)) && !fs::exists(fresh / marker) &&
                      DataFolder::isOne(fresh);
  const bool isDone = !isLeft || rename(fresh.c_str(), folder.c_str()) == 0;
  const int error = errno;
  close(held);
  if (!isDone) failWith(fresh, "renamed", error);
}

}  // namespace quillet::suite::backup
