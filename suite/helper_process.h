// A helper program that obeys lines and answers by lines, with a limit on how long it may take. It
// cannot take us down: a helper that hangs or dies is an error, and neither it nor what it leaves
// in the temporary folder outlives this object.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillet::suite {

class HelperProcess {
 public:
  // Throws std::runtime_error when the program cannot be started.
  HelperProcess(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                std::chrono::milliseconds limit);
  ~HelperProcess();
  HelperProcess(const HelperProcess&) = delete;
  HelperProcess& operator=(const HelperProcess&) = delete;

  // Called again and again while the helper keeps us waiting.
  void whileWaiting(std::function<void()> tick) { tick_ = std::move(tick); }

  // Each throws std::runtime_error when the helper takes too long or is gone.
  void send(std::string_view lines);
  std::string receiveLine();
  // Whether there is something to receive, the helper's end included, before so long has passed.
  bool answersWithin(std::chrono::milliseconds most);

  // Waits for it to end by itself; true when it ended well within the limit. It gets no more lines.
  bool finish();

 private:
  using Clock = std::chrono::steady_clock;
  void waitFor(short event, Clock::time_point end);
  void kill();

  std::chrono::milliseconds limit_;
  std::filesystem::path temporary_;  // a folder of its own
  int process_ = -1;
  int socket_ = -1;
  std::string received_;
  std::function<void()> tick_;
};

}  // namespace quillet::suite
