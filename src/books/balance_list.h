// The balances of the ledger and group pairs of one client's year, as they are kept in memory while
// vouchers are typed and posted.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

#include "books/unposted_changes.h"
#include "data/money.h"

namespace quillet {

// What stands against pairs: signed amounts, debit positive.
class PairAmounts {
 public:
  void clear() { amounts_.clear(); }
  bool empty() const { return amounts_.empty(); }
  void add(LedgerGroup pair, Money amount) { amounts_[keyOf(pair)] += amount; }
  void set(LedgerGroup pair, Money amount) { amounts_[keyOf(pair)] = amount; }
  std::optional<Money> find(LedgerGroup pair) const;
  // 0 for a pair that is not there.
  Money of(LedgerGroup pair) const { return find(pair).value_or(Money()); }

 private:
  static std::uint64_t keyOf(LedgerGroup pair) {
    return static_cast<std::uint64_t>(pair.partId) << 32U | static_cast<std::uint32_t>(pair.allId);
  }
  std::unordered_map<std::uint64_t, Money> amounts_;
};

// Knows besides under which group a ledger stands first.
class BalanceList {
 public:
  // Groups are named before balances are set on them. One without a name is not in the master.
  void nameGroup(long allId, const std::string& name);
  // Writes the pair's balance; a pair that is new gets its place.
  void set(LedgerGroup pair, Money balance);
  std::optional<Money> find(LedgerGroup pair) const { return balances_.find(pair); }
  // The first of the ledger's groups by name; 0 when it stands under none.
  long firstGroup(long partId) const;

 private:
  PairAmounts balances_;
  std::unordered_map<long, std::string> groups_;  // the names in capitals
  std::unordered_map<long, long> first_;          // by ledger
};

}  // namespace quillet
