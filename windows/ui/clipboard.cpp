#include "windows/ui/clipboard.h"

#include <cstring>

#include "windows/com/text.h"
#include "windows/ui/keys.h"

namespace quillet::windows {

namespace {

// The clipboard, open for reading.
class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND window) : opened_(OpenClipboard(window)) {
    if (opened_) data_ = GetClipboardData(CF_UNICODETEXT);
    if (data_) units_ = static_cast<const wchar_t*>(GlobalLock(data_));
  }
  ~OpenedClipboard() {
    if (units_) GlobalUnlock(data_);
    if (opened_) CloseClipboard();
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;

  // Null when there is none.
  const wchar_t* text() const { return units_; }

 private:
  bool opened_;
  HANDLE data_ = nullptr;
  const wchar_t* units_ = nullptr;
};

}  // namespace

std::string clipboardText(HWND window) {
  const OpenedClipboard clipboard(window);
  return clipboard.text() ? utf8(clipboard.text()) : std::string();
}

void setClipboardText(HWND window, const std::string& text) {
  const std::wstring units = wide(text);
  const std::size_t bytes = (units.size() + 1) * sizeof(wchar_t);
  if (!OpenClipboard(window)) return;
  EmptyClipboard();
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
  if (void* place = memory ? GlobalLock(memory) : nullptr) {
    std::memcpy(place, units.c_str(), bytes);
    GlobalUnlock(memory);
    // The system owns the memory from then on.
    if (!SetClipboardData(CF_UNICODETEXT, memory)) GlobalFree(memory);
  }
  CloseClipboard();
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
