#include "windows/ui/clipboard.h"

#include "windows/com/text.h"
#include "windows/ui/keys.h"

namespace quillet::windows {

std::string clipboardText(HWND window) {
  if (!OpenClipboard(window)) return {};
  std::string text;
  if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
    if (const auto* units = static_cast<const wchar_t*>(GlobalLock(data))) {
      text = utf8(units);
      GlobalUnlock(data);
    }
  }
  CloseClipboard();
  return text;
}

std::optional<UINT> editingCommand(WPARAM virtualKey) {
  const bool ctrl = isHeld(VK_CONTROL);
  const bool shift = isHeld(VK_SHIFT);
  if (isHeld(VK_MENU) || ctrl == shift) return {};
  switch (virtualKey) {
    case VK_INSERT:
      return ctrl ? WM_COPY : WM_PASTE;
    case VK_DELETE:
      if (shift) return WM_CUT;
      return {};
    default:
      break;
  }
  if (shift) return {};
  switch (virtualKey) {
    case 'A':
      return EM_SETSEL;
    case 'C':
      return WM_COPY;
    case 'V':
      return WM_PASTE;
    case 'X':
      return WM_CUT;
    case 'Z':
      return WM_UNDO;
    default:
      return {};
  }
}

bool isEditingKey(WPARAM virtualKey) {
  if (editingCommand(virtualKey)) return true;
  const bool deletes = virtualKey == VK_DELETE || virtualKey == VK_BACK;
  return deletes && isHeld(VK_CONTROL) && !isHeld(VK_MENU);
}

}  // namespace quillet::windows
