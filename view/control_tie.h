// What ties a view to its control, whatever draws it: when it has to be drawn, and how what a
// person does reaches the form.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/form.h"
#include "view/action_runner.h"

namespace quillet::view {

class ControlTie {
 public:
  ControlTie(Control& control, ActionRunner& runner) : control_(control), runner_(runner) {}

  Control& control() const { return control_; }
  // The form is closed: nothing is passed on any more, and the control is not asked.
  void detach() { detached_ = true; }
  bool detached() const { return detached_; }

  ActionRunner& runner() const { return runner_; }
  void perform(const std::function<void()>& action) { runner_.perform(action); }
  int interruptions() const { return runner_.interruptions(); }
  bool isActive() const { return control_.form().active() == &control_; }

 protected:
  ~ControlTie() = default;

  // Whether the control has changed since it was drawn last.
  bool isOutdated() const { return drawn_ != control_.version(); }
  // It is being drawn now.
  void markDrawn() { drawn_ = control_.version(); }
  bool everDrawn() const { return drawn_ != 0; }

  // A press of the mouse sends the focus to the control. False: it is elsewhere, or a message came
  // in between and the press has lost its release.
  bool arrive();
  // Keys for the form, one after the other.
  void pressAll(const std::vector<Key>& typed);
  // Hands a pasted range of cells to the control. False: it is pasted as any other text.
  bool takesCells(const std::string& pasted);
  // Keys that are meant for this control alone, as one act: the windows are brought up to date
  // once. A handler that sends the focus on ends a paste: the rest belongs to no other box. So does
  // a message: one that is told why a key was refused is not told so for each key that follows. And
  // so does `type`, with false.
  void typeAll(const std::vector<Key>& typed, const std::function<bool(Key)>& type);

 private:
  Control& control_;
  ActionRunner& runner_;
  unsigned drawn_ = 0;
  bool detached_ = false;
};

}  // namespace quillet::view
