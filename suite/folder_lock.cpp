#include "suite/folder_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>

namespace quillet::suite {

FolderLock::FolderLock(const std::filesystem::path& folder) {
  if (access(folder.c_str(), W_OK | X_OK) != 0) {
    throw std::runtime_error("The folder " + folder.string() +
                             " cannot be written: " + std::generic_category().message(errno) + ".");
  }
  // Closed in programs that this one starts: they must not hold the folder after it has ended.
  file_ = open((folder / fileName).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (file_ < 0) {
    throw std::runtime_error("The folder " + folder.string() +
                             " cannot be written: " + std::generic_category().message(errno) + ".");
  }
  if (flock(file_, LOCK_EX | LOCK_NB) != 0) {
    const int error = errno;
    close(file_);
    throw std::runtime_error("The folder " + folder.string() +
                             (error == EWOULDBLOCK
                                  ? " is in use by another running Quillet. Close that one first."
                                  : " cannot be locked: " + std::generic_category().message(error) +
                                        ". Quillet needs a disk that can lock files."));
  }
}

FolderLock::~FolderLock() { close(file_); }

}  // namespace quillet::suite
