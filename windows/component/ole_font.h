// The platform's font objects, which hosts read and change.
#pragma once

#include <olectl.h>

#include <functional>

#include "windows/com/pointer.h"

namespace quillet::windows {

// Sizes are ten-thousandths of points.
CY pointsAsCurrency(double points);

// The font of the system's dialogs. Throws when it cannot be made.
Pointer<IFont> newSystemFont();

// Learns when somebody changes a font.
class FontChanges {
 public:
  explicit FontChanges(std::function<void()> changed);
  ~FontChanges();
  FontChanges(const FontChanges&) = delete;
  FontChanges& operator=(const FontChanges&) = delete;

  // In place of the one before; null for none.
  void follow(const Pointer<IFont>& font);

 private:
  class Listener;

  Pointer<Listener> listener_;
  Pointer<IConnectionPoint> point_;
  DWORD cookie_ = 0;
};

}  // namespace quillet::windows
