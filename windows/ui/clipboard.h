// The clipboard, as the text boxes use it.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace quillet::windows {

// The clipboard's text, "" when it holds none.
std::string clipboardText(HWND window);

void setClipboardText(HWND window, const std::string& text);

// The message that a key with Ctrl or Shift stands for in every box of text: WM_COPY, WM_CUT,
// WM_PASTE, WM_UNDO, or EM_SETSEL for selecting everything.
std::optional<UINT> editingCommand(WPARAM virtualKey);
// Whether a box of text uses the key itself, whatever else the form does with it.
bool isEditingKey(WPARAM virtualKey);

}  // namespace quillet::windows
