// The host's busy indicator, shown while one of these lives: a load that fails takes it down too.
#pragma once

#include <string>

#include "host/context.h"

namespace quillet {

class Busy {
 public:
  explicit Busy(Context& context, const std::string& text = {}) : host_(*context.host) {
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
