// Places on the screen, in the pixels of whoever draws.
#pragma once

namespace quillet::view {

struct Size {
  int width = 0;
  int height = 0;
};

struct Bounds {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const Bounds&) const = default;
};

}  // namespace quillet::view
