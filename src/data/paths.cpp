#include "data/paths.h"

#include <algorithm>

#include "data/text.h"

namespace quillet {

std::filesystem::path pathOf(std::string_view utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

std::string textOf(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

std::filesystem::path below(std::string_view folder, const std::string& path) {
  return pathOf(folder) += pathOf(replacedAll(path, "\\", "/")).make_preferred();
}

std::string asFileName(std::string_view text) {
  std::string name(trimmed(text));
  std::replace_if(
      name.begin(), name.end(),
      [](char c) {
        return static_cast<unsigned char>(c) < ' ' ||
               std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos;
      },
      '-');
  return name;
}

}  // namespace quillet
