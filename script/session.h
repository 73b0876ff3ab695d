// What a script works on: an open practice, its dialogs and clock, and the functions that need a
// display, which the caller supplies.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "suite/clocks.h"
#include "suite/queued_dialogs.h"
#include "suite/standalone_environment.h"

namespace quillet::script {

class Session {
 public:
  Session(suite::Practice& work, suite::QueuedDialogs& answers, suite::FixedClock& today)
      : practice(work), dialogs(answers), clock(today) {
    // However busy the machine, what a script types is typed in one go.
    openForms().typingClock = [] { return std::chrono::steady_clock::time_point(); };
  }

  suite::Practice& practice;
  suite::QueuedDialogs& dialogs;
  suite::FixedClock& clock;

  // Brings the windows up to date; runs after everything that a script does. Empty without a
  // display.
  std::function<void()> pump;
  // Writes a report as PDF, the active window as PNG; empty where that cannot be done.
  std::function<void(const suite::Document&, const std::filesystem::path&)> savePdf;
  std::function<void(const std::filesystem::path&)> screenshot;

  OpenForms& openForms() const { return practice.context().openForms; }

  // Runs an action on the forms, updates the windows, and throws when a question was asked that the
  // script had not answered. The form has trapped the error by then, so it is taken from the
  // dialogs.
  template <class Action>
  void act(Action&& action) {
    dialogs.takeFailure();
    {
      const Act act(openForms().acts);
      action();
    }
    settle();
  }

 private:
  void settle();
};

}  // namespace quillet::script
