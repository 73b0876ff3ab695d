#include "suite/disk_watch.h"

#include <utility>

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;

std::uintmax_t freeSpace(const fs::path& folder) {
  std::error_code error;
  const fs::space_info space = fs::space(folder, error);
  return error ? UINTMAX_MAX : space.available;
}

// The definitions of the tables, in a folder below, are small beside it.
std::uintmax_t sizeOfFiles(const fs::path& folder) {
  std::uintmax_t size = 0;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code ignored;
    if (entry->is_regular_file(ignored)) size += entry->file_size(ignored);
  }
  return size;
}

std::string inMegabytes(std::uintmax_t bytes) { return std::to_string(bytes / 1'000'000) + " MB"; }

}  // namespace

DiskWatch::DiskWatch(fs::path databaseFolder, Free free)
    : folder_(std::move(databaseFolder)), free_(free ? std::move(free) : Free(freeSpace)) {}

std::optional<std::string> DiskWatch::warning() {
  if (folder_.empty()) return std::nullopt;
  const std::uintmax_t size = sizeOfFiles(folder_);
  const std::uintmax_t room = free_(folder_);
  const bool tight = room / 2 < size;
  if (!tight || std::exchange(warned_, tight)) {
    warned_ = tight;
    return std::nullopt;
  }
  return "The disk is nearly full: " + inMegabytes(room) + " are free, and the database of " +
         folder_.string() + " has " + inMegabytes(size) +
         ". Please make room before lines can no longer be stored.";
}

}  // namespace quillet::suite
