// The open forms, oldest first, and what they need of whoever shows them. One object serves one
// running program; views and scripts observe it.
#pragma once

#include <chrono>
#include <exception>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/acts.h"

namespace quillet {

class Form;

class OpenForms {
 public:
  const std::vector<Form*>& open() const { return open_; }
  // The form that a person works in: the one shown or brought to the front last; null when none is
  // open.
  Form* active() const { return open_.empty() ? nullptr : front_; }
  Form* find(std::string_view name) const;

  // Told by the forms.
  void opened(Form& form);
  void closed(Form& form);
  // A form is destroyed while it is open: it goes without another one becoming active.
  void forget(Form& form);
  // Brings an open form to the front, as a click into its window does; runs its FORM_ACTIVE.
  // Refused (false) while a modal form that was opened after it is open.
  bool bringToFront(Form& form);

  // What a person does to the forms.
  Acts acts;
  // Tells letters that are typed in one go from those that begin a new search.
  std::function<std::chrono::steady_clock::time_point()> typingClock =
      std::chrono::steady_clock::now;
  // The host took back what the act had changed in the database: every form forgets what it
  // remembered of it and shows what is stored.
  void takenBack();

  // Other stations have changed the books, or what all years share too.
  void booksMoved(bool masters);

  // A view's hooks: a form was opened or brought to the front; a form was closed.
  std::function<void(Form&)> onOpened;
  std::function<void(Form&)> onClosed;
  // A procedure trapped a run-time error. `location` is the form's name, a tab, the procedure's.
  std::function<void(const std::string& location, const std::exception& error)> onError;

 private:
  template <class Tell>
  void tellAll(Tell tell);

  std::vector<Form*> open_;
  Form* front_ = nullptr;
};

}  // namespace quillet
