// Where a top window stands, as it is kept from one opening to the next.
#pragma once

#include <windows.h>

#include <optional>

#include "view/window_place.h"

namespace quillet::windows {

// Nothing while it is minimized.
std::optional<view::WindowPlace> placeOf(HWND window);
// Puts a window that is not shown yet there, as far as the nearest monitor has room. Whoever shows
// it maximizes it.
void restorePlace(HWND window, const view::WindowPlace& place);

}  // namespace quillet::windows
