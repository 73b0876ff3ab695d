#include "windows/ui/choice_view.h"

#include <commctrl.h>

#include "windows/com/text.h"
#include "windows/ui/child_window.h"

namespace quillet::windows {
namespace {

constexpr int mostItems = 12;

// What the messages of one kind of window are called.
struct Messages {
  UINT clear, add, choose;
};
constexpr Messages comboMessages{CB_RESETCONTENT, CB_ADDSTRING, CB_SETCURSEL};
constexpr Messages listMessages{LB_RESETCONTENT, LB_ADDSTRING, LB_SETCURSEL};

// Items change far less often than the choice: they are filled in again only when they differ.
void show(HWND window, const Messages& messages, const Choice& model,
          std::vector<std::string>& items) {
  if (items != model.items()) {
    items = model.items();
    SendMessageW(window, messages.clear, 0, 0);
    for (const std::string& item : items) {
      SendMessageW(window, messages.add, 0, reinterpret_cast<LPARAM>(wide(item).c_str()));
    }
  }
  SendMessageW(window, messages.choose, static_cast<WPARAM>(model.chosen() - 1), 0);
}

}  // namespace

// --- combo box ----------------------------------------------------------------------------------

ComboView::ComboView(ComboBox& combo, view::ActionRunner& runner, HWND parent)
    : ControlView(combo, runner, parent), model_(combo) {
  adopt(makeChild(WC_COMBOBOXW, parent, CBS_DROPDOWNLIST | WS_VSCROLL));
  SendMessageW(window(), CB_SETMINVISIBLE, mostItems, 0);
}

void ComboView::draw() {
  show(window(), comboMessages, model_, items_);
  // Closed, it is as high as the boxes beside it.
  if (!metrics()) return;
  const int inside = metrics()->box() - 2 * GetSystemMetrics(SM_CYEDGE) - metrics()->pixels(2);
  SendMessageW(window(), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), inside);
  SendMessageW(window(), CB_SETITEMHEIGHT, 0, metrics()->row());
}

void ComboView::command(WORD code) {
  if (drawing() || detached()) return;
  if (code == CBN_SELENDOK) {
    choose();
  } else if (code == CBN_CLOSEUP) {
    redraw();  // given up, the list is where the model is
  }
}

void ComboView::choose() {
  const LRESULT at = SendMessageW(window(), CB_GETCURSEL, 0, 0);
  if (at >= 0) perform([&] { model_.choose(static_cast<int>(at) + 1); });
}

std::optional<LRESULT> ComboView::received(const WindowMessage& message) {
  // A turn of the wheel over the box while scrolling past it would change it unseen.
  if (message.id == WM_MOUSEWHEEL && !isOpen()) return 0;
  if (message.id == WM_KEYDOWN && message.wide == VK_F4 && !isCommand()) return {};
  if (isOpen()) return handleOpen(message);
  return ControlView::received(message);
}

// The keys are the open list's own; Tab chooses and goes on.
std::optional<LRESULT> ComboView::handleOpen(const WindowMessage& message) {
  switch (message.id) {
    case WM_KEYDOWN:
      if (message.wide != VK_TAB) return {};
      choose();
      SendMessageW(window(), CB_SHOWDROPDOWN, FALSE, 0);
      return 0;
    case WM_CHAR:
      return search(static_cast<Key>(message.wide));
    case WM_LBUTTONDOWN:
      return {};
    default:
      return ControlView::received(message);
  }
}

// Letters search as they do in a closed box; nothing is chosen before the list closes.
std::optional<LRESULT> ComboView::search(Key letter) {
  if (!keys::typesText(letter)) return {};
  const auto from = static_cast<int>(SendMessageW(window(), CB_GETCURSEL, 0, 0)) + 1;
  const int found = model_.search(letter, from);
  if (found > 0) SendMessageW(window(), CB_SETCURSEL, static_cast<WPARAM>(found - 1), 0);
  return 0;
}

// --- list ---------------------------------------------------------------------------------------

ListView::ListView(ListBox& list, view::ActionRunner& runner, HWND parent)
    : ControlView(list, runner, parent), model_(list) {
  adopt(makeChild(WC_LISTBOXW, parent, LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL,
                  WS_EX_CLIENTEDGE));
}

SIZE ListView::wantedSize(const Metrics& metrics) const {
  return {metrics.characters(20), 4 * metrics.row()};
}

void ListView::draw() { show(window(), listMessages, model_, items_); }

void ListView::command(WORD code) {
  if (drawing() || detached()) return;
  if (code == LBN_SELCHANGE) {
    const LRESULT at = SendMessageW(window(), LB_GETCURSEL, 0, 0);
    if (at >= 0) perform([&] { model_.choose(static_cast<int>(at) + 1); });
  } else if (code == LBN_DBLCLK) {
    perform([&] { model_.form().doubleClick(model_); });
  }
}

// With Ctrl or Shift they would move a choice of the window's own.
bool ListView::commandKey(WPARAM code) { return code >= VK_PRIOR && code <= VK_DOWN; }

}  // namespace quillet::windows
