#include "windows/ui/message_scope.h"

#include <utility>

namespace quillet::windows {

int MessageScope::depth_ = 0;
std::vector<std::shared_ptr<void>> MessageScope::discarded_;

MessageScope::~MessageScope() {
  // Moved out first, and still within the scope: destroying a window sends messages as well.
  while (depth_ == 1 && !discarded_.empty()) std::exchange(discarded_, {}).clear();
  --depth_;
}

void MessageScope::discard(std::shared_ptr<void> thing) {
  const MessageScope scope;
  discarded_.push_back(std::move(thing));
}

}  // namespace quillet::windows
