// The account group that a ledger stands under already: what is proposed when it is entered again.
#pragma once

#include <unordered_map>
#include <vector>

#include "books/account_groups.h"
#include "books/two_years.h"
#include "ports/ports.h"

namespace quillet {

// The ledger of that name, 0 when the master has none.
long ledgerNamed(ServiceObject& host, const std::string& name);

// The ledger's group in the year in view, else in the client's other one of the two, else the one
// that most lines of it have in the years of all clients; 0 when it has none that the master knows.
// Lines that were read already cost no statement; only a ledger that is new to both years has every
// table asked, by its index on the ledger.
long usualGroup(ServiceObject& host, const TwoYears& years, const AccountGroups& groups,
                long partId);

// By ledger, what the last step of that gives for many of them; ledgers without lines are left out.
std::unordered_map<long, long> usualGroups(ServiceObject& host, const AccountGroups& groups,
                                           const std::vector<long>& partIds);

}  // namespace quillet
