#include "windows/ui/form_windows.h"

#include <algorithm>
#include <utility>

#include "controls/form.h"
#include "windows/ui/extents.h"
#include "windows/ui/form_window.h"
#include "windows/ui/message_scope.h"

namespace quillet::windows {
namespace {

using Place = FormWindows::Place;

void complete(Place& place, const RECT& rest) {
  if (!place.width) place.width = rest.right - rest.left;
  if (!place.height) place.height = rest.bottom - rest.top;
  if (!place.left) place.left = rest.left;
  if (!place.top) place.top = rest.top;
}

}  // namespace

FormWindows::FormWindows() = default;
FormWindows::~FormWindows() { leave(); }

// --- acts ---------------------------------------------------------------------------------------

void FormWindows::perform(const std::function<void()>& action) {
  // A window that the action closes is still at work here.
  const MessageScope scope;
  view::FormWindows::perform(action);
}

void FormWindows::refresh() {
  const MessageScope scope;
  std::vector<FormWindow*> windows;
  for (const auto& window : windows_) windows.push_back(window.get());
  for (FormWindow* window : windows) {
    const bool stays = std::any_of(windows_.begin(), windows_.end(),
                                   [&](const auto& each) { return each.get() == window; });
    if (stays) window->refresh();
  }
}

// --- forms come and go --------------------------------------------------------------------------

FormWindow* FormWindows::of(const Form& form) const {
  for (const auto& window : windows_) {
    if (&window->form() == &form) return window.get();
  }
  return nullptr;
}

HWND FormWindows::windowOf(const Form& form) const {
  const FormWindow* window = of(form);
  return window ? window->window() : nullptr;
}

FormWindow* FormWindows::front() const {
  const Form* form = frontForm();
  return form ? of(*form) : nullptr;
}

bool FormWindows::isOurs(HWND window) const {
  return std::any_of(windows_.begin(), windows_.end(),
                     [&](const auto& each) { return each->window() == window; });
}

HWND FormWindows::owner() const {
  if (const FormWindow* window = front()) return window->window();
  if (!windows_.empty()) return windows_.back()->window();
  return GetActiveWindow();
}

FormWindow& FormWindows::create(Form& form) {
  const HWND before = GetActiveWindow();
  if (!isOurs(before)) host_ = before;
  const HWND below = windows_.empty() ? host_ : windows_.back()->window();
  if (!hook_) {
    hook_.emplace([this](const MSG& message) { return dispatchKey(message); });
  }
  windows_.push_back(std::make_unique<FormWindow>(form, *this, below, place(form)));
  return *windows_.back();
}

void FormWindows::opened(Form& form) {
  const MessageScope scope;
  FormWindow* known = of(form);
  FormWindow& window = known ? *known : create(form);
  if (form.modal()) {
    window.cover();
    interrupted();
  }
  window.refresh();
  window.show();
}

std::unique_ptr<FormWindow> FormWindows::take(const Form& form) {
  const auto found = std::find_if(windows_.begin(), windows_.end(),
                                  [&](const auto& each) { return &each->form() == &form; });
  if (found == windows_.end()) return nullptr;
  std::unique_ptr<FormWindow> window = std::move(*found);
  windows_.erase(found);
  window->detach();
  if (windows_.empty()) hook_.reset();
  return window;
}

void FormWindows::closed(Form& form) {
  const MessageScope scope;
  if (FormWindow* window = of(form)) window->keepPlace();
  places_.erase(form.name());
  if (onClosed) onClosed(form);
  if (lost_ == &form) lost_ = nullptr;
  std::unique_ptr<FormWindow> window = take(form);
  if (!window) return;
  // Another window of ours that stands above this one stays.
  for (const auto& other : windows_) other->forgetOwner(window->window());
  const FormWindow* next = front();
  window->close(next ? next->window() : host_);
  MessageScope::discard(std::move(window));
}

void FormWindows::lost(Form& form) {
  std::unique_ptr<FormWindow> window = take(form);
  if (window) MessageScope::discard(std::move(window));
  lost_ = &form;
  perform([&] { form.close(); });
  // It refused, since something in it is not stored yet.
  if (lost_) opened(*std::exchange(lost_, nullptr));
}

void FormWindows::left() {
  hook_.reset();
  for (auto& window : std::exchange(windows_, {})) {
    window->keepPlace();
    window->detach();
    MessageScope::discard(std::move(window));
  }
  host_ = nullptr;
}

// --- for the host -------------------------------------------------------------------------------

void FormWindows::runUntilClosed(Form& form) {
  while (FormWindow* window = of(form)) {
    window->cover();
    MSG message{};
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got <= 0) {
      // The end of the program is for the host's own loop as well.
      if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));
      break;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  if (FormWindow* window = of(form)) window->uncover();
}

FormWindows::Place FormWindows::place(const Form& form) const {
  const auto kept = places_.find(form.name());
  Place place = kept == places_.end() ? Place{} : kept->second;
  const HWND window = windowOf(form);
  RECT now{};
  if (window && GetWindowRect(window, &now)) {
    place.left.reset();
    place.top.reset();
    place.width.reset();
    place.height.reset();
  } else {
    now = usualPlace(form.size, workArea(window));
  }
  complete(place, now);
  return place;
}

void FormWindows::setPlace(const Form& form, const Place& change) {
  Place& kept = places_[form.name()];
  for (auto side : {&Place::left, &Place::top, &Place::width, &Place::height}) {
    if (change.*side) kept.*side = change.*side;
  }
  if (change.fontPoints) {
    kept.fontPoints = change.fontPoints;
    kept.fontName = change.fontName;
  }
  Place wanted = change;
  wanted.fontPoints = kept.fontPoints;
  wanted.fontName = kept.fontName;
  if (FormWindow* window = of(form)) window->moveTo(wanted);
}

bool FormWindows::dispatchKey(const MSG& message) {
  const HWND top = GetAncestor(message.hwnd, GA_ROOT);
  const auto found = std::find_if(windows_.begin(), windows_.end(),
                                  [&](const auto& each) { return each->window() == top; });
  if (found == windows_.end()) return false;
  const MessageScope scope;
  if (!(*found)->shortcut(message)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return true;
}

}  // namespace quillet::windows
