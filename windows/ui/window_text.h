// The texts of windows.
#pragma once

#include <windows.h>

#include <string>

namespace quillet::windows {

std::wstring textOf(HWND window);
// Sets it when it differs, since setting it draws the window anew.
void showText(HWND window, const std::wstring& text);

}  // namespace quillet::windows
