// The clean-up of the ledger master: old data holds ledger ids under several names; one name of
// each id is kept.
#pragma once

#include "host/context.h"

namespace quillet {

// Returns how many names were removed.
long cleanLedgerMaster(Context& context);

}  // namespace quillet
