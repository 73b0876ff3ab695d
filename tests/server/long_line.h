// A line to a server that takes its time, and that can break when it is wanted.
#pragma once

#include <atomic>
#include <chrono>
#include <list>
#include <thread>

namespace quillet::support {

class LongLine {
 public:
  // To that port of the loopback address; each request waits for so long.
  explicit LongLine(unsigned server, std::chrono::milliseconds delay = {});
  ~LongLine();
  LongLine(const LongLine&) = delete;
  LongLine& operator=(const LongLine&) = delete;

  unsigned port() const { return port_; }
  // How many requests it has passed on.
  long requests() const { return requests_; }
  // The next commit reaches the server, its answer is lost with the connection; or the line breaks
  // before the commit passes.
  enum class Break { none, afterCommit, beforeCommit };
  void breakAt(Break when) { break_ = when; }

 private:
  void accept();
  void serve(int client, int server);

  const unsigned server_;
  const std::chrono::milliseconds delay_;
  int listening_;
  unsigned port_;
  std::atomic<bool> ends_ = false;
  std::atomic<long> requests_ = 0;
  std::atomic<Break> break_ = Break::none;
  std::list<std::thread> serving_;
  std::thread accepting_;
};

}  // namespace quillet::support
