// A menu entry's shortcut, such as "F5" or "Ctrl+Shift+P", taken apart.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillet::view {

struct Shortcut {
  bool ctrl = false;
  bool shift = false;
  bool alt = false;
  std::string key;  // in capitals: "P", "F5", "DEL"
  bool operator==(const Shortcut&) const = default;
};

// Nothing for a text that names no key, or a modifier that is none of these three.
std::optional<Shortcut> shortcut(std::string_view text);

}  // namespace quillet::view
