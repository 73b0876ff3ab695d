#include "suite/notices.h"

#include <algorithm>

namespace quillet::suite {

void Notices::add(const std::string& time, const std::string& text) {
  const auto known = std::find(texts_.begin(), texts_.end(), text);
  if (known != texts_.end()) {
    open_.erase(open_.begin() + (known - texts_.begin()));
    texts_.erase(known);
  }
  texts_.push_back(text);
  open_.push_back(time + "  " + text);
  if (onChanged) onChanged();
}

void Notices::close() {
  texts_.clear();
  open_.clear();
  if (onChanged) onChanged();
}

}  // namespace quillet::suite
