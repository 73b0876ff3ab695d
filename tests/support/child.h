// A process of its own for what must not happen in the test's: starting a server again, dying.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>

namespace quillet::support {

// Runs the work in a child and returns its text; "error: ..." when it threw, "died" when the child
// did not get to its end.
std::string inChild(const std::function<std::string()>& work);

// A child that reports lines until it is killed.
class Reporting {
 public:
  using Tell = std::function<void(const std::string& line)>;
  explicit Reporting(const std::function<void(const Tell&)>& work);
  ~Reporting();
  Reporting(const Reporting&) = delete;
  Reporting& operator=(const Reporting&) = delete;

  // The next line; "" when the child has ended.
  std::string next();
  // Kills it at once and returns what it still had told.
  std::string kill();

 private:
  pid_t child_ = -1;
  int pipe_ = -1;
  std::string pending_;
};

}  // namespace quillet::support
