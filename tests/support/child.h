// A process of its own for what must not happen in the test's: starting a server again, dying.
#pragma once

#include <functional>
#include <string>

#include "suite/child_process.h"

namespace quillet::support {

// Runs the work in a child and returns its text; "error: ..." when it threw, "died" when the child
// did not get to its end.
std::string inChild(const std::function<std::string()>& work);

// A child that reports lines until it is killed.
class Reporting {
 public:
  using Tell = std::function<void(const std::string& line)>;
  explicit Reporting(const std::function<void(const Tell&)>& work);

  // The next line; "" when the child has ended.
  std::string next();
  // Kills it at once and returns what it still had told.
  std::string kill();

 private:
  suite::ChildProcess child_;
  std::string pending_;
};

}  // namespace quillet::support
