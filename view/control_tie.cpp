#include "view/control_tie.h"

#include "controls/pasted_cells.h"

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

bool ControlTie::takesCells(const std::string& pasted) {
  if (detached_ || !control_.PasteCells || !isCellRange(pasted)) return false;
  bool taken = false;
  perform([&] { taken = pasteCells(control_, pasted); });
  return taken;
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
