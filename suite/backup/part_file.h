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
  // Synchronises the file and gives it its name.
  void finish();

 private:
  [[noreturn]] void fail(int error) const;

  std::filesystem::path file_;
  std::filesystem::path part_;
  int descriptor_ = -1;
  bool finished_ = false;
};

// Synchronises the names in a folder, so that a renaming in it is durable.
void synchroniseFolder(const std::filesystem::path& folder);

}  // namespace quillet::suite::backup
