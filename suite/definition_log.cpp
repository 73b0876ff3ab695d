#include "suite/definition_log.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

namespace quillet::suite::definition_log {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view inSchema = "/quillet/";

// The folders and tables of the paths in the log; each path stands between two null characters.
std::vector<std::pair<std::string, std::string>> pathsIn(const fs::path& folder) {
  std::ifstream file(folder / fileName, std::ios::binary);
  const std::string log{std::istreambuf_iterator<char>(file), {}};
  std::vector<std::pair<std::string, std::string>> paths;
  for (std::size_t at = log.find(inSchema); at != std::string::npos;
       at = log.find(inSchema, at + 1)) {
    const std::size_t begin = log.rfind('\0', at) + 1;
    const std::size_t name = at + inSchema.size();
    paths.emplace_back(log.substr(begin, at - begin),
                       log.substr(name, log.find('\0', name) - name));
  }
  return paths;
}

}  // namespace

std::set<std::string> tables(const fs::path& folder) {
  std::set<std::string> names;
  for (const auto& [_, table] : pathsIn(folder)) names.insert(table);
  return names;
}

void removeForeign(const fs::path& folder) {
  const auto paths = pathsIn(folder);
  const bool foreign = std::any_of(paths.begin(), paths.end(), [&](const auto& path) {
    std::error_code error;
    return !fs::equivalent(path.first, folder, error);
  });
  if (foreign) fs::remove(folder / fileName);
}

}  // namespace quillet::suite::definition_log
