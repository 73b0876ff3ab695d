#include "windows/ui/owned_window.h"

#include <commctrl.h>

#include "windows/ui/message_scope.h"

namespace quillet::windows {

OwnedWindow::~OwnedWindow() {
  if (!window_) return;
  RemoveWindowSubclass(window_, receive, 0);
  DestroyWindow(window_);
}

void OwnedWindow::adopt(HWND window) {
  window_ = window;
  SetWindowSubclass(window, receive, 0, reinterpret_cast<DWORD_PTR>(this));
}

LRESULT OwnedWindow::passOn(const WindowMessage& message) {
  return window_ ? DefSubclassProc(window_, message.id, message.wide, message.longer) : 0;
}

LRESULT OwnedWindow::receive(HWND window, UINT id, WPARAM wide, LPARAM longer, UINT_PTR,
                             DWORD_PTR owner) {
  const MessageScope scope;
  auto& self = *reinterpret_cast<OwnedWindow*>(owner);
  if (id == WM_NCDESTROY) {
    RemoveWindowSubclass(window, receive, 0);
    self.window_ = nullptr;
    return DefSubclassProc(window, id, wide, longer);
  }
  try {
    const auto answer = self.handle({id, wide, longer});
    return answer ? *answer : self.passOn({id, wide, longer});
  } catch (...) {
    self.failed();
    return 0;
  }
}

}  // namespace quillet::windows
