#include "windows/ui/window_text.h"

namespace quillet::windows {

std::wstring textOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
  const int copied = GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
  text.resize(static_cast<std::size_t>(copied));
  return text;
}

void showText(HWND window, const std::wstring& text) {
  if (textOf(window) != text) SetWindowTextW(window, text.c_str());
}

}  // namespace quillet::windows
