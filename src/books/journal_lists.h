// What is read when the journal of a client's year is opened: the ledgers and groups that its lines
// may name, and the balances of the pairs.
#pragma once

#include <optional>
#include <string>

#include "books/balance_list.h"
#include "data/name_list.h"
#include "data/names.h"
#include "ports/ports.h"

namespace quillet {

struct JournalLists {
  NameList ledgers;
  NameList groups;
  BalanceList balances;
};

// Goes through the scratch tables, which are gone afterwards however it ends.
JournalLists readJournalLists(ServiceObject& host, const ClientTable& books);

// The ledger that the database finds for a name, which may be another one.
std::optional<NamedId> findLedger(ServiceObject& host, const std::string& name);

}  // namespace quillet
