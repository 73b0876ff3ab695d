// The part of a monitor that windows may take up: without the task bar.
#pragma once

#include <windows.h>

namespace quillet::windows {

// Of the monitor on which the window is.
RECT workArea(HWND window);

}  // namespace quillet::windows
