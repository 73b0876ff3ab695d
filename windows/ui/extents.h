// How much room there is for windows, and how much of it their borders take.
#pragma once

#include <windows.h>

#include "controls/form.h"

namespace quillet::windows {

// The part of the window's monitor that is free of the task bar.
RECT workArea(HWND window);
// Where a form of that size starts: in the middle of the area.
RECT usualPlace(const Form::Size& size, const RECT& area);
// Moves a window's rectangle so that a person can take hold of its caption on some monitor.
RECT withinReach(RECT window);
// What border, caption and menu add to the window's inside.
SIZE bordersOf(HWND window);

}  // namespace quillet::windows
