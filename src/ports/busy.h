// Shows the host's busy indicator for as long as it exists, also when a load fails.
#pragma once

#include <string>

#include "ports/ports.h"

namespace quillet {

class Busy {
 public:
  explicit Busy(ServiceObject& host, const std::string& text = {}) : host_(host) {
    host_.progress(true);
    try {
      if (!text.empty()) host_.objProgress().Text1(text);
    } catch (...) {
      hide();
      throw;
    }
  }
  ~Busy() { hide(); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  // An indicator that cannot be hidden does not undo the work that it showed.
  void hide() {
    try {
      host_.progress(false);
    } catch (...) {
      return;
    }
  }

  ServiceObject& host_;
};

}  // namespace quillet
