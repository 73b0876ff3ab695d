#include "controls/form.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <utility>

#include "controls/open_forms.h"
#include "controls/scoped_flag.h"
#include "controls/spoken_name.h"
#include "data/text.h"

namespace quillet {

Form::Form(OpenForms& openForms, std::string name)
    : openForms_(openForms), name_(std::move(name)) {}

Form::~Form() {
  if (visible_) openForms_.forget(*this);
}

unsigned Form::adopt(Control& control) {
  controls_.push_back(&control);
  touch();
  return ++adopted_;
}

void Form::disown(Control& control) {
  std::erase(controls_, &control);
  if (active_ == &control) active_ = nullptr;
  if (redirected_ == &control) redirected_ = nullptr;
  touch();
}

void Form::setCaption(std::string caption) {
  caption_ = std::move(caption);
  touch();
}

const std::string Form::eventOwner = "FORM";

void Form::report(std::string_view procedure, const std::exception& error) const noexcept {
  try {
    if (openForms_.onError) openForms_.onError(name_ + '\t' + std::string(procedure), error);
  } catch (...) {
    // There is nowhere else to report a log that cannot be written.
  }
}

void Form::begins(std::string_view procedure) const {
  if (openForms_.acts.onProcedure) openForms_.acts.onProcedure(name_, std::string(procedure));
}

void procedureBegins(const Form& form, const std::string& owner, const char* name) {
  // The name is made only for whoever wants it.
  if (form.openForms().acts.onProcedure) form.begins(upperCase(owner) + '_' + name);
}

void procedureBegins(const Form& form, const char* procedure) { form.begins(procedure); }

void reportTrapped(const Form& form, const std::string& owner, const char* name,
                   const std::exception& error) noexcept {
  form.report(upperCase(owner) + '_' + name, error);
}

void reportTrapped(const Form& form, const std::string& owner, const char* name) noexcept {
  reportTrapped(form, (upperCase(owner) + '_' + name).c_str());
}

void reportTrapped(const Form& form, const char* procedure) noexcept {
  try {
    throw;
  } catch (const std::exception& error) {
    form.report(procedure, error);
  } catch (...) {
    form.report(procedure, std::runtime_error("Something else than an error was thrown."));
  }
}

// --- life ---------------------------------------------------------------------------------------

void Form::show() {
  const Act act(openForms_.acts);
  if (visible_) {
    openForms_.bringToFront(*this);
    return;
  }
  if (!loaded_) {
    loaded_ = true;
    logErrors("FORM_LOAD", [&] {
      // First of all: it places the controls in frames, and a hidden frame takes no focus.
      if (arrangementVersion_ == 0) arrangementChanged();
      load();
    });
  }
  visible_ = true;
  repairFocus();
  openForms_.opened(*this);
  activate();
}

void Form::showModal(std::function<void()> closed) {
  modal_ = true;
  closed_ = std::move(closed);
  show();
}

bool Form::close() {
  const Act act(openForms_.acts);
  if (!visible_) return true;
  bool cancel = false;
  logErrors("FORM_UNLOAD", [&] { unload(cancel); });
  if (cancel) return false;
  visible_ = false;
  loaded_ = false;
  modal_ = false;
  active_ = nullptr;
  openForms_.closed(*this);
  // Moved out first: the opener may open the form again from here.
  const auto closed = std::exchange(closed_, {});
  if (closed) logErrors("FORM_CLOSED", closed);
  return true;
}

void Form::arrangementChanged() {
  arrangement_ = layout();
  ++arrangementVersion_;
  touch();
}

void Form::resized() {
  const Act act(openForms_.acts);
  logErrors("FORM_RESIZE", [&] { resize(); });
}

void Form::activate() {
  logErrors("FORM_ACTIVE", [&] { activated(); });
}

// --- controls -----------------------------------------------------------------------------------

Control* Form::find(std::string_view name, int index) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const Control* control) {
    return control->index() == index && equalIgnoringCase(control->name(), name);
  });
  return found == controls_.end() ? nullptr : *found;
}

bool Form::isArray(std::string_view name) const {
  return std::any_of(controls_.begin(), controls_.end(), [&](const Control* control) {
    return control->index() >= 0 && equalIgnoringCase(control->name(), name);
  });
}

// --- focus --------------------------------------------------------------------------------------

bool Form::focus(Control& control) {
  const Act act(openForms_.acts);
  if (moving_) {
    // A handler moves the focus while it is moving already: the last request wins.
    redirected_ = &control;
    return true;
  }
  if (!control.focusable()) return false;
  if (active_ == &control) return true;
  if (active_ && control.causesValidation) {
    bool cancel = false;
    active_->Validate(cancel);
    if (cancel) return false;
  }
  moveFocus(&control);
  return active_ == &control;
}

void Form::moveFocus(Control* to) {
  const ScopedFlag moving(moving_);
  // Handlers may send the focus back and forth; that ends after a few turns.
  for (int turn = 0; to != nullptr && turn < 8; ++turn) {
    Control* from = std::exchange(active_, to);
    redirected_ = nullptr;
    touch();
    if (from) {
      from->checkLeft();
      from->LostFocus();
    }
    if (!redirected_ && active_ == to) to->GotFocus();
    to = redirected_ && redirected_ != active_ && redirected_->focusable() ? redirected_ : nullptr;
  }
  redirected_ = nullptr;
}

Control* Form::nextFocusable(Control* from, bool backwards) const {
  const auto count = static_cast<std::ptrdiff_t>(controls_.size());
  if (count == 0) return nullptr;
  const auto at = std::find(controls_.begin(), controls_.end(), from);
  const std::ptrdiff_t step = backwards ? -1 : 1;
  std::ptrdiff_t position = at != controls_.end() ? at - controls_.begin() : (backwards ? 0 : -1);
  for (std::ptrdiff_t tries = 0; tries < count; ++tries) {
    position = (position + step + count) % count;
    Control* control = controls_[static_cast<std::size_t>(position)];
    if (control->tabStop && control->focusable()) return control;
  }
  return nullptr;
}

void Form::focusNext(bool backwards) {
  const Act act(openForms_.acts);
  if (Control* next = nextFocusable(active_, backwards)) focus(*next);
}

void Form::repairFocus() {
  if (moving_ || (active_ && active_->focusable())) return;
  const Act act(openForms_.acts);
  Control* next = nextFocusable(active_, false);
  if (next == active_) return;
  active_ = nullptr;
  if (next) moveFocus(next);
}

// --- acts ---------------------------------------------------------------------------------------

// A button is told by its caption alone, whichever way it was pressed.
ActName Form::nameOf(const Control* control, Key key) const {
  std::string command = control == nullptr ? std::string() : spokenName(*control);
  const std::string pressed(keys::nameOf(key));
  if (!pressed.empty()) command = pressed + (command.empty() ? "" : " in " + command);
  return {caption_, command};
}

// --- keys and clicks ----------------------------------------------------------------------------

Key Form::runKeyHandlers(Key key) {
  const Act act(openForms_.acts, [&] { return nameOf(active_, key); });
  const auto each = [&](const Event<Key&>& handler) {
    if (key != keys::none) handler(key);
  };
  const bool pressed = keys::isPressed(key);
  each(KeyDown);
  if (active_) each(active_->KeyDown);
  if (pressed) {
    each(KeyPress);
    if (active_ && key != keys::none) active_->checkKey(key);
    if (active_) each(active_->KeyPress);
  }
  return key;
}

void Form::handleKey(Key key) {
  const Act act(openForms_.acts, [&] { return nameOf(active_, key); });
  if (key == keys::Tab || key == keys::BackTab) {
    focusNext(key == keys::BackTab);
  } else if (active_ && active_->enabled()) {
    active_->handleKey(key);
  }
}

void Form::press(Key key) {
  const Act act(openForms_.acts, [&] { return nameOf(active_, key); });
  const Key left = runKeyHandlers(key);
  if (left != keys::none) handleKey(left);
  repairFocus();
}

bool Form::click(Control& control) {
  const Act act(openForms_.acts, [&] { return nameOf(&control, keys::none); });
  if (!control.clickable()) return false;
  if (control.takesFocus() && !focus(control)) return false;
  control.clicked();
  repairFocus();
  return true;
}

void Form::doubleClick(Control& control) {
  const Act act(openForms_.acts, [&] { return nameOf(&control, keys::none); });
  if (!control.enabled() || !control.shown()) return;
  if (control.takesFocus() && !focus(control)) return;
  control.DblClick();
  repairFocus();
}

}  // namespace quillet
