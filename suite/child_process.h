// Work in a copy of this process: the database library starts only once in each, and what damages
// or ends the copy leaves us alone.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillet::suite {

class ChildProcess {
 public:
  // Hands a text to the parent.
  using Tell = std::function<void(std::string_view text)>;
  // Starts the child, which does not outlive us and has none of our files: what we have locked is
  // free when we end. Throws std::runtime_error when it cannot be started.
  explicit ChildProcess(const std::function<void(const Tell& tell)>& work);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  // Waits for what the child tells next; "" when it has ended.
  std::string read();
  // Nothing when the child neither tells anything nor ends for so long.
  std::optional<std::string> readWithin(std::chrono::milliseconds most);
  // Everything that it still tells, until it ends.
  std::string readAll();
  // Waits for its end; true when the work was done and threw nothing.
  bool finish();
  void kill();
  // The signal that ended it, 0 when it ended by itself.
  int signal() const { return signal_; }

 private:
  pid_t child_ = -1;
  int pipe_ = -1;
  int signal_ = 0;
};

// The text that the work returns in a child process; nothing when the child died on the way.
std::optional<std::string> runInChild(const std::function<std::string()>& work);

}  // namespace quillet::suite
