// Posts amounts into one client's trial balance: the pair's rows are taken out and one row with the
// new balance is written. Statements are sent one by one, and what one that fails leaves undone
// stands in the unposted changes.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "books/merged_groups.h"
#include "books/trial_balance.h"
#include "books/unposted_changes.h"
#include "data/money.h"
#include "ports/ports.h"

namespace quillet {

class Posting {
 public:
  Posting(ServiceObject& host, UnpostedChanges& unposted, const ClientTable& books)
      : host_(host), unposted_(unposted), table_(host, books) {}

  const ClientTable& books() const { return table_.books(); }

  // Runs, if attached, when the table holds another balance of the pair.
  std::function<void(LedgerGroup pair, Money balance)> Changed;

  // Posts what earlier failures left undone; to be called before anything is stored or posted.
  // Throws when that fails again: the books are not to be built on then. What a year that was
  // deleted lacks is forgotten.
  void postMissing();
  // Whether nothing is missing.
  bool complete() const { return !unposted_.any(table_.books()); }
  // What the table lacks of the pair, and of which pairs.
  Money missing(LedgerGroup pair) const { return unposted_.of(table_.books(), pair); }
  std::vector<LedgerGroup> missing() const { return unposted_.pairs(table_.books()); }

  // The journal has gained a line, or lost one with the sign turned: its amount is to be posted.
  void journalChanged(LedgerGroup pair, Money amount);
  void post(LedgerGroup pair, Money amount);
  // The pair under which the table keeps it: the lines of a group that was merged away stand under
  // the one it went into.
  LedgerGroup pairInTable(LedgerGroup pair);

 private:
  void readMerged();
  Money storedBalance(LedgerGroup pair);
  void insertBalance(LedgerGroup pair, Money balance);

  ServiceObject& host_;
  UnpostedChanges& unposted_;
  TrialBalance table_;
  std::optional<MergedGroups> merged_;  // read when it is first needed
};

// Posts what is missing of every trial balance: what rewrites ledgers and groups in all tables, or
// reads the figures of a year to copy them, begins from whole books. Throws when that fails.
void postAllMissing(ServiceObject& host, UnpostedChanges& unposted);

}  // namespace quillet
