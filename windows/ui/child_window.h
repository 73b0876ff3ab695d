// Makes the windows of the controls inside a form's window.
#pragma once

#include <windows.h>

namespace quillet::windows {

// A child window that is not shown yet.
HWND makeChild(const wchar_t* windowClass, HWND parent, DWORD style, DWORD extended = 0);

}  // namespace quillet::windows
