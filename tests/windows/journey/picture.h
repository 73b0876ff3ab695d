// Pictures of what stands on the screen.
#pragma once

#include <windows.h>

#include <string>

namespace quillet::journey {

// Saves the window as it is on the screen, with what lies above it, as a bitmap file. Throws when
// that cannot be done.
void savePicture(HWND window, const std::string& file);

}  // namespace quillet::journey
