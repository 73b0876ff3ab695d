#include "view/control_tie.h"

namespace quillet::view {

bool ControlTie::arrive() {
  if (!control_.takesFocus()) return true;
  bool arrived = false;
  const int before = interruptions();
  perform([&] { arrived = control_.form().focus(control_) && isActive(); });
  return arrived && !detached_ && interruptions() == before;
}

void ControlTie::pressAll(const std::vector<Key>& typed) {
  for (const Key key : typed) {
    if (detached_) break;
    perform([&] { control_.form().press(key); });
  }
}

void ControlTie::typeAll(const std::vector<Key>& typed, const std::function<bool(Key)>& type) {
  const int before = interruptions();
  perform([&] {
    for (const Key key : typed) {
      if (detached_ || !isActive() || interruptions() != before || !type(key)) break;
    }
  });
}

}  // namespace quillet::view
