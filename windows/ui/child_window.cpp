#include "windows/ui/child_window.h"

#include "windows/ui/this_module.h"
#include "windows/ui/visual_styles.h"

namespace quillet::windows {

HWND makeChild(const wchar_t* windowClass, HWND parent, DWORD style, DWORD extended) {
  const VisualStyles styles;
  // A box of text scrolls when its text is wider than itself, and stays so when it is made wider.
  constexpr int widerThanTexts = 1000;
  return CreateWindowExW(extended, windowClass, L"", WS_CHILD | WS_CLIPSIBLINGS | style, 0, 0,
                         widerThanTexts, 0, parent, nullptr, thisModule(), nullptr);
}

}  // namespace quillet::windows
