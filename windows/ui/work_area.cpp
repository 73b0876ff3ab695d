#include "windows/ui/work_area.h"

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

}  // namespace quillet::windows
