// Warns before the disk is full: with less room than twice the database, neither a backup nor an
// examination finds a place, and soon no line does.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace quillet::suite {

class DiskWatch {
 public:
  // `free` tells how many bytes are free where the folder is. An empty path is watched never: the
  // database is a server's.
  using Free = std::function<std::uintmax_t(const std::filesystem::path& folder)>;
  explicit DiskWatch(std::filesystem::path databaseFolder, Free free = {});

  // A warning when the room has become too little since the last call.
  std::optional<std::string> warning();

 private:
  std::filesystem::path folder_;
  Free free_;
  bool warned_ = false;
};

}  // namespace quillet::suite
