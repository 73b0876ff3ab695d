// The error log: one line for each trapped run-time error, appended to "\TalLog.log" in the suite's
// program folder.
#pragma once

#include <exception>
#include <string>

#include "data/errors.h"

namespace quillet {

struct Context;

struct TrappedError {
  long number = 0;
  std::string description;
  std::string source;
};

// Number, description and source of an exception; one without a number of its own gets 5, that of
// an invalid call.
TrappedError trapped(const std::exception& error);

// An error that left nothing of what was begun.
class NothingDone : public RunTimeError {
 public:
  explicit NothingDone(const std::exception& reason) : NothingDone(trapped(reason)) {}

 private:
  explicit NothingDone(const TrappedError& reason)
      : RunTimeError(reason.number, reason.description, reason.source) {}
};

// Appends date and time, number, description, source and the context's error location, separated by
// tabs. Writes nothing for number 0. What contains line breaks or tabs stays on its one line.
void logError(const Context& context, const TrappedError& error);

}  // namespace quillet
