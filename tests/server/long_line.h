// A line to a server that takes its time, and that can break when it is wanted.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <list>
#include <thread>
#include <utility>

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
  // That happens before the line passes its nth request from now on; 0 for never.
  void before(long nth, std::function<void()> happens = {}) {
    happens_ = std::move(happens);
    countdown_ = nth;
  }
  // Nothing passes any more, nor comes back, and nobody is told; until it is told otherwise.
  void fallSilent(bool silent = true) { silent_ = silent; }
  // The next commit stays on its way until it is let go.
  void hold() { holds_ = true; }
  bool holding() const { return holding_; }
  void letGo() { holds_ = false; }

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
  std::function<void()> happens_;
  std::atomic<long> countdown_ = 0;
  std::atomic<bool> silent_ = false;
  std::atomic<bool> holds_ = false;
  std::atomic<bool> holding_ = false;
  std::list<std::thread> serving_;
  std::thread accepting_;
};

}  // namespace quillet::support
