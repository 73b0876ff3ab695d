#include "windows/vtxt/box_view.h"

#include <ocidl.h>
#include <windowsx.h>

#include <utility>

#include "windows/ui/dpi.h"
#include "windows/vtxt/vtxt_control.h"

namespace quillet::windows {
namespace {

enum Button : short { left = 1, right = 2, middle = 4 };

short buttonOf(UINT id) {
  switch (id) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
      return left;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
      return right;
    default:
      return middle;
  }
}

short buttonsHeld(WPARAM keys) {
  return static_cast<short>((keys & MK_LBUTTON ? left : 0) + (keys & MK_RBUTTON ? right : 0) +
                            (keys & MK_MBUTTON ? middle : 0));
}

bool isWithin(HWND box, LPARAM pixels) {
  RECT room;
  GetClientRect(box, &room);
  return PtInRect(&room, {GET_X_LPARAM(pixels), GET_Y_LPARAM(pixels)}) != FALSE;
}

}  // namespace

BoxView::BoxView(VTxtControl& control, ControlWindow& parent)
    : TextView(control.box(), parent, parent.window()), control_(control), parent_(parent) {
  const LONG_PTR style = GetWindowLongPtrW(window(), GWL_STYLE);
  SetWindowLongPtrW(window(), GWL_STYLE, style | WS_TABSTOP);
}

BoxView::~BoxView() {
  if (font_) DeleteObject(font_);
}

// --- drawing ------------------------------------------------------------------------------------

void BoxView::restyle() {
  const HFONT made = control_.appearance.font.create(dpiOf(window()));
  setFont(made);
  if (font_) DeleteObject(font_);
  font_ = made;
  SendMessageW(window(), EM_SETPASSWORDCHAR, control_.appearance.passwordChar, 0);
  InvalidateRect(window(), nullptr, TRUE);
}

std::optional<LRESULT> BoxView::coloured(HDC surface) {
  return reinterpret_cast<LRESULT>(control_.appearance.prepare(surface));
}

// --- messages -----------------------------------------------------------------------------------

std::optional<LRESULT> BoxView::received(const WindowMessage& message) {
  WindowMessage changed = message;
  if (!tellFirst(changed)) return 0;
  const auto used = TextView::received(changed);
  const LRESULT done = used ? *used : passOn(changed);
  if (!detached()) tellLast(changed);
  return done;
}

bool BoxView::tellFirst(WindowMessage& message) const {
  const Events& events = control_.events;
  switch (message.id) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_KEYUP:
    case WM_SYSKEYUP: {
      auto code = static_cast<short>(message.wide);
      const bool down = message.id == WM_KEYDOWN || message.id == WM_SYSKEYDOWN;
      down ? events.KeyDown(code) : events.KeyUp(code);
      message.wide = static_cast<WPARAM>(code);
      return code != 0;
    }
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
      if (!hasFocus()) parent_.takeFocus();  // the focus comes before the press
      events.MouseDown(buttonOf(message.id), mouseAt(message.longer));
      return true;
    case WM_MOUSEMOVE:
      events.MouseMove(buttonsHeld(message.wide), mouseAt(message.longer));
      return true;
    default:
      return true;
  }
}

void BoxView::tellLast(const WindowMessage& message) {
  const Events& events = control_.events;
  switch (message.id) {
    case WM_LBUTTONDOWN:
      pressed_ = true;
      break;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
      events.MouseUp(buttonOf(message.id), mouseAt(message.longer));
      if (message.id != WM_LBUTTONUP || !std::exchange(pressed_, false)) break;
      if (isWithin(window(), message.longer)) events.Click();
      break;
    case WM_LBUTTONDBLCLK:
      events.DblClick();
      break;
    case WM_SETFOCUS:
      parent_.focusCame();
      break;
    case WM_KILLFOCUS:
      parent_.focusWent();
      break;
    default:
      break;
  }
}

// In the container's units, or in pixels when it has none.
POINTF BoxView::mouseAt(LPARAM pixels) const {
  const POINTF plain{static_cast<float>(GET_X_LPARAM(pixels)),
                     static_cast<float>(GET_Y_LPARAM(pixels))};
  const auto site = control_.site.query<IOleControlSite>();
  if (!site) return plain;
  const HDC screen = GetDC(nullptr);
  POINTL exact{MulDiv(GET_X_LPARAM(pixels), 2540, GetDeviceCaps(screen, LOGPIXELSX)),
               MulDiv(GET_Y_LPARAM(pixels), 2540, GetDeviceCaps(screen, LOGPIXELSY))};
  ReleaseDC(nullptr, screen);
  POINTF told{};
  const HRESULT result =
      site->TransformCoords(&exact, &told, XFORMCOORDS_POSITION | XFORMCOORDS_HIMETRICTOCONTAINER);
  return SUCCEEDED(result) ? told : plain;
}

}  // namespace quillet::windows
