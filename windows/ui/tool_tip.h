// The tip that appears while the mouse rests on a part of a window.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace quillet::windows {

class ToolTip {
 public:
  ToolTip() = default;
  ~ToolTip();
  ToolTip(const ToolTip&) = delete;
  ToolTip& operator=(const ToolTip&) = delete;

  // For the whole window, or for the room in it; an empty text shows none.
  void show(HWND window, const std::wstring& text, const std::optional<RECT>& room = {});

 private:
  HWND tip_ = nullptr;  // made with the first text
  std::wstring text_;
};

}  // namespace quillet::windows
