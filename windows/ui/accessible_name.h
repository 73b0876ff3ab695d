// The name by which a screen reader speaks of a window.
#pragma once

#include <windows.h>

#include <string>

namespace quillet::windows {

void setAccessibleName(HWND window, const std::wstring& name);
void forgetAccessibleName(HWND window);

}  // namespace quillet::windows
