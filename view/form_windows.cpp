#include "view/form_windows.h"

#include <algorithm>
#include <optional>

#include "controls/form.h"

namespace quillet::view {

void FormWindows::follow(OpenForms& openForms) {
  leave();
  openForms_ = &openForms;
  openForms.onOpened = [this](Form& form) { opened(form); };
  openForms.onClosed = [this](Form& form) { closed(form); };
  for (Form* form : openForms.open()) opened(*form);
}

void FormWindows::leave() {
  if (!openForms_) return;
  openForms_->onOpened = {};
  openForms_->onClosed = {};
  openForms_ = nullptr;
  left();
}

void FormWindows::activated(Form& form) {
  // A window that the program itself raised while it was at work is known already.
  if (performing() || !openForms_ || openForms_->active() == &form) return;
  perform([&] { openForms_->bringToFront(form); });
}

void FormWindows::perform(const std::function<void()>& action) {
  struct Deeper {
    explicit Deeper(int& counted) : depth(counted) { ++depth; }
    ~Deeper() { --depth; }
    int& depth;
  };
  {
    const Deeper deeper(depth_);
    std::optional<Act> act;
    if (openForms_) act.emplace(openForms_->acts);
    action();
    if (depth_ == 1) repairFocus();
  }
  if (depth_ == 0) refresh();
}

// What the action hid or disabled may have had the focus, in any of the forms.
void FormWindows::repairFocus() {
  if (!openForms_) return;
  const std::vector<Form*> open = openForms_->open();
  for (Form* form : open) {
    const auto& still = openForms_->open();
    if (std::find(still.begin(), still.end(), form) != still.end()) form->repairFocus();
  }
}

}  // namespace quillet::view
