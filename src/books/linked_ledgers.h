// Which ledger took the place of one that was replaced. What is remembered of former years and
// imports goes on carrying the ids of ledgers that are gone; the host keeps where those went.
#pragma once

#include <vector>

#include "ports/ports.h"

namespace quillet {

class LinkedLedgers {
 public:
  explicit LinkedLedgers(ServiceObject& host) : host_(host) {}

  void keep(const std::vector<long>& ids, long by);
  // The ledger that stands in its place now, through all replacements: the id itself while the
  // master has it. 0 when it is gone, and was not replaced.
  long successor(long id) const;

 private:
  ServiceObject& host_;
};

}  // namespace quillet
