#include "view/shortcut.h"

#include "data/text.h"

namespace quillet::view {

std::optional<Shortcut> shortcut(std::string_view text) {
  Shortcut found;
  // From the second character on: a "+" at the place of a name is the key itself.
  for (std::size_t plus = text.find('+', 1); plus != std::string_view::npos;
       plus = text.find('+', 1)) {
    const std::string_view name = text.substr(0, plus);
    bool* modifier = equalIgnoringCase(name, "Ctrl")    ? &found.ctrl
                     : equalIgnoringCase(name, "Shift") ? &found.shift
                     : equalIgnoringCase(name, "Alt")   ? &found.alt
                                                        : nullptr;
    if (!modifier) return std::nullopt;
    *modifier = true;
    text.remove_prefix(plus + 1);
  }
  if (text.empty()) return std::nullopt;
  found.key = upperCase(text);
  return found;
}

}  // namespace quillet::view
