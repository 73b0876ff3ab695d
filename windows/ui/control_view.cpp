#include "windows/ui/control_view.h"

#include "controls/basic_controls.h"
#include "controls/open_forms.h"
#include "controls/scoped_flag.h"
#include "controls/spoken_name.h"
#include "windows/com/text.h"
#include "windows/ui/accessible_name.h"
#include "windows/ui/message_scope.h"
#include "windows/ui/window_text.h"

namespace quillet::windows {
namespace {

// A frame is enabled and disabled with all that it holds.
bool usable(const Control& control) {
  if (!control.enabled()) return false;
  for (const Frame* frame = control.frame(); frame; frame = frame->frame()) {
    if (!frame->enabled()) return false;
  }
  return true;
}

// Asks first: showing a window that is shown costs more.
void setVisible(HWND window, bool visible) {
  const bool isVisible = GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE;
  if (visible != isVisible) ShowWindow(window, visible ? SW_SHOWNA : SW_HIDE);
}

}  // namespace

ControlView::ControlView(Control& control, view::ActionRunner& runner, HWND parent)
    : ControlTie(control, runner), parent_(parent) {}

ControlView::~ControlView() {
  detach();
  if (window()) forgetAccessibleName(window());
}

void ControlView::discard(std::unique_ptr<ControlView> view) {
  view->detach();
  ShowWindow(view->window(), SW_HIDE);
  MessageScope::discard(std::move(view));
}

// --- drawing ------------------------------------------------------------------------------------

void ControlView::refresh() {
  if (detached() || !window()) return;
  if (isOutdated()) {
    redraw();
  } else {
    drawState();
  }
}

void ControlView::redraw() {
  if (detached() || !window()) return;
  markDrawn();
  const ScopedFlag guard(drawing_);
  draw();
  drawState();
  tip_.show(window(), wide(control().toolTip()));
  const std::wstring name = accessibleName();
  if (name != name_) tellName(name_ = name);
}

void ControlView::tellName(const std::wstring& name) { setAccessibleName(window(), name); }

// What the frames around the control change as well, without its version moving on.
void ControlView::drawState() {
  const bool enabled = usable(control());
  const bool shown = control().shown();
  for (HWND each : {window(), label_}) {
    if (each && IsWindowEnabled(each) != static_cast<BOOL>(enabled)) EnableWindow(each, enabled);
  }
  drawVisible(shown);
  if (label_) setVisible(label_, shown);
}

void ControlView::drawVisible(bool visible) { setVisible(window(), visible); }

void ControlView::setLabel(HWND label) {
  label_ = label;
  redraw();
}

void ControlView::setMetrics(const Metrics& metrics) {
  metrics_ = &metrics;
  setFont(metrics.font());
  metricsChanged();
  if (everDrawn()) redraw();
}

void ControlView::setFont(HFONT font) {
  if (window()) SendMessageW(window(), WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

SIZE ControlView::wantedSize(const Metrics& metrics) const {
  return {metrics.characters(16), metrics.box()};
}

std::wstring ControlView::accessibleName() const {
  const std::string name = spokenName(control());
  return wide(name.empty() ? ownName() : name);
}

// --- focus --------------------------------------------------------------------------------------

bool ControlView::hasFocus() const {
  const HWND focus = GetFocus();
  return focus && (focus == window() || IsChild(window(), focus));
}

void ControlView::takeFocus() {
  const ScopedFlag guard(takingFocus_);
  SetFocus(window());
}

// Somebody else gave the window the focus: a screen reader does. While an act is running it is
// Windows itself, which gives the focus back after a dialog; the form may have sent it on since.
void ControlView::focusGiven() {
  if (takingFocus_ || isActive() || control().form().openForms().acts.running()) return;
  perform([&] { control().form().focus(control()); });
}

// --- messages -----------------------------------------------------------------------------------

void ControlView::command(WORD) {}
std::optional<LRESULT> ControlView::notified(NMHDR&) { return {}; }

void ControlView::failed() noexcept {
  if (!detached()) reportTrapped(control().form(), "WINDOW");
}

std::optional<LRESULT> ControlView::handle(const WindowMessage& message) {
  if (message.id == WM_DESTROY) forgetAccessibleName(window());
  if (detached()) return {};
  return received(message);
}

std::optional<LRESULT> ControlView::received(const WindowMessage& message) {
  switch (message.id) {
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS;
    case WM_KEYDOWN:
    case WM_CHAR:
    case WM_UNICHAR:
    case WM_IME_CHAR:
      return keyMessage(message);
    case WM_SYSCHAR:
      // An access key, or else the window's menu.
      return SendMessageW(parent_, message.id, message.wide, message.longer);
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
      return mouseMessage(message);
    case WM_SETFOCUS: {
      const LRESULT done = passOn(message);
      focusGiven();
      return done;
    }
    default:
      return {};
  }
}

std::optional<LRESULT> ControlView::keyMessage(const WindowMessage& message) {
  const KeyReader::Result read = keys_.read(message.id, message.wide);
  if (read.used) {
    if (!read.keys.empty()) keysTyped(read.keys);
    return message.id == WM_UNICHAR ? 1 : 0;
  }
  if (message.id == WM_KEYDOWN && commandKey(message.wide)) return 0;
  return {};
}

void ControlView::keysTyped(const std::vector<Key>& typed) { pressAll(typed); }

std::optional<LRESULT> ControlView::mouseMessage(const WindowMessage& message) {
  const bool before = isActive();
  if (!arrive() || mousePressed(message, !before)) return 0;
  return {};
}

}  // namespace quillet::windows
