// What postings that failed in the middle left undone in the trial balances. It stands in the
// host, because it has to outlive the form that failed: whoever posts next makes the books right
// first (books/posting.h).
//
// The invariant, for every pair of ledger and group of a client's trial balance:
//
//     figure in the table + amount here = original figure + the client's journal lines
//
// A voucher is posted by several statements, and between two of them the table alone does not keep
// it. So each statement that changed one side is entered here as soon as it is done, and wherever
// the way ends, what is missing is known to the paisa. When nothing stands here for a client's
// table, that trial balance is as its journal explains it.
//
// What stands here is a difference, not a balance: a line of the pair that is altered elsewhere
// meanwhile keeps what was done to it, and the amount is added to that.
#pragma once

#include <compare>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "data/money.h"

namespace quillet {

struct LedgerGroup {
  long partId = 0;
  long allId = 0;
  auto operator<=>(const LedgerGroup&) const = default;
};

// The rows of one client in a trial balance's table.
struct ClientTable {
  std::string table;
  std::string client;  // code_no
};

class UnpostedChanges {
 public:
  // Amounts are signed, debit positive.
  void add(const ClientTable& books, LedgerGroup pair, Money amount);
  // 0 for a pair of which nothing is missing.
  Money of(const ClientTable& books, LedgerGroup pair) const;
  // The pairs of which something is missing.
  std::vector<LedgerGroup> pairs(const ClientTable& books) const;
  bool any(const ClientTable& books) const { return missing_.contains(keyOf(books)); }
  // The trial balances of which something is missing.
  std::vector<ClientTable> books() const;
  // The client's rows are gone from the table: its number may be another year's next.
  void forget(const ClientTable& books) { missing_.erase(keyOf(books)); }

 private:
  using Key = std::pair<std::string, std::string>;
  static Key keyOf(const ClientTable& books);
  struct Missing {
    ClientTable books;
    std::map<LedgerGroup, Money> amounts;
  };
  std::map<Key, Missing> missing_;
};

}  // namespace quillet
