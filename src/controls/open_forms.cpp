#include "controls/open_forms.h"

#include <algorithm>

#include "controls/form.h"
#include "data/text.h"

namespace quillet {

Form* OpenForms::find(std::string_view name) const {
  const auto found = std::find_if(open_.begin(), open_.end(), [&](const Form* form) {
    return equalIgnoringCase(form->name(), name);
  });
  return found == open_.end() ? nullptr : *found;
}

void OpenForms::opened(Form& form) {
  open_.push_back(&form);
  front_ = &form;
  if (onOpened) onOpened(form);
}

void OpenForms::closed(Form& form) {
  const bool wasFront = front_ == &form;
  forget(form);
  if (wasFront && front_) front_->activate();
}

void OpenForms::forget(Form& form) {
  std::erase(open_, &form);
  if (front_ == &form) front_ = open_.empty() ? nullptr : open_.back();
  if (onClosed) onClosed(form);
}

bool OpenForms::bringToFront(Form& form) {
  const auto at = std::find(open_.begin(), open_.end(), &form);
  const bool covered = std::any_of(
      at, open_.end(), [&](const Form* other) { return other != &form && other->modal(); });
  if (at == open_.end() || covered) return false;
  if (front_ == &form) return true;
  const Act act(acts);
  front_ = &form;
  if (onOpened) onOpened(form);
  form.activate();
  return true;
}

// A form may close others.
template <class Tell>
void OpenForms::tellAll(Tell tell) {
  const std::vector<Form*> forms = open_;
  for (Form* form : forms) {
    if (std::find(open_.begin(), open_.end(), form) != open_.end()) tell(*form);
  }
}

void OpenForms::takenBack() {
  tellAll([](Form& form) { form.takenBack(); });
}

void OpenForms::booksMoved(bool masters) {
  tellAll([&](Form& form) { form.booksMoved(masters); });
}

}  // namespace quillet
