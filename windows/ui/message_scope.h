// A message that one of our windows is handling. What a message brings to an end - a view, a window
// that is closed by one of its own keys - is still at work on it, and goes when the outermost
// message is done.
#pragma once

#include <memory>
#include <vector>

namespace quillet::windows {

// Stands first in each window procedure.
class MessageScope {
 public:
  MessageScope() { ++depth_; }
  ~MessageScope();
  MessageScope(const MessageScope&) = delete;
  MessageScope& operator=(const MessageScope&) = delete;

  static bool running() { return depth_ > 0; }
  // Keeps it until no message is being handled: a unique pointer to anything.
  static void discard(std::shared_ptr<void> thing);

 private:
  static int depth_;
  static std::vector<std::shared_ptr<void>> discarded_;
};

}  // namespace quillet::windows
