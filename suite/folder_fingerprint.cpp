#include "suite/folder_fingerprint.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "suite/folder_lock.h"
#include "suite/private_files.h"

namespace quillet::suite::folder_fingerprint {
namespace {

namespace fs = std::filesystem;

// Every file but those that say nothing about the data.
std::string describe(const fs::path& folder) {
  std::vector<std::string> lines;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    const std::string name = entry.path().lexically_relative(folder).string();
    if (!entry.is_regular_file() || name == fileName || name == FolderLock::fileName ||
        name == "error.log") {
      continue;
    }
    const auto time = entry.last_write_time().time_since_epoch().count();
    lines.push_back(std::to_string(entry.file_size()) + ' ' + std::to_string(time) + ' ' + name);
  }
  std::sort(lines.begin(), lines.end());
  std::string all;
  for (const std::string& line : lines) all += line + '\n';
  return all;
}

}  // namespace

void write(const fs::path& folder) {
  const fs::path file = folder / fileName;
  std::ofstream(file, std::ios::binary) << describe(folder);
  makePrivate(file);
}

bool matches(const fs::path& folder) {
  std::ifstream file(folder / fileName, std::ios::binary);
  if (!file) return false;
  std::ostringstream text;
  text << file.rdbuf();
  return text.str() == describe(folder);
}

void remove(const fs::path& folder) {
  std::error_code ignored;
  fs::remove(folder / fileName, ignored);
}

}  // namespace quillet::suite::folder_fingerprint
