#include "suite/private_files.h"

#include <sys/stat.h>

#include <cerrno>
#include <stdexcept>
#include <string>
#include <system_error>

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;

constexpr fs::perms others = fs::perms::group_all | fs::perms::others_all;

[[noreturn]] void fail(const fs::path& folder, const std::error_code& error) {
  throw std::runtime_error("The folder " + folder.string() + " cannot be made: " + error.message() +
                           ".");
}

}  // namespace

void makePrivateFolder(const fs::path& folder) {
  const fs::path path = folder.has_filename() ? folder : folder.parent_path();
  std::error_code error;
  if (fs::is_directory(path, error)) return;
  fs::create_directories(path.parent_path(), error);
  if (error) fail(path, error);
  if (mkdir(path.c_str(), 0700) != 0) fail(path, {errno, std::generic_category()});
}

bool isPrivate(const fs::path& path) {
  std::error_code error;
  return (fs::status(path, error).permissions() & others) == fs::perms::none || error;
}

void makePrivate(const fs::path& path) {
  std::error_code ignored;
  if (!isPrivate(path)) fs::permissions(path, others, fs::perm_options::remove, ignored);
}

void makeAllPrivate(const fs::path& folder) {
  makePrivate(folder);
  std::error_code error;
  fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied,
                                         error);
  for (; !error && entry != end(entry); entry.increment(error)) {
    if (!entry->is_symlink()) makePrivate(entry->path());
  }
}

}  // namespace quillet::suite
