#include "windows/ui/modal.h"

#include <algorithm>
#include <map>

namespace quillet::windows {
namespace {

// How often each window is covered. One that was disabled by somebody else is not among them.
std::map<HWND, int>& covers() {
  static std::map<HWND, int> counts;
  return counts;
}

BOOL CALLBACK gather(HWND window, LPARAM into) {
  auto& windows = *reinterpret_cast<std::vector<HWND>*>(into);
  if (IsWindowVisible(window) && (IsWindowEnabled(window) || covers().contains(window))) {
    windows.push_back(window);
  }
  return TRUE;
}

}  // namespace

Covered::Covered(HWND except) {
  EnumThreadWindows(GetCurrentThreadId(), gather, reinterpret_cast<LPARAM>(&windows_));
  std::erase(windows_, except);
  for (const HWND window : windows_) {
    if (++covers()[window] == 1) EnableWindow(window, FALSE);
  }
}

Covered::~Covered() {
  for (const HWND window : windows_) {
    if (--covers()[window] > 0) continue;
    covers().erase(window);
    if (IsWindow(window)) EnableWindow(window, TRUE);
  }
}

}  // namespace quillet::windows
