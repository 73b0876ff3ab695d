// Where a window stood, as settings keep it from one run to the next: "1200x700+80+30", and
// " maximized" behind it.
#pragma once

#include <optional>
#include <string>

#include "view/bounds.h"

namespace quillet::view {

struct WindowPlace {
  Bounds bounds;
  bool maximized = false;
};

std::string textOf(const WindowPlace& place);
// Nothing when the text is none of these, or no window could be used there.
std::optional<WindowPlace> windowPlaceIn(const std::string& text);

// Wholly on a screen that may be smaller than the one before.
Bounds within(Bounds wanted, const Bounds& screen);

}  // namespace quillet::view
