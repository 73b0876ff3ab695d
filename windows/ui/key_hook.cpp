#include "windows/ui/key_hook.h"

#include <utility>

namespace quillet::windows {
namespace {

KeyHook* current = nullptr;

bool isKey(const MSG& message) {
  return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
}

// While a menu is open or a window is being moved, keys are for that and not for the window that
// has the focus.
bool keysGoElsewhere() {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  constexpr DWORD loops = GUI_INMENUMODE | GUI_SYSTEMMENUMODE | GUI_POPUPMENUMODE | GUI_INMOVESIZE;
  return GetGUIThreadInfo(GetCurrentThreadId(), &info) && (info.flags & loops) != 0;
}

}  // namespace

KeyHook::KeyHook(Filter filter)
    : filter_(std::move(filter)),
      hook_(SetWindowsHookExW(WH_GETMESSAGE, taken, nullptr, GetCurrentThreadId())) {
  current = this;
}

KeyHook::~KeyHook() {
  if (hook_) UnhookWindowsHookEx(hook_);
  current = nullptr;
}

LRESULT CALLBACK KeyHook::taken(int code, WPARAM removed, LPARAM parameter) {
  auto& message = *reinterpret_cast<MSG*>(parameter);
  if (code == HC_ACTION && removed == PM_REMOVE && current && isKey(message) &&
      !keysGoElsewhere()) {
    // The hook may go while the key is at work.
    const Filter filter = current->filter_;
    const MSG key = message;
    if (filter(key)) {
      message.message = WM_NULL;
      message.wParam = 0;
      message.lParam = 0;
    }
  }
  return CallNextHookEx(nullptr, code, removed, parameter);
}

}  // namespace quillet::windows
