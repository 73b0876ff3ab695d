#include "windows/ui/tool_tip.h"

#include <commctrl.h>

#include "windows/ui/this_module.h"
#include "windows/ui/visual_styles.h"

namespace quillet::windows {

ToolTip::~ToolTip() {
  if (tip_ && IsWindow(tip_)) DestroyWindow(tip_);
}

void ToolTip::show(HWND window, const std::wstring& text, const std::optional<RECT>& room) {
  if (text == text_ && (text.empty() || !room)) return;
  text_ = text;
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_SUBCLASS;
  tool.hwnd = window;
  tool.uId = 1;
  tool.lpszText = text_.data();
  if (room) {
    tool.rect = *room;
  } else {
    tool.uFlags |= TTF_IDISHWND;
    tool.uId = reinterpret_cast<UINT_PTR>(window);
  }
  const auto send = [&](UINT message) {
    SendMessageW(tip_, message, 0, reinterpret_cast<LPARAM>(&tool));
  };
  if (!tip_) {
    const VisualStyles styles;
    tip_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, 0, 0,
                           0, 0, window, nullptr, thisModule(), nullptr);
    SendMessageW(tip_, TTM_SETMAXTIPWIDTH, 0, 600);
    send(TTM_ADDTOOLW);
  }
  send(TTM_POP);
  send(TTM_UPDATETIPTEXTW);
  if (room) send(TTM_NEWTOOLRECTW);
}

}  // namespace quillet::windows
