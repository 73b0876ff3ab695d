// Several statements that are stored together or not at all. Within an act of the suite this is a
// part of the act's transaction.
#pragma once

#include "ports/ports.h"

namespace quillet {

class AllOrNothing {
 public:
  explicit AllOrNothing(ServiceObject& host) : host_(host) { host_.ConQuery("start transaction"); }
  // What was not kept is taken back.
  ~AllOrNothing() {
    if (kept_) return;
    try {
      host_.ConQuery("rollback");
    } catch (const std::exception&) {
      // It was rolled back already, with all that the host had begun.
    }
  }
  AllOrNothing(const AllOrNothing&) = delete;
  AllOrNothing& operator=(const AllOrNothing&) = delete;

  void keep() {
    host_.ConQuery("commit");
    kept_ = true;
  }

 private:
  ServiceObject& host_;
  bool kept_ = false;
};

}  // namespace quillet
