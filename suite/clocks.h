// The clock of the machine, and one that a script or a test sets.
#pragma once

#include <optional>

#include "ports/ports.h"

namespace quillet::suite {

class SystemClock : public Clock {
 public:
  Date today() const override;
  std::string now() const override;
};

// Follows the machine's clock until it is set; from then on it is always noon of that day.
class FixedClock : public Clock {
 public:
  void set(Date date) { date_ = date; }
  Date today() const override;
  std::string now() const override;

 private:
  std::optional<Date> date_;
};

}  // namespace quillet::suite
