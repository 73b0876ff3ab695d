#include "windows/ui/mask_view.h"

#include <commctrl.h>
#include <imm.h>

#include "view/mask_text.h"
#include "view/typed_text.h"
#include "windows/com/text.h"
#include "windows/ui/child_window.h"
#include "windows/ui/clipboard.h"
#include "windows/ui/window_text.h"

namespace quillet::windows {

MaskView::MaskView(MaskBox& box, view::ActionRunner& runner, HWND parent)
    : ControlView(box, runner, parent), box_(box) {
  adopt(makeChild(WC_EDITW, parent, ES_AUTOHSCROLL, WS_EX_CLIENTEDGE));
  ImmAssociateContextEx(window(), nullptr, 0);  // there is nothing to compose in a date
}

SIZE MaskView::wantedSize(const Metrics& metrics) const {
  return {metrics.characters(11) + 2 * metrics.step(), metrics.box()};
}

void MaskView::draw() {
  showText(window(), wide(view::shownText(box_)));
  showCaret();
}

void MaskView::showCaret() {
  SendMessageW(window(), EM_SETSEL, box_.caret(), static_cast<LPARAM>(box_.caret()));
}

void MaskView::keysTyped(const std::vector<Key>& typed) {
  typeAll(typed, [this](Key key) {
    pressAll({key});
    return true;
  });
}

bool MaskView::keepsKey(WPARAM code) const { return isEditingKey(code); }

bool MaskView::commandKey(WPARAM code) {
  const auto command = editingCommand(code);
  if (command && *command != EM_SETSEL) SendMessageW(window(), *command, 0, 0);
  // Moving the caret with Ctrl or Shift selects, and there is nothing to be selected.
  return command || code == VK_LEFT || code == VK_RIGHT || code == VK_HOME || code == VK_END ||
         code == VK_UP || code == VK_DOWN || code == VK_DELETE;
}

bool MaskView::mousePressed(const WindowMessage& message, bool) {
  if (message.id != WM_LBUTTONDOWN) return true;
  const LRESULT place = SendMessageW(window(), EM_CHARFROMPOS, 0, message.longer);
  perform([&] { box_.setCaret(LOWORD(place)); });
  return true;
}

LRESULT MaskView::copy() {
  SendMessageW(window(), EM_SETSEL, 0, -1);
  const LRESULT done = passOn({WM_COPY, 0, 0});
  showCaret();
  return done;
}

std::optional<LRESULT> MaskView::received(const WindowMessage& message) {
  switch (message.id) {
    case WM_PASTE:
      keysTyped(view::pastedKeys(clipboardText(window())));
      return 0;
    case WM_COPY:
      return copy();
    case WM_CHAR: {
      const auto used = ControlView::received(message);
      return used.value_or(0);
    }
    case WM_CUT:
    case WM_CLEAR:
    case WM_UNDO:
    case EM_UNDO:
    case WM_CONTEXTMENU:
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONUP:
      return 0;
    default:
      return ControlView::received(message);
  }
}

}  // namespace quillet::windows
