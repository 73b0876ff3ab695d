#include "windows/ui/small_dialog.h"

#include <algorithm>

#include "windows/ui/dpi.h"
#include "windows/ui/extents.h"
#include "windows/ui/this_module.h"

namespace quillet::windows {
namespace {

// A dialog without controls: menu, class and title follow, all empty.
struct alignas(4) Template {
  DLGTEMPLATE head;
  WORD menu, windowClass, title;
};

}  // namespace

int SmallDialog::run(HWND owner, const std::wstring& title) {
  owner_ = owner;
  title_ = title;
  Template empty{};
  empty.head.style = WS_POPUP | WS_VISIBLE | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
  const INT_PTR answer = DialogBoxIndirectParamW(thisModule(), &empty.head, owner, receive,
                                                 reinterpret_cast<LPARAM>(this));
  return answer > 0 ? static_cast<int>(answer) : IDCANCEL;
}

RECT SmallDialog::area() const { return workArea(owner_ ? owner_ : window_); }

HWND SmallDialog::add(const wchar_t* windowClass, const std::wstring& text, DWORD style,
                      const RECT& at, int id) {
  const HWND control = CreateWindowExW(
      windowClass == std::wstring_view(L"EDIT") ? WS_EX_CLIENTEDGE : 0, windowClass, text.c_str(),
      WS_CHILD | WS_VISIBLE | style, static_cast<int>(at.left), static_cast<int>(at.top),
      static_cast<int>(at.right - at.left), static_cast<int>(at.bottom - at.top), window_,
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), thisModule(), nullptr);
  SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(metrics_->font()), FALSE);
  return control;
}

void SmallDialog::open() {
  metrics_ = std::make_unique<Metrics>(dpiOf(owner_ ? owner_ : window_), Metrics::Wish{});
  SetWindowTextW(window_, title_.c_str());
  const SIZE room = build(*metrics_);
  addButtons(room);
  SetFocus(first() ? first() : default_);
}

void SmallDialog::addButtons(const SIZE& room) {
  const int step = metrics_->step();
  const int height = metrics_->box() + step / 2;
  const int width = metrics_->characters(12) + 2 * step;
  const std::vector<Button> wanted = buttons();
  const int all = static_cast<int>(wanted.size()) * (width + step) - step;
  const int inside = std::max<int>(room.cx, all);
  const int top = room.cy + 4 * step;
  int left = 2 * step + inside - all;
  for (const Button& button : wanted) {
    const bool isDefault = button.id == defaultButton();
    const HWND made =
        add(L"BUTTON", button.text, WS_TABSTOP | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON),
            {left, top, left + width, top + height}, button.id);
    if (isDefault) default_ = made;
    left += width + step;
  }
  SendMessageW(window_, DM_SETDEFID, static_cast<WPARAM>(defaultButton()), 0);
  centre({inside + 4 * step, top + height + 2 * step});
}

void SmallDialog::centre(const SIZE& inside) {
  SetWindowPos(window_, nullptr, 0, 0, static_cast<int>(inside.cx), static_cast<int>(inside.cy),
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
  const SIZE border = bordersOf(window_);
  const RECT room = area();
  const LONG width = inside.cx + border.cx;
  const LONG height = inside.cy + border.cy;
  SetWindowPos(window_, nullptr, static_cast<int>((room.left + room.right - width) / 2),
               static_cast<int>((room.top + room.bottom - height) / 2), static_cast<int>(width),
               static_cast<int>(height), SWP_NOZORDER | SWP_NOACTIVATE);
}

INT_PTR CALLBACK SmallDialog::receive(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_INITDIALOG) SetWindowLongPtrW(window, DWLP_USER, longer);
  auto* self = reinterpret_cast<SmallDialog*>(GetWindowLongPtrW(window, DWLP_USER));
  if (!self) return FALSE;
  try {
    if (message == WM_INITDIALOG) {
      self->window_ = window;
      self->open();
      return FALSE;  // the focus is where it belongs
    }
    if (message == WM_COMMAND && HIWORD(wide) == BN_CLICKED && LOWORD(wide) > 0) {
      self->ending(LOWORD(wide));
      EndDialog(window, LOWORD(wide));
      return TRUE;
    }
  } catch (...) {
    EndDialog(window, IDCANCEL);
    return TRUE;
  }
  return FALSE;
}

}  // namespace quillet::windows
