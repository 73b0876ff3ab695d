// The balances of the ledger and group pairs of one client's year, as the journal keeps them in
// memory while vouchers are typed and posted.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

#include "books/unposted_changes.h"

namespace quillet {

// What stands against pairs: signed amounts, debit positive.
class PairAmounts {
 public:
  void clear() { amounts_.clear(); }
  void add(LedgerGroup pair, double amount) { amounts_[keyOf(pair)] += amount; }
  void set(LedgerGroup pair, double amount) { amounts_[keyOf(pair)] = amount; }
  std::optional<double> find(LedgerGroup pair) const;
  // 0 for a pair that is not there.
  double of(LedgerGroup pair) const { return find(pair).value_or(0); }

 private:
  static std::uint64_t keyOf(LedgerGroup pair) {
    return static_cast<std::uint64_t>(pair.partId) << 32U | static_cast<std::uint32_t>(pair.allId);
  }
  std::unordered_map<std::uint64_t, double> amounts_;
};

// Knows besides under which group a ledger stands first.
class BalanceList {
 public:
  void clear();
  // Writes the pair's balance; a pair that is new gets its place.
  void set(LedgerGroup pair, const std::string& group, double balance);
  std::optional<double> find(LedgerGroup pair) const { return balances_.find(pair); }
  // The first of the ledger's groups by name; 0 when it stands under none.
  long firstGroup(long partId) const;

 private:
  struct Group {
    long allId;
    std::string capitals;
  };
  PairAmounts balances_;
  std::unordered_map<long, Group> first_;
};

}  // namespace quillet
