// How much room there is for windows, and how much of it their borders take.
#pragma once

#include <windows.h>

namespace quillet::windows {

// The part of the window's monitor that is free of the task bar.
RECT workArea(HWND window);
// What border, caption and menu add to the window's inside.
SIZE bordersOf(HWND window);

}  // namespace quillet::windows
