#include "windows/vtxt/control_window.h"

#include <commctrl.h>
#include <olectl.h>

#include <utility>

#include "controls/scoped_flag.h"
#include "view/message_texts.h"
#include "windows/com/text.h"
#include "windows/ui/child_window.h"
#include "windows/ui/dpi.h"
#include "windows/ui/keys.h"
#include "windows/ui/message_scope.h"
#include "windows/ui/visual_styles.h"
#include "windows/vtxt/vtxt_control.h"

namespace quillet::windows {
namespace {

// As containers are told which keys are held.
constexpr DWORD shiftHeld = 1, controlHeld = 2, altHeld = 4;
// The focus has settled somewhere.
constexpr UINT focusSettled = WM_APP + 1;
constexpr UINT dpiChanged = 0x02E3;  // WM_DPICHANGED_AFTERPARENT, of newer headers

}  // namespace

// --- life ---------------------------------------------------------------------------------------

bool ControlWindow::create(HWND parent, const RECT& where) {
  const HWND made = makeChild(WC_STATICW, parent, WS_CLIPCHILDREN, WS_EX_CONTROLPARENT);
  if (!made) return false;
  adopt(made);
  view_ = std::make_unique<BoxView>(control_, *this);
  update();
  place(where, nullptr);
  return true;
}

ControlWindow::~ControlWindow() { destroy(); }

void ControlWindow::destroy() {
  if (view_) ControlView::discard(std::move(view_));
  if (window()) DestroyWindow(window());
}

bool ControlWindow::owns(HWND other) const {
  return window() && other && (other == window() || IsChild(window(), other));
}

void ControlWindow::show(bool visible) {
  if (window()) ShowWindow(window(), visible ? SW_SHOWNA : SW_HIDE);
}

void ControlWindow::place(const RECT& where, const RECT* shown) {
  if (!window()) return;
  RECT visible = where;
  if (shown) IntersectRect(&visible, &where, shown);
  const bool covered = !EqualRect(&visible, &where);
  OffsetRect(&visible, -where.left, -where.top);
  SetWindowRgn(window(), covered ? CreateRectRgnIndirect(&visible) : nullptr, TRUE);

  const SIZE size{where.right - where.left, where.bottom - where.top};
  SetWindowPos(window(), nullptr, where.left, where.top, size.cx, size.cy,
               SWP_NOZORDER | SWP_NOACTIVATE);
  control_.oleObject.setPixels(size, dpiOf(window()));
}

void ControlWindow::update() {
  if (!view_) return;
  // A form that is being designed gets the mouse itself.
  EnableWindow(window(), control_.site.inUse());
  // Screen readers say what the container calls it, for want of a label.
  const auto name = control_.site.ambient(DISPID_AMBIENT_DISPLAYNAME);
  control_.box().setCaption(name && name->vt == VT_BSTR ? fromBstr(name->bstrVal) : std::string());
  view_->restyle();
  view_->redraw();
}

// --- what a person does -------------------------------------------------------------------------

void ControlWindow::perform(const std::function<void()>& action) {
  const MessageScope scope;
  const bool wasActive = control_.form.active() == &control_.box();
  ++depth_;
  try {
    action();
  } catch (...) {
    --depth_;
    throw;
  }
  if (--depth_ > 0) return;
  // A key, or the box's being disabled, sent the focus on.
  const bool passes = wasActive && control_.form.active() != &control_.box() && hasFocus();
  if (view_) view_->refresh();
  if (passes) passFocusOn();
}

void ControlWindow::tell(const std::string& text) {
  ++interruptions_;
  const ScopedFlag telling(telling_);
  const HWND before = GetFocus();
  const HWND above = window() ? GetAncestor(window(), GA_ROOT) : GetActiveWindow();
  Message message;
  message.text = text;
  const auto frame = control_.inPlace.frame();  // kept: the box may outlast the activation
  if (frame) frame->EnableModeless(FALSE);
  {
    const VisualStyles styles;
    MessageBoxW(above, wide(view::textOf(message)).c_str(), wide(view::titleOf(message)).c_str(),
                MB_OK);
  }
  if (frame) frame->EnableModeless(TRUE);
  if (before && IsWindow(before)) SetFocus(before);
}

bool ControlWindow::offerToContainer(MSG& key) const {
  const auto site = control_.site.query<IOleControlSite>();
  if (!site) return false;
  const DWORD held = (isHeld(VK_SHIFT) ? shiftHeld : 0) | (isHeld(VK_CONTROL) ? controlHeld : 0) |
                     (isHeld(VK_MENU) ? altHeld : 0);
  return site->TranslateAccelerator(&key, held) == S_OK;
}

// --- focus --------------------------------------------------------------------------------------

void ControlWindow::takeFocus() {
  if (view_ && control_.site.inUse()) SetFocus(view_->window());
}

void ControlWindow::focusCame() {
  control_.inPlace.uiActivate();
  if (const auto site = control_.site.query<IOleControlSite>()) site->OnFocus(TRUE);
}

// Where it went is known when it has got there; and a message box must not come up in between.
void ControlWindow::focusWent() {
  if (const auto site = control_.site.query<IOleControlSite>()) site->OnFocus(FALSE);
  PostMessageW(window(), focusSettled, 0, 0);
}

void ControlWindow::followFocus() {
  // A dialog above the window, or another program, has the focus for a while only.
  if (!window() || telling_ || !GetFocus()) return;
  if (!IsWindowEnabled(GetAncestor(window(), GA_ROOT))) return;
  Control& holder = hasFocus() ? static_cast<Control&>(control_.box()) : control_.form.others;
  if (control_.form.active() != &holder) perform([&] { control_.form.focus(holder); });
}

void ControlWindow::passFocusOn() {
  if (!view_) return;
  const HWND box = view_->window();
  MSG tab{};
  tab.hwnd = box;
  tab.message = WM_KEYDOWN;
  tab.wParam = VK_TAB;
  if (!offerToContainer(tab) && hasFocus()) {
    // The container knows nothing of its controls' keys, as a plain dialog does not.
    const HWND next = GetNextDlgTabItem(GetAncestor(window(), GA_ROOT), box, isHeld(VK_SHIFT));
    if (next && !owns(next)) SetFocus(next);
  }
  PostMessageW(window(), focusSettled, 0, 0);  // it may have had nowhere to go
}

// --- messages -----------------------------------------------------------------------------------

std::optional<LRESULT> ControlWindow::handle(const WindowMessage& message) {
  switch (message.id) {
    case WM_SIZE:
      if (view_) {
        MoveWindow(view_->window(), 0, 0, LOWORD(message.longer), HIWORD(message.longer), TRUE);
      }
      return {};
    case WM_COMMAND:
      if (view_) view_->command(HIWORD(message.wide));
      return 0;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:  // the box is locked or disabled
      if (view_) return view_->coloured(reinterpret_cast<HDC>(message.wide));
      return {};
    case WM_SETFOCUS:
      takeFocus();
      return 0;
    case WM_SYSCOLORCHANGE:
      control_.appearance.forgetBrush();
      update();
      return {};
    case dpiChanged:
      update();
      return {};
    case focusSettled:
      followFocus();
      return 0;
    case WM_DESTROY:  // perhaps with the container's window, unasked
      if (view_) ControlView::discard(std::move(view_));
      return {};
    default:
      return {};
  }
}

void ControlWindow::failed() noexcept { reportTrapped(control_.form, "WINDOW"); }

}  // namespace quillet::windows
