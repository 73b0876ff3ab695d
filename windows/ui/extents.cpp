#include "windows/ui/extents.h"

namespace quillet::windows {

RECT workArea(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  if (GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor)) {
    return monitor.rcWork;
  }
  RECT area{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
  return area;
}

SIZE bordersOf(HWND window) {
  RECT outside{};
  RECT inside{};
  GetWindowRect(window, &outside);
  GetClientRect(window, &inside);
  return {outside.right - outside.left - inside.right,
          outside.bottom - outside.top - inside.bottom};
}

}  // namespace quillet::windows
