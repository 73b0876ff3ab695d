#include "data/client_columns.h"

#include <algorithm>
#include <charconv>

#include "data/text.h"

namespace quillet::client_columns {
namespace {

std::optional<std::size_t> columnKeyed(std::string_view key) {
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (equalIgnoringCase(all[i].key, key)) return i;
  }
  return std::nullopt;
}

bool holds(const std::vector<Shown>& columns, std::size_t column) {
  return std::any_of(columns.begin(), columns.end(),
                     [&](const Shown& shown) { return shown.column == column; });
}

// The usual width for a text that is no number.
int widthFrom(std::string_view text, int usual) {
  int width = usual;
  std::from_chars(text.data(), text.data() + text.size(), width);
  return std::clamp(width, leastWidth, greatestWidth);
}

}  // namespace

std::vector<Shown> defaults() {
  std::vector<Shown> columns;
  for (std::size_t i = 0; i < all.size(); ++i) columns.push_back({i, all[i].width});
  return columns;
}

std::vector<Shown> parse(std::string_view setting) {
  std::vector<Shown> columns;
  while (!setting.empty()) {
    const std::size_t comma = std::min(setting.find(','), setting.size());
    const std::string_view entry = trimmed(setting.substr(0, comma));
    setting.remove_prefix(std::min(comma + 1, setting.size()));
    const std::size_t colon = std::min(entry.find(':'), entry.size());
    const auto column = columnKeyed(trimmed(entry.substr(0, colon)));
    if (!column || holds(columns, *column)) continue;
    const std::string_view width = colon < entry.size() ? entry.substr(colon + 1) : "";
    columns.push_back({*column, widthFrom(trimmed(width), all[*column].width)});
  }
  if (columns.empty()) return defaults();
  if (!holds(columns, 0)) columns.insert(columns.begin(), {0, all[0].width});
  return columns;
}

std::string format(const std::vector<Shown>& columns) {
  std::string text;
  for (const Shown& shown : columns) {
    if (!text.empty()) text += ',';
    text += std::string(all[shown.column].key) + ':' + std::to_string(shown.width);
  }
  return text;
}

}  // namespace quillet::client_columns
