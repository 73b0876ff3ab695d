#include "suite/backup/part_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "suite/atomic_file.h"

namespace quillet::suite::backup {

namespace fs = std::filesystem;

namespace {
constexpr int mostAttempts = 10;
}  // namespace

PartFile::PartFile(fs::path file)
    : file_(fs::absolute(std::move(file)).lexically_normal()), part_(file_.string() + ending) {
  std::error_code error;
  const fs::file_status status = fs::symlink_status(file_, error);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    throw std::runtime_error(file_.string() + " is not an ordinary file. Nothing was changed.");
  }
  descriptor_ = openLocked(part_, O_RDWR | O_CREAT | O_NOFOLLOW);
  if (descriptor_ < 0 && errno == EWOULDBLOCK) {
    throw std::runtime_error("Another Quillet is writing " + file_.string() + " just now.");
  }
  if (descriptor_ < 0) fail(errno);
  // The user's mask may take more than others' rights. Not every disk for backups knows rights.
  fchmod(descriptor_, 0600);
  // One that was interrupted left its part.
  if (ftruncate(descriptor_, 0) != 0) {
    const int failed = errno;
    close(descriptor_);
    fail(failed);
  }
}

PartFile::~PartFile() {
  if (!finished_) unlink(part_.c_str());
  close(descriptor_);
}

void PartFile::write(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) fail(errno);
    bytes.remove_prefix(written);
  }
}

void PartFile::fail(int error) const {
  throw std::runtime_error("The file " + file_.string() +
                           " cannot be written: " + std::generic_category().message(error) + ".");
}

void PartFile::synchronise() const {
  if (fsync(descriptor_) != 0) fail(errno);
}

void PartFile::finish() {
  if (rename(part_.c_str(), file_.c_str()) != 0) fail(errno);
  finished_ = true;
  synchroniseFolder(file_.parent_path());
}

// Whoever held the lock may have renamed what we opened meanwhile, and the name is another's now.
int openLocked(const fs::path& path, int flags) {
  for (int attempt = 1;; ++attempt) {
    const int descriptor = open(path.c_str(), flags | O_CLOEXEC, 0600);
    if (descriptor < 0) return -1;
    const bool isHeld = flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    struct stat opened {
    }, named{};
    const bool isNamed = fstat(descriptor, &opened) == 0 && lstat(path.c_str(), &named) == 0 &&
                         opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
    // Some file systems never tell the same number twice.
    if (!isHeld && (isNamed || attempt == mostAttempts)) return descriptor;
    close(descriptor);
    if (isHeld) {
      errno = EWOULDBLOCK;
      return -1;
    }
  }
}

}  // namespace quillet::suite::backup
