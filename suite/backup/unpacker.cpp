#include "suite/backup/unpacker.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <stdexcept>
#include <string>
#include <system_error>

#include "suite/backup/archive_reader.h"
#include "suite/settings.h"

namespace quillet::suite::backup {
namespace {

namespace fs = std::filesystem;

class Target {
 public:
  Target(const fs::path& path, const ArchiveReader::Entry& entry)
      : path_(path),
        descriptor_(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600)) {
    if (descriptor_ < 0 || fchmod(descriptor_, 0600) != 0 ||
        ftruncate(descriptor_, static_cast<off_t>(entry.size)) != 0) {
      fail();
    }
  }
  ~Target() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  Target(const Target&) = delete;
  Target& operator=(const Target&) = delete;

  void write(std::string_view bytes, std::uintmax_t position) {
    while (!bytes.empty()) {
      const ssize_t written =
          pwrite(descriptor_, bytes.data(), bytes.size(), static_cast<off_t>(position));
      if (written < 0 && errno == EINTR) continue;
      if (written <= 0) fail();
      bytes.remove_prefix(written);
      position += written;
    }
  }
  void changedAt(std::int64_t seconds) {
    const timespec times[] = {{0, UTIME_OMIT}, {static_cast<time_t>(seconds), 0}};
    futimens(descriptor_, times);  // without it the file is as good
  }

 private:
  [[noreturn]] void fail() const {
    throw std::runtime_error("The file " + path_.string() +
                             " cannot be written: " + std::generic_category().message(errno) + ".");
  }
  const fs::path& path_;
  int descriptor_;
};

void makeFolder(const fs::path& path) {
  if (mkdir(path.c_str(), 0700) == 0) return;
  throw std::runtime_error("The folder " + path.string() +
                           " cannot be made: " + std::generic_category().message(errno) + ".");
}

// With blanks around it, as the settings are read.
bool isFirstLine(std::string line) {
  line.resize(std::min(line.find('\n'), line.size()));
  line.erase(line.find_last_not_of(" \t\r") + 1);
  line.erase(0, line.find_first_not_of(" \t"));
  return line == Settings::firstLine;
}

// The first of all entries tells whose archive it is.
void checkSettings(ArchiveReader& reader, const fs::path& archive) {
  std::string text;
  if (reader.next()) {
    reader.content([&](std::string_view bytes, std::uintmax_t) {
      if (text.size() < 100) text += bytes.substr(0, 100);
    });
  }
  if (isFirstLine(text)) return;
  throw std::runtime_error("The file " + archive.string() + " is not a backup made by Quillet.");
}

void requireRoom(std::uintmax_t needed, const fs::path& folder) {
  std::error_code unknown;
  const fs::space_info space = fs::space(folder, unknown);
  if (unknown || space.available > needed) return;
  const auto megabytes = [](std::uintmax_t bytes) { return std::to_string((bytes >> 20U) + 1); };
  throw std::runtime_error("The backup takes " + megabytes(needed) + " MB, and beside " +
                           folder.string() + " only " + megabytes(space.available) +
                           " MB are free. Make room and try again.");
}

void synchronise(const fs::path& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  const bool done = descriptor >= 0 && syncfs(descriptor) == 0;
  if (descriptor >= 0) close(descriptor);
  if (!done) throw std::runtime_error("The folder " + folder.string() + " cannot be written.");
}

}  // namespace

std::uintmax_t verify(const fs::path& archive, const std::function<void()>& onTheWay) {
  ArchiveReader reader(archive);
  checkSettings(reader, archive);
  std::uintmax_t bytes = 0;
  bool hasDatabase = false;
  while (const auto entry = reader.next()) {
    bytes += entry->size;
    if (entry->name == "database/ibdata1") hasDatabase = true;
    reader.content([&](std::string_view, std::uintmax_t) {
      if (onTheWay) onTheWay();
    });
  }
  if (hasDatabase) return bytes;
  throw std::runtime_error("The backup " + archive.string() +
                           " cannot be used: there is no database in it.");
}

void unpack(const fs::path& archive, const fs::path& folder) {
  requireRoom(verify(archive), folder);
  ArchiveReader reader(archive);
  while (const auto entry = reader.next()) {
    const fs::path path = folder / entry->name;
    if (entry->isFolder) {
      makeFolder(path);
      continue;
    }
    Target target(path, *entry);
    reader.content([&](std::string_view bytes, std::uintmax_t at) { target.write(bytes, at); });
    target.changedAt(entry->changed);
  }
  synchronise(folder);
}

}  // namespace quillet::suite::backup
