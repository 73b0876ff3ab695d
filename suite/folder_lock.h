// Holds a folder for this process: an advisory lock that the system releases with the process, so
// that a crash leaves nothing to clean up.
#pragma once

#include <filesystem>

namespace quillet::suite {

class FolderLock {
 public:
  // The file that carries the lock; its presence means nothing.
  static constexpr const char* fileName = "lock";

  // Throws std::runtime_error that names the folder when another process holds it or when it
  // cannot be written.
  explicit FolderLock(const std::filesystem::path& folder);
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

 private:
  int file_ = -1;
};

}  // namespace quillet::suite
