// The names of ledgers that a list offers, without their ids.
#pragma once

#include <string>

#include "data/name_list.h"
#include "ports/ports.h"

namespace quillet {

// The names in the first column.
NameList namesIn(Recordset& rows);

NameList allLedgers(ServiceObject& host);
// Those that stand in any trial balance of the client.
NameList ledgersOf(ServiceObject& host, const std::string& client);

}  // namespace quillet
