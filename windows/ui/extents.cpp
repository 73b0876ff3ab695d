#include "windows/ui/extents.h"

#include <algorithm>
#include <cmath>

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

RECT usualPlace(const Form::Size& size, const RECT& area) {
  const double width = area.right - area.left;
  const double height = area.bottom - area.top;
  const LONG wide = std::lround(std::min(1.0, size.width) * width);
  const LONG high = std::lround(std::min(1.0, size.height) * height);
  const LONG left = area.left + (area.right - area.left - wide) / 2;
  const LONG top = area.top + (area.bottom - area.top - high) / 2;
  return {left, top, left + wide, top + high};
}

RECT withinReach(RECT window) {
  const LONG caption = GetSystemMetrics(SM_CYCAPTION);
  const RECT hold{window.left + caption, window.top, window.right - caption, window.top + caption};
  if (MonitorFromRect(&hold, MONITOR_DEFAULTTONULL)) return window;
  MONITORINFO nearest{};
  nearest.cbSize = sizeof nearest;
  GetMonitorInfoW(MonitorFromRect(&window, MONITOR_DEFAULTTONEAREST), &nearest);
  const RECT& area = nearest.rcWork;
  const LONG left =
      std::clamp(window.left, area.left, std::max(area.left, area.right - 8 * caption));
  const LONG top = std::clamp(window.top, area.top, std::max(area.top, area.bottom - 2 * caption));
  OffsetRect(&window, static_cast<int>(left - window.left), static_cast<int>(top - window.top));
  return window;
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
