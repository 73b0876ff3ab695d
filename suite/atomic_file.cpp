#include "suite/atomic_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <string>
#include <system_error>

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;

class OpenFile {
 public:
  OpenFile(const fs::path& path, int flags) : file_(open(path.c_str(), flags | O_CLOEXEC, 0600)) {}
  ~OpenFile() {
    if (file_ >= 0) close(file_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  bool opened() const { return file_ >= 0; }
  bool writeAll(std::string_view content) {
    while (!content.empty()) {
      const ssize_t written = write(file_, content.data(), content.size());
      if (written < 0 && errno == EINTR) continue;
      if (written <= 0) return false;
      content.remove_prefix(written);
    }
    return true;
  }
  bool sync() { return fsync(file_) == 0; }

 private:
  int file_;
};

}  // namespace

void writeAtomically(const fs::path& file, std::string_view content) {
  const fs::path beside = file.string() + ".new";
  const auto fail = [&] {
    const int error = errno;
    unlink(beside.c_str());
    throw std::runtime_error("The file " + file.string() +
                             " cannot be written: " + std::generic_category().message(error) + ".");
  };
  {
    OpenFile target(beside, O_WRONLY | O_CREAT | O_TRUNC);
    if (!target.opened() || !target.writeAll(content) || !target.sync()) fail();
  }
  if (rename(beside.c_str(), file.c_str()) != 0) fail();
  // The renaming is durable once the folder is synchronised.
  synchroniseFolder(file.parent_path());
}

bool synchroniseFolder(const fs::path& folder) {
  OpenFile opened(folder, O_RDONLY | O_DIRECTORY);
  return opened.opened() && opened.sync();
}

}  // namespace quillet::suite
