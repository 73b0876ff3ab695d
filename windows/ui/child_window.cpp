#include "windows/ui/child_window.h"

#include "windows/ui/this_module.h"
#include "windows/ui/visual_styles.h"

namespace quillet::windows {

HWND makeChild(const wchar_t* windowClass, HWND parent, DWORD style, DWORD extended) {
  const VisualStyles styles;
  return CreateWindowExW(extended, windowClass, L"", WS_CHILD | WS_CLIPSIBLINGS | style, 0, 0, 0, 0,
                         parent, nullptr, thisModule(), nullptr);
}

}  // namespace quillet::windows
