// Shows the host's busy indicator for as long as it exists, also when a load fails.
#pragma once

#include <string>

#include "ports/ports.h"

namespace quillet {

class Busy {
 public:
  explicit Busy(ServiceObject& host, const std::string& text = {}) : host_(host) {
    host_.progress(true);
    if (!text.empty()) host_.objProgress().Text1(text);
  }
  ~Busy() { host_.progress(false); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  ServiceObject& host_;
};

}  // namespace quillet
