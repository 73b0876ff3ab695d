// The windows of the open forms, whatever draws them: each open form has one, and what a person
// does in any of them is performed here, after which all are brought up to date.
#pragma once

#include "controls/open_forms.h"
#include "view/action_runner.h"

namespace quillet::view {

class FormWindows : public ActionRunner {
 public:
  FormWindows() = default;
  FormWindows(const FormWindows&) = delete;
  FormWindows& operator=(const FormWindows&) = delete;

  // Shows the open forms from now on.
  void follow(OpenForms& openForms);
  // Takes no more notice of the open forms, which may go. A derived class calls it at its end.
  void leave();

  // Brings every window up to date.
  virtual void refresh() = 0;

  void perform(const std::function<void()>& action) override;
  int interruptions() const override { return interruptions_; }
  // An action is being performed right now.
  bool performing() const { return depth_ > 0; }

 protected:
  // A form was opened or brought to the front; it was closed; none is shown any more.
  virtual void opened(Form& form) = 0;
  virtual void closed(Form& form) = 0;
  virtual void left() = 0;

  // The form in front, null when none is open.
  Form* frontForm() const { return openForms_ ? openForms_->active() : nullptr; }
  // A person came to the form's window.
  void activated(Form& form);
  // A dialog came between a person and the windows.
  void interrupted() { ++interruptions_; }

 private:
  void repairFocus();

  OpenForms* openForms_ = nullptr;
  int depth_ = 0;
  int interruptions_ = 0;
};

}  // namespace quillet::view
