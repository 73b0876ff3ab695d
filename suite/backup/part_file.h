// A file that is written beside its name and takes it when it is whole: whatever happens, the name
// holds what it held before or the new content. Only its owner can read it.
#pragma once

#include <filesystem>
#include <string_view>

namespace quillet::suite::backup {

class PartFile {
 public:
  static constexpr const char* ending = ".quillet-part";

  // Throws std::runtime_error that names the file when it cannot be written, when its name belongs
  // to something other than an ordinary file, or when another process is writing it.
  explicit PartFile(std::filesystem::path file);
  // Removes what was not finished.
  ~PartFile();
  PartFile(const PartFile&) = delete;
  PartFile& operator=(const PartFile&) = delete;

  // Throws as the constructor does.
  void write(std::string_view bytes) const;
  // Brings what was written to the disk. Throws as above, and need not be on the window's thread.
  void synchronise() const;
  // Gives what is on the disk its name.
  void finish();
  // The name that it has until then.
  const std::filesystem::path& part() const { return part_; }

 private:
  [[noreturn]] void fail(int error) const;

  std::filesystem::path file_;
  std::filesystem::path part_;
  int descriptor_ = -1;
  bool finished_ = false;
};

// Opens and locks what has this name; -1 with errno when it cannot. EWOULDBLOCK: another process
// holds it. A file system without locks gives the file unlocked.
int openLocked(const std::filesystem::path& path, int flags);

}  // namespace quillet::suite::backup
