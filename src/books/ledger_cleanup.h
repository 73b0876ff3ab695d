// The clean-up of the ledger master: old data holds ledger ids in several rows, under several names
// or under one. Every further row doubles the figures that are joined with it; one row of each id
// is kept.
#pragma once

#include <string>

#include "ports/ports.h"

namespace quillet {

struct LedgerCleanup {
  long removed = 0;  // rows
  long left = 0;     // ids that have several rows even so
};

LedgerCleanup cleanLedgerMaster(ServiceObject& host);
// For the status line.
std::string textOf(const LedgerCleanup& cleanup);

}  // namespace quillet
