// Dots per inch. The component follows its host's awareness and sets none of its own; a Windows
// that knows one resolution for all monitors is asked for that one.
#pragma once

#include <windows.h>

namespace quillet::windows {

inline constexpr UINT usualDpi = 96;

UINT dpiOf(HWND window);
// The fonts and measures of the system's own windows at that resolution.
NONCLIENTMETRICSW systemMetrics(UINT dpi);
// A measure of GetSystemMetrics at that resolution.
int systemMeasure(int index, UINT dpi);

}  // namespace quillet::windows
