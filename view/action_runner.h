// Where the views of a form perform what a person does.
#pragma once

#include <functional>

namespace quillet {
class Form;
}

namespace quillet::view {

class ActionRunner {
 public:
  virtual ~ActionRunner() = default;
  // Runs the action on the forms, then brings every window up to date: the action may have changed
  // any of them.
  virtual void perform(const std::function<void()>& action) = 0;
  // How often a dialog has come between a person and the windows. A press of the mouse during which
  // one appeared has lost its release and must not go on.
  virtual int interruptions() const = 0;
};

}  // namespace quillet::view
