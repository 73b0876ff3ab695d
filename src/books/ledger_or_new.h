// The ledger of a name that comes from outside.
#pragma once

#include <string>
#include <vector>

#include "ports/ports.h"

namespace quillet {

// Its id; the ledger is made when there is none. Throws when it cannot be made, or when the
// database takes the name for that of another ledger.
long ledgerOrNew(ServiceObject& host, const std::string& name);

// Where there are many, this goes ahead of so many at a time.
inline constexpr std::size_t ledgersAtOnce = 200;
void lookUpLedgers(ServiceObject& host, const std::vector<std::string>& names);

}  // namespace quillet
