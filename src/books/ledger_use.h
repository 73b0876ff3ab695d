// Where ledgers stand in the years' tables: in trial balances, adjustment entries and closing
// stocks of every client and year. What is missing of these tables is passed over and named.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "books/unposted_changes.h"
#include "books/year_tables.h"

namespace quillet {

// Calls `found` once with each ledger that is in use: each table is asked only for those that were
// not found yet. False when a person stopped the search.
bool findLedgersInUse(ServiceObject& host, TableNames& missing,
                      const std::function<void(long id)>& found);
bool ledgerInUse(ServiceObject& host, long id, TableNames& missing);

struct LedgerUse {
  std::string client;
  std::string period;  // "01042008-31032009", "" for a year that the registry does not have
  const char* kind;
};
std::vector<LedgerUse> usesOf(ServiceObject& host, const std::vector<long>& ids,
                              TableNames& missing);

// Another ledger takes the place of one or of several in all tables. What earlier failures left
// unposted is posted before.
void replaceLedger(ServiceObject& host, UnpostedChanges& unposted, long id, long by,
                   TableNames& missing);
void replaceLedgers(ServiceObject& host, UnpostedChanges& unposted, const std::vector<long>& ids,
                    long by, TableNames& missing);

}  // namespace quillet
