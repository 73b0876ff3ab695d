// Shades between the system's colours.
#pragma once

#include <windows.h>

namespace quillet::windows {

// A person reads in colours of high contrast: shades say nothing then.
bool highContrast();
// So much of one of the system's colours (COLOR_WINDOW and its like) over another.
COLORREF shade(int over, int under, double share);

}  // namespace quillet::windows
