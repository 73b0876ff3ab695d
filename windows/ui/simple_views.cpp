#include "windows/ui/simple_views.h"

#include <commctrl.h>

#include <algorithm>

#include "view/access_keys.h"
#include "view/figure_groups.h"
#include "windows/com/text.h"
#include "windows/ui/child_window.h"
#include "windows/ui/colours.h"
#include "windows/ui/window_text.h"

namespace quillet::windows {

// --- label --------------------------------------------------------------------------------------

LabelView::LabelView(Label& label, view::ActionRunner& runner, HWND parent)
    : ControlView(label, runner, parent), label_(label) {
  adopt(makeChild(WC_STATICW, parent, SS_NOPREFIX | SS_ENDELLIPSIS | SS_CENTERIMAGE));
}

SIZE LabelView::wantedSize(const Metrics& metrics) const {
  return {metrics.widthOf(wide(label_.caption())), metrics.line()};
}

void LabelView::metricsChanged() {
  if (label_.quiet()) setFont(metrics()->quiet());
}

void LabelView::draw() {
  if (metrics()) setFont(label_.quiet() ? metrics()->quiet() : metrics()->font());
  showText(window(), wide(view::groupedWords(label_.caption(), view::grouping())));
}

std::optional<LRESULT> LabelView::coloured(HDC paper) {
  const bool quiet = label_.quiet() && !highContrast();
  SetTextColor(paper, shade(COLOR_BTNTEXT, COLOR_BTNFACE, quiet ? 0.62 : 1));
  SetBkColor(paper, GetSysColor(COLOR_BTNFACE));
  return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
}

// --- button, option, check box ------------------------------------------------------------------

void ClickView::draw() {
  showText(window(), wide(control().caption()));
  drawMark();
}

void ClickView::command(WORD code) {
  if (code != BN_CLICKED || drawing() || detached()) return;
  perform([&] { control().form().click(control()); });
  // The window may have marked itself; what counts is the model.
  redraw();
}

ButtonView::ButtonView(Button& button, view::ActionRunner& runner, HWND parent)
    : ClickView(button, runner, parent), button_(button) {
  adopt(makeChild(WC_BUTTONW, parent, BS_PUSHBUTTON));
}

SIZE ButtonView::wantedSize(const Metrics& metrics) const {
  const std::wstring caption = wide(button_.caption());
  return {metrics.widthOf(caption, false) + 4 * metrics.step(), metrics.box() + metrics.pixels(2)};
}

// The chosen one of several commands is pressed in; the one with the focus is the one that Enter
// presses.
void ButtonView::drawMark() {
  DWORD kind = hasFocus() ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
  if (button_.chosen()) kind = BS_CHECKBOX | BS_PUSHLIKE;
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(window(), GWL_STYLE));
  constexpr DWORD kinds = BS_TYPEMASK | BS_PUSHLIKE;
  if ((style & kinds) != kind) {
    SetWindowLongPtrW(window(), GWL_STYLE, static_cast<LONG_PTR>((style & ~kinds) | kind));
    SendMessageW(window(), BM_SETSTYLE, (style & ~kinds & 0xFFFF) | kind, TRUE);
  }
  SendMessageW(window(), BM_SETCHECK, button_.chosen() ? BST_CHECKED : BST_UNCHECKED, 0);
}

std::optional<LRESULT> ButtonView::received(const WindowMessage& message) {
  if (message.id != WM_SETFOCUS && message.id != WM_KILLFOCUS) return ClickView::received(message);
  const auto answer = ClickView::received(message);
  const LRESULT done = answer ? *answer : passOn(message);
  if (!detached() && window()) drawMark();
  return done;
}

ToggleView::ToggleView(Toggle& toggle, view::ActionRunner& runner, HWND parent)
    : ClickView(toggle, runner, parent), toggle_(toggle) {
  const bool isOption = dynamic_cast<OptionButton*>(&toggle) != nullptr;
  adopt(makeChild(WC_BUTTONW, parent, isOption ? BS_RADIOBUTTON : BS_CHECKBOX));
  // An option would click itself when it gets the focus.
  if (isOption) SendMessageW(window(), BM_SETDONTCLICK, TRUE, 0);
}

SIZE ToggleView::wantedSize(const Metrics& metrics) const {
  const int mark = metrics.line() + metrics.step();
  return {metrics.widthOf(wide(toggle_.caption()), false) + mark, metrics.box()};
}

void ToggleView::drawMark() {
  SendMessageW(window(), BM_SETCHECK, toggle_.checked() ? BST_CHECKED : BST_UNCHECKED, 0);
}

// --- frame --------------------------------------------------------------------------------------

FrameView::FrameView(Frame& frame, view::ActionRunner& runner, HWND parent)
    : ControlView(frame, runner, parent), frame_(frame), bordered_(!frame.caption().empty()) {
  adopt(makeChild(WC_BUTTONW, parent, BS_GROUPBOX));
}

// The window consists of border and heading only, so that it never draws over what it holds.
void FrameView::cutOut() {
  if (!bordered_ || !metrics()) return;
  RECT whole{};
  GetClientRect(window(), &whole);
  const RECT room{1, metrics()->step() + metrics()->line(), whole.right - 1, whole.bottom - 1};
  const HRGN border = CreateRectRgnIndirect(&whole);
  const HRGN hole = CreateRectRgnIndirect(&room);
  CombineRgn(border, border, hole, RGN_DIFF);
  DeleteObject(hole);
  SetWindowRgn(window(), border, TRUE);  // which owns it from now on
}

void FrameView::draw() {
  showText(window(), wide(view::withoutMarks(frame_.caption())));
  InvalidateRect(window(), nullptr, FALSE);
}

void FrameView::drawVisible(bool visible) { ControlView::drawVisible(visible && bordered_); }

std::optional<LRESULT> FrameView::received(const WindowMessage& message) {
  switch (message.id) {
    case WM_SIZE:
      cutOut();
      return 0;
    case WM_PAINT:
      paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_ENABLE:
      InvalidateRect(window(), nullptr, FALSE);
      return 0;
    default:
      return ControlView::received(message);
  }
}

void FrameView::paint() {
  PAINTSTRUCT painting{};
  const HDC paper = BeginPaint(window(), &painting);
  RECT room{};
  GetClientRect(window(), &room);
  FillRect(paper, &room, GetSysColorBrush(COLOR_BTNFACE));
  SetDCBrushColor(paper, shade(COLOR_BTNTEXT, COLOR_BTNFACE, highContrast() ? 1 : 0.24));
  FrameRect(paper, &room, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
  if (metrics()) {
    const HGDIOBJ before = SelectObject(paper, metrics()->bold());
    const int step = metrics()->step();
    RECT heading{room.left + step + step / 2, room.top + step / 2, room.right - step,
                 room.top + step + metrics()->line()};
    SetBkMode(paper, TRANSPARENT);
    SetTextColor(paper, GetSysColor(IsWindowEnabled(window()) ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
    DrawTextW(paper, textOf(window()).c_str(), -1, &heading,
              DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    SelectObject(paper, before);
  }
  EndPaint(window(), &painting);
}

}  // namespace quillet::windows
