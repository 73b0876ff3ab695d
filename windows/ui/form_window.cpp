#include "windows/ui/form_window.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "windows/com/text.h"
#include "windows/ui/dpi.h"
#include "windows/ui/window_text.h"

namespace quillet::windows {

void FormWindow::failed() noexcept {
  if (!detached_) reportTrapped(form_, "WINDOW");
}

FormWindow::FormWindow(Form& form, FormWindows& windows, HWND below,
                       const FormWindows::Place& place)
    : TopWindow(form.modal() ? below : nullptr), form_(form), windows_(windows), menu_(form) {
  font_ = {form.size.font, place.fontPoints, place.fontName};
  BOOL always = TRUE;
  SystemParametersInfoW(SPI_GETKEYBOARDCUES, 0, &always, 0);
  cuesShown_ = always != FALSE;
  if (!window()) return;
  metrics_ = std::make_unique<Metrics>(dpiOf(window()), font_);
  views_ = std::make_unique<FormViews>(form, windows, windows.keptPlaces(), window());
  views_->setMetrics(*metrics_);
  lists_ = std::make_unique<DropDowns>(form, windows, window());
  lists_->setMetrics(*metrics_);
  guarded([&] {
    draw();
    takeSize(below ? below : window(), place);
    restore();
  });
}

FormWindow::~FormWindow() {
  detach();
  release();
}

// --- drawing ------------------------------------------------------------------------------------

void FormWindow::refresh() noexcept {
  if (detached_ || !lists_) return;
  guarded([&] {
    if (drawn_ != form_.version()) draw();
    followFocus();
  });
}

void FormWindow::draw() {
  drawn_ = form_.version();
  showText(window(), wide(form_.caption()));
  menu_.refresh(window());
  if (arranged_ != form_.arrangementVersion()) {
    arranged_ = form_.arrangementVersion();
    views_->arrange();
    lists_->arrange();
    showCues(cuesShown_);
  }
  place();
  fitFonts();
  grow();
  views_->refresh();
  lists_->refresh(*views_);
}

void FormWindow::place() {
  RECT room{};
  GetClientRect(window(), &room);
  needs_ = views_->place(room);
}

void FormWindow::followFocus() {
  if (GetActiveWindow() != window()) return;
  ControlView* active = views_->viewOf(form_.active());
  if (!active) {
    if (GetFocus() != window()) SetFocus(window());
  } else if (!active->hasFocus()) {
    active->takeFocus();
  }
}

// --- coming and going ---------------------------------------------------------------------------

void FormWindow::show() {
  if (!window()) return;
  const bool maximizes = std::exchange(maximizes_, false);
  ShowWindow(window(), maximizes ? SW_SHOWMAXIMIZED : IsIconic(window()) ? SW_RESTORE : SW_SHOW);
  if (GetActiveWindow() != window() || GetForegroundWindow() != window()) {
    SetForegroundWindow(window());
    SetActiveWindow(window());
  }
  // A host may take long until it looks for messages again.
  RedrawWindow(window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void FormWindow::cover() {
  if (!covered_) covered_.emplace(window());
}

void FormWindow::detach() {
  detached_ = true;
  if (lists_) lists_->detach();
  if (views_) views_->detach();
}

void FormWindow::close(HWND next) {
  // First of all: Windows would look for another window to work in, whosever it is.
  covered_.reset();
  if (!window()) return;
  const bool active = GetActiveWindow() == window();
  if (active && IsWindowVisible(next) && IsWindowEnabled(next)) SetActiveWindow(next);
  ShowWindow(window(), SW_HIDE);
}

void FormWindow::forgetOwner(HWND owner) {
  if (GetWindow(window(), GW_OWNER) != owner) return;
  SetWindowLongPtrW(window(), GWLP_HWNDPARENT, 0);
}

void FormWindow::lost() {
  covered_.reset();
  if (!detached_) windows_.lost(form_);
}

// --- messages -----------------------------------------------------------------------------------

std::optional<LRESULT> FormWindow::handle(UINT message, WPARAM wide, LPARAM longer) {
  if (detached_ || !lists_) return {};
  switch (message) {
    case WM_SIZE:
      resized(wide);
      return 0;
    case WM_MOVE:
      lists_->refresh(*views_);
      return 0;
    case WM_CLOSE:
      windows_.perform([&] { form_.close(); });
      return 0;
    case WM_SETFOCUS:
      followFocus();
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wide) != WA_INACTIVE) windows_.activated(form_);
      return {};
    case WM_SYSCHAR:
      if (access(static_cast<wchar_t>(wide))) return 0;
      return {};
    case WM_KEYDOWN:
    case WM_CHAR:
    case WM_UNICHAR:
    case WM_IME_CHAR:
      return keys(message, wide);
    case WM_COMMAND:
      return command(wide, longer);
    case WM_NOTIFY: {
      auto& what = *reinterpret_cast<NMHDR*>(longer);
      ControlView* view = views_->viewOf(what.hwndFrom);
      return view ? view->notified(what) : std::nullopt;
    }
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORLISTBOX:
      return coloured(reinterpret_cast<HDC>(wide), reinterpret_cast<HWND>(longer));
    default:
      return system(message, wide, longer);
  }
}

std::optional<LRESULT> FormWindow::system(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_GETMINMAXINFO:
      bound(*reinterpret_cast<MINMAXINFO*>(longer));
      return 0;
    case WM_DPICHANGED: {
      const auto& wanted = *reinterpret_cast<const RECT*>(longer);
      takeFonts(HIWORD(wide));
      MoveWindow(window(), wanted.left, wanted.top, wanted.right - wanted.left,
                 wanted.bottom - wanted.top, TRUE);
      return 0;
    }
    case WM_SETTINGCHANGE:
    case WM_SYSCOLORCHANGE:
      views_->systemChanged(message, wide, longer);
      [[fallthrough]];
    case WM_THEMECHANGED:
      takeFonts(dpiOf(window()));
      RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
      return {};
    default:
      return {};
  }
}

std::optional<LRESULT> FormWindow::command(WPARAM wide, LPARAM longer) {
  if (longer == 0) {
    if (MenuEntry* entry = menu_.entry(LOWORD(wide))) {
      windows_.perform([&] { form_.click(*entry); });
    }
  } else if (ControlView* view = views_->viewOf(reinterpret_cast<HWND>(longer))) {
    view->command(HIWORD(wide));
  }
  return 0;
}

std::optional<LRESULT> FormWindow::coloured(HDC paper, HWND part) {
  if (ControlView* view = views_->viewOf(part)) return view->coloured(paper);
  // The label of a field.
  SetTextColor(paper, GetSysColor(COLOR_BTNTEXT));
  SetBkColor(paper, GetSysColor(COLOR_BTNFACE));
  return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
}

// No control has the focus: the form still sees every key.
std::optional<LRESULT> FormWindow::keys(UINT message, WPARAM wide) {
  const KeyReader::Result read = keys_.read(message, wide);
  if (!read.used) return {};
  for (const Key key : read.keys) windows_.perform([&] { form_.press(key); });
  return message == WM_UNICHAR ? 1 : 0;
}

bool FormWindow::access(wchar_t character) {
  const view::AccessKeys::Meaning meaning = access_.press(form_, character);
  switch (meaning.deed) {
    case view::AccessKeys::Deed::click:
      windows_.perform([&] { form_.click(*meaning.control); });
      return true;
    case view::AccessKeys::Deed::focus:
      windows_.perform([&] { form_.focus(*meaning.control); });
      return true;
    default:
      return false;  // Windows opens the menu
  }
}

// Access keys are underlined from the first Alt on, or always: as the system is set.
void FormWindow::showCues(bool shown) {
  cuesShown_ = shown;
  const WPARAM how = MAKEWPARAM(shown ? UIS_CLEAR : UIS_SET, UISF_HIDEACCEL);
  SendMessageW(window(), WM_UPDATEUISTATE, how, 0);
}

bool FormWindow::shortcut(const MSG& message) noexcept {
  if (detached_ || (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN))
    return false;
  bool used = false;
  guarded([&] {
    if (!cuesShown_ && (message.wParam == VK_MENU || message.wParam == VK_F10)) showCues(true);
    if (message.message == WM_KEYDOWN) access_.forget();
    const ControlView* active = views_->viewOf(form_.active());
    if (active && active->keepsKey(message.wParam)) return;
    Control* command = menu_.shortcut(message.wParam);
    if (!command && message.wParam == VK_F1) command = form_.find("mnuhelp");
    if (!command || !command->clickable()) return;
    used = true;
    windows_.perform([&] { form_.click(*command); });
  });
  return used;
}

}  // namespace quillet::windows
