// What a script drives: a practice at work whose dialogs are answered by the script, and what only
// a display can do, handed in by whoever has one.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "suite/clocks.h"
#include "suite/queued_dialogs.h"
#include "suite/standalone.h"

namespace quillet::script {

class Session {
 public:
  Session(suite::Practice& work, suite::QueuedDialogs& answers, suite::FixedClock& today)
      : practice(work), dialogs(answers), clock(today) {}

  suite::Practice& practice;
  suite::QueuedDialogs& dialogs;
  suite::FixedClock& clock;

  // Brings the windows up to date; runs after everything that a script does. Empty without a
  // display.
  std::function<void()> pump;
  // Writes a report as PDF, the active window as PNG; empty where that cannot be done.
  std::function<void(const suite::Document&, const std::filesystem::path&)> savePdf;
  std::function<void(const std::filesystem::path&)> screenshot;

  Desk& desk() const { return practice.context().desk; }

  // Does something to the forms as a person would: lets the windows follow, and throws when a
  // question came up that the script had not answered. The procedure that asked has trapped that
  // by then, so the dialogs are asked whether it happened.
  template <class Deed>
  void act(Deed&& deed) {
    dialogs.takeFailure();
    deed();
    settle();
  }

 private:
  void settle();
};

}  // namespace quillet::script
