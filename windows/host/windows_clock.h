// The clock of the computer, local time.
#pragma once

#include "ports/ports.h"

namespace quillet::windows {

class WindowsClock : public Clock {
 public:
  Date today() const override;
  std::string now() const override;
};

}  // namespace quillet::windows
