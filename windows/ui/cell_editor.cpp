#include "windows/ui/cell_editor.h"

#include <commctrl.h>

#include "data/text.h"
#include "view/typed_text.h"
#include "windows/com/text.h"
#include "windows/ui/child_window.h"
#include "windows/ui/clipboard.h"
#include "windows/ui/keys.h"
#include "windows/ui/window_text.h"

namespace quillet::windows {
namespace {

DWORD styleOf(Align align) {
  if (align == Align::right) return ES_RIGHT;
  return align == Align::center ? ES_CENTER : ES_LEFT;
}

}  // namespace

CellEditor::CellEditor(HWND list, Align align, HFONT font, const RECT& room,
                       const std::string& text, Ended ended)
    : ended_(std::move(ended)) {
  adopt(makeChild(WC_EDITW, list, ES_AUTOHSCROLL | WS_BORDER | styleOf(align)));
  SendMessageW(window(), WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
  SetWindowTextW(window(), wide(text).c_str());
  SendMessageW(window(), EM_SETSEL, 0, -1);
  SetWindowPos(window(), HWND_TOP, room.left, room.top, room.right - room.left,
               room.bottom - room.top, SWP_SHOWWINDOW);
  SetFocus(window());
}

std::string CellEditor::text() const { return utf8(textOf(window())); }

std::optional<LRESULT> CellEditor::handle(const WindowMessage& message) {
  switch (message.id) {
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS;
    case WM_KEYDOWN: {
      const auto command = editingCommand(message.wide);
      if (!command) return {};
      SendMessageW(window(), *command, 0, *command == EM_SETSEL ? -1 : 0);
      return 0;
    }
    case WM_PASTE:
      paste();
      return 0;
    case WM_CHAR:
      return typed(message.wide);
    case WM_KILLFOCUS: {
      const LRESULT done = passOn(message);
      ended_(true);
      return done;
    }
    default:
      return {};
  }
}

void CellEditor::paste() {
  std::string text;
  for (const Key key : view::pastedKeys(clipboardText(window()))) appendCharacter(text, key);
  SendMessageW(window(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(wide(text).c_str()));
}

std::optional<LRESULT> CellEditor::typed(WPARAM character) {
  if (isCommand()) return 0;
  if (character == VK_RETURN || character == VK_TAB) {
    ended_(true);
  } else if (character == VK_ESCAPE) {
    ended_(false);
  } else {
    return {};
  }
  return 0;
}

}  // namespace quillet::windows
