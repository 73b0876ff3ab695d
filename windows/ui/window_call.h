// Counts the window procedures at work. What a person does in a window may close it; window and
// views are deleted only when no procedure of theirs is at work any more.
#pragma once

#include <functional>

namespace quillet::windows {

// Stands first in each window procedure.
class WindowCall {
 public:
  WindowCall() { ++depth_; }
  ~WindowCall() {
    if (--depth_ == 0 && whenIdle) whenIdle();
  }
  WindowCall(const WindowCall&) = delete;
  WindowCall& operator=(const WindowCall&) = delete;

  static bool running() { return depth_ > 0; }
  // Must not throw.
  static inline std::function<void()> whenIdle;

 private:
  static inline int depth_ = 0;
};

}  // namespace quillet::windows
