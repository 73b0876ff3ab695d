// Posts amounts into one client's trial balance: the pair's rows are taken out and one row with the
// new balance is written. Statements are sent one by one, and what one that fails leaves undone
// stands in the context's unposted changes.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "books/merged_groups.h"
#include "books/unposted_changes.h"
#include "ports/ports.h"

namespace quillet {

class Posting {
 public:
  Posting(ServiceObject& host, UnpostedChanges& unposted) : host_(host), unposted_(unposted) {}

  // The client's rows of that table, from now on.
  void open(const ClientTable& books);
  // Runs, if attached, when the table holds another balance of the pair.
  std::function<void(LedgerGroup pair, double balance)> Changed;

  // Posts what earlier failures left undone; to be called before anything is stored or posted.
  // Throws when that fails again: the books are not to be built on then. What a year that was
  // deleted lacks is forgotten.
  void settle();
  bool settled() const { return !unposted_.any(books_); }
  // What the table lacks of the pair, and of which pairs.
  double missing(LedgerGroup pair) const { return unposted_.of(books_, pair); }
  std::vector<LedgerGroup> missing() const { return unposted_.pairs(books_); }

  // The journal has gained a line, or lost one with the sign turned: its amount is to be posted.
  void journalChanged(LedgerGroup pair, double amount);
  void post(LedgerGroup pair, double amount);
  // The pair under which the table keeps it: the lines of a group that was merged away stand under
  // the one it went into.
  LedgerGroup standing(LedgerGroup pair);

 private:
  void readMerged();
  bool yearIsThere();
  double storedBalance(const Sql& ofPair);
  void insertBalance(LedgerGroup pair, double balance);

  ServiceObject& host_;
  UnpostedChanges& unposted_;
  ClientTable books_;
  Sql table_;
  Sql client_;                          // code_no as it stands between quotes
  std::optional<MergedGroups> merged_;  // read when it is first needed
};

// Settles every trial balance of which something is missing: what rewrites ledgers and groups in
// all tables, or reads the figures of a year to copy them, begins from whole books. Throws when
// that fails.
void settlePostings(ServiceObject& host, UnpostedChanges& unposted);

}  // namespace quillet
