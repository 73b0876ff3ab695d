#include "windows/ui/kept_window.h"

namespace quillet::windows {
namespace {

view::Bounds boundsOf(const RECT& rect) {
  return {static_cast<int>(rect.left), static_cast<int>(rect.top),
          static_cast<int>(rect.right - rect.left), static_cast<int>(rect.bottom - rect.top)};
}

MONITORINFO monitorOf(HMONITOR monitor) {
  MONITORINFO found{};
  found.cbSize = sizeof found;
  GetMonitorInfoW(monitor, &found);
  return found;
}

}  // namespace

std::optional<view::WindowPlace> placeOf(HWND window) {
  if (!window || IsIconic(window)) return {};
  RECT room{};
  if (!IsZoomed(window)) {
    GetWindowRect(window, &room);
    return view::WindowPlace{boundsOf(room), false};
  }
  // Counted from the corner of the area that the task bar leaves free.
  WINDOWPLACEMENT usual{};
  usual.length = sizeof usual;
  GetWindowPlacement(window, &usual);
  const MONITORINFO monitor = monitorOf(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST));
  room = usual.rcNormalPosition;
  OffsetRect(&room, static_cast<int>(monitor.rcWork.left - monitor.rcMonitor.left),
             static_cast<int>(monitor.rcWork.top - monitor.rcMonitor.top));
  return view::WindowPlace{boundsOf(room), true};
}

void restorePlace(HWND window, const view::WindowPlace& place) {
  const auto& [left, top, width, height] = place.bounds;
  const RECT wanted{left, top, left + width, top + height};
  const MONITORINFO monitor = monitorOf(MonitorFromRect(&wanted, MONITOR_DEFAULTTONEAREST));
  const view::Bounds at = view::within(place.bounds, boundsOf(monitor.rcWork));
  MoveWindow(window, at.left, at.top, at.width, at.height, FALSE);
}

}  // namespace quillet::windows
