#include "windows/ui/text_view.h"

#include <commctrl.h>
#include <imm.h>

#include <algorithm>

#include "controls/scoped_flag.h"
#include "data/text.h"
#include "view/box_typing.h"
#include "view/cell_look.h"
#include "view/figure_groups.h"
#include "view/typed_text.h"
#include "windows/com/text.h"
#include "windows/ui/child_window.h"
#include "windows/ui/clipboard.h"
#include "windows/ui/window_text.h"

namespace quillet::windows {
namespace {

DWORD alignmentOf(const TextBox& box) { return box.rightAligned() ? ES_RIGHT : ES_LEFT; }

bool splitsPair(const std::wstring& text, std::size_t at) {
  return at > 0 && at < text.size() && IS_SURROGATE_PAIR(text[at - 1], text[at]);
}

}  // namespace

TextView::TextView(TextBox& box, view::ActionRunner& runner, HWND parent)
    : ControlView(box, runner, parent), box_(box) {
  adopt(makeChild(WC_EDITW, parent, ES_AUTOHSCROLL | alignmentOf(box), WS_EX_CLIENTEDGE));
  SendMessageW(window(), EM_SETLIMITTEXT, 0, 0);  // the model has the limit
}

// --- drawing ------------------------------------------------------------------------------------

void TextView::draw() {
  showText(window(), shownText());
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(window(), GWL_STYLE));
  if ((style & ES_RIGHT) != alignmentOf(box_)) {
    SetWindowLongPtrW(window(), GWL_STYLE,
                      static_cast<LONG_PTR>((style & ~DWORD{ES_RIGHT}) | alignmentOf(box_)));
    InvalidateRect(window(), nullptr, TRUE);
  }
  if (((style & ES_READONLY) != 0) != box_.locked()) {
    SendMessageW(window(), EM_SETREADONLY, box_.locked(), 0);
  }
  constexpr wchar_t bullet = L'\u25CF';
  if (const WPARAM mark = box_.secret() ? bullet : 0;
      static_cast<WPARAM>(SendMessageW(window(), EM_GETPASSWORDCHAR, 0, 0)) != mark) {
    SendMessageW(window(), EM_SETPASSWORDCHAR, mark, 0);
  }
  showSelection();
}

// Figures that are only read are marked where they have no room.
std::wstring TextView::shownText() const {
  const std::string text = view::shownText(box_, hasFocus());
  if (!metrics() || !box_.locked() || !box_.rightAligned() || hasFocus()) return wide(text);
  RECT room{};
  SendMessageW(window(), EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
  return wide(view::figuresIn(room.right - room.left, text, [this](const std::string& of) {
    return metrics()->widthOf(wide(of));
  }));
}

// A box without the focus shows where its text begins.
void TextView::showSelection() {
  if (!hasFocus()) return select({0, 0});
  const std::wstring text = wide(box_.text());
  const std::wstring_view units = text;
  select({static_cast<DWORD>(view::unitsOf(units, box_.selStart())),
          static_cast<DWORD>(view::unitsOf(units, box_.selStart() + box_.selLength()))});
}

TextView::Selection TextView::selection() const {
  Selection units;
  SendMessageW(window(), EM_GETSEL, reinterpret_cast<WPARAM>(&units.start),
               reinterpret_cast<LPARAM>(&units.end));
  return units;
}

void TextView::select(Selection units) {
  const Selection now = selection();
  if (now.start == units.start && now.end == units.end) return;
  SendMessageW(window(), EM_SETSEL, units.start, static_cast<LPARAM>(units.end));
  SendMessageW(window(), EM_SCROLLCARET, 0, 0);
}

// --- keys ---------------------------------------------------------------------------------------

void TextView::keysTyped(const std::vector<Key>& typed) {
  followSelection();
  if (typed.size() > 1) return paste(typed);
  typeAll(typed,
          [this](Key key) { return view::typeInto(box_, key, [this](Key left) { edit(left); }); });
}

void TextView::paste(const std::string& text) {
  if (!box_.locked() && !takesCells(text)) keysTyped(view::pastedKeys(text, box_.maxLength()));
}

// A window is slow at each edit of a long text, so the model takes the keys and the window what
// came of them, as one edit that can be undone.
void TextView::paste(const std::vector<Key>& typed) {
  perform([&] {
    typeAll(typed, [this](Key key) {
      return view::typeInto(box_, key, [this](Key left) { box_.handleKey(left); });
    });
    if (!detached() && window()) showPasted();
  });
}

void TextView::showPasted() {
  const std::wstring before = textOf(window());
  const std::wstring after = wide(box_.text());
  if (before == after) return;
  const std::size_t both = std::min(before.size(), after.size());
  std::size_t start = 0;
  while (start < both && before[start] == after[start]) ++start;
  std::size_t end = 0;
  while (end < both - start && before[before.size() - 1 - end] == after[after.size() - 1 - end]) {
    ++end;
  }
  const ScopedFlag guard(showingPasted_);
  select({static_cast<DWORD>(start), static_cast<DWORD>(before.size() - end)});
  const std::wstring put = after.substr(start, after.size() - start - end);
  SendMessageW(window(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(put.c_str()));
}

void TextView::edit(Key key) {
  refresh();  // what the handlers changed comes before what the key does
  const std::size_t start = box_.selStart();
  const std::size_t length = box_.selLength();
  if (key != keys::Backspace && key != keys::Delete) {
    std::string typed;
    appendCharacter(typed, key);
    replace(start, length, typed);
  } else if (length > 0) {
    replace(start, length, {});
  } else if (key == keys::Delete) {
    replace(start, 1, {});
  } else if (start > 0) {
    replace(start - 1, 1, {});
  }
}

void TextView::replace(std::size_t start, std::size_t length, const std::string& text) {
  const std::wstring before = textOf(window());
  const std::wstring_view units = before;
  select({static_cast<DWORD>(view::unitsOf(units, start)),
          static_cast<DWORD>(view::unitsOf(units, start + length))});
  SendMessageW(window(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(wide(text).c_str()));
}

bool TextView::keepsKey(WPARAM code) const { return isEditingKey(code); }

bool TextView::commandKey(WPARAM code) {
  const auto command = editingCommand(code);
  if (!command) return false;
  SendMessageW(window(), *command, 0, *command == EM_SETSEL ? -1 : 0);
  followSelection();
  return true;
}

// --- what the window edited by itself: cutting, undoing ------------------------------------------

void TextView::command(WORD code) {
  if (code == EN_CHANGE && !drawing() && !showingPasted_ && !detached()) handOver();
}

void TextView::handOver() {
  const std::wstring text = textOf(window());
  const std::size_t caret = view::charactersOf(std::wstring_view(text), selection().end);
  perform([&] { box_.edited(utf8(text), caret); });
}

void TextView::followSelection() {
  if (drawing() || detached() || !hasFocus()) return;
  const std::wstring text = textOf(window());
  if (utf8(text) != box_.text()) return;
  const Selection units = selection();
  view::selectUnits(box_, std::wstring_view(text), units.start, units.end);
}

// --- messages -----------------------------------------------------------------------------------

std::optional<LRESULT> TextView::received(const WindowMessage& message) {
  switch (message.id) {
    case WM_PASTE:
      paste(clipboardText(window()));
      return 0;
    case WM_IME_COMPOSITION:
      if (message.longer & GCS_RESULTSTR) return compose(message);
      return {};
    case WM_KEYDOWN:
      if (const auto used = ControlView::received(message)) return used;
      return moveCaret(message);
    case WM_CHAR: {
      const auto used = ControlView::received(message);
      return used.value_or(0);  // the characters of commands are none of the window's
    }
    case WM_SIZE: {
      const LRESULT done = passOn(message);
      if (box_.locked() && !detached()) redraw();
      return done;
    }
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_CONTEXTMENU: {
      const LRESULT done = passOn(message);
      followSelection();
      return done;
    }
    case WM_SETFOCUS:
    case WM_KILLFOCUS: {
      const auto answer = ControlView::received(message);
      const LRESULT done = answer ? *answer : passOn(message);
      if (detached()) return done;
      if (box_.locked()) redraw();
      showSelection();
      return done;
    }
    default:
      return ControlView::received(message);
  }
}

// Lets the window move its caret or select, over both halves of a pair at once.
LRESULT TextView::moveCaret(const WindowMessage& message) {
  LRESULT done = passOn(message);
  const std::wstring text = textOf(window());
  const Selection units = selection();
  if (splitsPair(text, units.start) || splitsPair(text, units.end)) done = passOn(message);
  followSelection();
  return done;
}

bool TextView::mousePressed(const WindowMessage& message, bool arrived) {
  // A box that selects its text when it gets the focus keeps it selected under the click.
  return message.id == WM_LBUTTONDOWN && arrived && box_.selLength() > 0;
}

// What an input method has composed is typed; the window keeps what is being composed.
LRESULT TextView::compose(const WindowMessage& message) {
  const HIMC method = ImmGetContext(window());
  const LONG bytes = ImmGetCompositionStringW(method, GCS_RESULTSTR, nullptr, 0);
  std::wstring composed(bytes > 0 ? static_cast<std::size_t>(bytes) / sizeof(wchar_t) : 0, L'\0');
  if (bytes > 0) {
    ImmGetCompositionStringW(method, GCS_RESULTSTR, composed.data(), static_cast<DWORD>(bytes));
  }
  ImmReleaseContext(window(), method);
  const LRESULT done = passOn({message.id, message.wide, message.longer & ~GCS_RESULTSTR});
  if (!box_.locked()) keysTyped(view::typedKeys(utf8(composed)));
  return done;
}

}  // namespace quillet::windows
