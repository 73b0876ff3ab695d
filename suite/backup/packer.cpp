#include "suite/backup/packer.h"

#include <archive.h>
#include <archive_entry.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <exception>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include "suite/backup/unpacker.h"
#include "suite/backup/zstd_stream.h"
#include "suite/folder_fingerprint.h"
#include "suite/folder_lock.h"
#include "suite/settings.h"

namespace quillet::suite::backup {
namespace {

namespace fs = std::filesystem;

// What belongs to a run of the server and not to the data.
bool isPassing(const fs::path& file) {
  const std::string name = file.filename().string();
  return name == FolderLock::fileName || name == folder_fingerprint::fileName ||
         name == "error.log" || name == "ibtmp1" || name.starts_with("#sql-temptable");
}

// Without these there is no practice to restore.
void requirePractice(const DataFolder& folder) {
  using State = Settings::State;
  const State state = Settings::stateOf(folder.settings());
  if (state != State::whole && state != State::cut) {
    throw std::runtime_error("The settings " + folder.settings().string() +
                             " are not what Quillet wrote. Start Quillet, which can take those of"
                             " the last start.");
  }
  if (!fs::is_regular_file(fs::symlink_status(folder.database() / "ibdata1"))) {
    throw std::runtime_error("There are no books in " + folder.database().string() + ".");
  }
}

// A part may lie elsewhere, and a link stand for it; a backup holds what is there. Other links are
// left out, but no file of the database can be.
std::vector<fs::path> contentsOf(const DataFolder& folder) {
  // The settings first: they tell a reader whose archive it is.
  std::vector<fs::path> found{folder.settings()};
  for (const fs::path& part : {folder.database(), folder.program(), folder.documents()}) {
    if (!fs::is_directory(part)) continue;
    found.push_back(part);
    std::vector<fs::path> inside;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(part)) {
      const fs::file_status status = entry.symlink_status();
      if (fs::is_symlink(status) && part == folder.database()) {
        throw std::runtime_error("The database file " + entry.path().string() +
                                 " is a link, which a backup cannot hold. Put the file itself"
                                 " there, while Quillet is closed.");
      }
      if (!fs::is_regular_file(status) && !fs::is_directory(status)) continue;
      if (part != folder.database() || !isPassing(entry.path())) inside.push_back(entry.path());
    }
    std::sort(inside.begin(), inside.end());
    found.insert(found.end(), inside.begin(), inside.end());
  }
  return found;
}

class Source {
 public:
  Source(const fs::path& path, bool followsLink)
      : path_(path),
        descriptor_(open(path.c_str(), O_RDONLY | O_CLOEXEC | (followsLink ? 0 : O_NOFOLLOW))) {
    if (descriptor_ < 0 || fstat(descriptor_, &state_) != 0) fail();
  }
  ~Source() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;

  const struct stat& state() const { return state_; }
  std::size_t read(char* buffer, std::size_t wanted) {
    ssize_t got = 0;
    do {
      got = ::read(descriptor_, buffer, wanted);
    } while (got < 0 && errno == EINTR);
    if (got < 0) fail();
    if (got == 0) throw std::runtime_error("The file " + path_.string() + " is being changed.");
    return got;
  }

 private:
  [[noreturn]] void fail() const {
    throw std::runtime_error("The file " + path_.string() +
                             " cannot be read: " + std::generic_category().message(errno) + ".");
  }
  const fs::path& path_;
  int descriptor_;
  struct stat state_ {};
};

class Archive {
 public:
  explicit Archive(const PartFile& file)
      : out_(file), archive_(archive_write_new()), entry_(archive_entry_new()) {
    archive_write_set_format_gnutar(archive_);
    archive_write_set_bytes_per_block(archive_, 0);
    check(archive_write_open(archive_, this, nullptr, &Archive::write, nullptr));
  }
  ~Archive() {
    archive_entry_free(entry_);
    archive_write_free(archive_);
  }
  Archive(const Archive&) = delete;
  Archive& operator=(const Archive&) = delete;

  void begin(const std::string& name, const struct stat& state) {
    const bool isFile = S_ISREG(state.st_mode);
    archive_entry_clear(entry_);
    archive_entry_set_pathname(entry_, name.c_str());
    archive_entry_set_filetype(entry_, isFile ? AE_IFREG : AE_IFDIR);
    archive_entry_set_perm(entry_, isFile ? 0600 : 0700);
    archive_entry_set_size(entry_, isFile ? state.st_size : 0);
    archive_entry_set_mtime(entry_, state.st_mtim.tv_sec, state.st_mtim.tv_nsec);
    check(archive_write_header(archive_, entry_));
  }
  void add(const char* bytes, std::size_t count) {
    check(archive_write_data(archive_, bytes, count) < 0 ? ARCHIVE_FATAL : ARCHIVE_OK);
  }
  void finish() {
    check(archive_write_close(archive_));
    out_.finish();
  }

 private:
  // An exception does not pass through the library.
  static la_ssize_t write(archive*, void* self, const void* bytes, std::size_t count) {
    auto& archive = *static_cast<Archive*>(self);
    try {
      if (!archive.failure_) archive.out_.add({static_cast<const char*>(bytes), count});
      return static_cast<la_ssize_t>(count);
    } catch (...) {
      archive.failure_ = std::current_exception();
      return -1;
    }
  }
  void check(int result) {
    if (failure_) std::rethrow_exception(failure_);
    if (result == ARCHIVE_OK) return;
    const char* reason = archive_error_string(archive_);
    throw std::runtime_error(reason != nullptr ? reason : "The archive cannot be written.");
  }
  Compressor out_;
  std::exception_ptr failure_;
  archive* archive_;
  archive_entry* entry_;
};

std::uintmax_t sizeOf(const std::vector<fs::path>& contents) {
  std::uintmax_t total = 0;
  for (const fs::path& path : contents) {
    if (fs::is_regular_file(path)) total += fs::file_size(path);
  }
  return total;
}

}  // namespace

void pack(const DataFolder& folder, PartFile& file, const Progress& progress) {
  requirePractice(folder);
  const std::vector<fs::path> contents = contentsOf(folder);
  const std::uintmax_t total = sizeOf(contents);
  std::uintmax_t done = 0;
  std::vector<char> buffer(pieceSize);
  Archive archive(file);
  for (const fs::path& path : contents) {
    Source source(path, path.parent_path() == folder.root() && path != folder.settings());
    archive.begin(path.lexically_relative(folder.root()).string(), source.state());
    if (!S_ISREG(source.state().st_mode)) continue;
    for (std::uintmax_t left = source.state().st_size; left > 0;) {
      const std::size_t got =
          source.read(buffer.data(), std::min<std::uintmax_t>(left, buffer.size()));
      archive.add(buffer.data(), got);
      left -= got;
      done += got;
      if (progress) progress(done, std::max(done, total));
    }
  }
  archive.finish();
  verify(file.part(), [&] {
    if (progress) progress(done, std::max(done, total));
  });
  file.synchronise();
}

}  // namespace quillet::suite::backup
