// What a client's year ended with, as the next one begins from it: the balances of its lines, its
// closing stock, and where the raw-material binding has that stock opened.
#pragma once

#include <map>
#include <vector>

#include "books/registry.h"
#include "books/trial_balance.h"

namespace quillet {

struct ClosingLine {
  LedgerGroup pair;
  Money balance{};    // debit positive
  long side = debit;  // of its first row, for a line that stands at zero
  int primary = 0;    // the primary group; 0 when the master does not have the group
  bool operator==(const ClosingLine&) const = default;
};

struct ClosingStockLine {
  LedgerGroup pair;
  Money amount;
  bool operator==(const ClosingStockLine&) const = default;
};

struct ClosingBalances {
  std::vector<ClosingLine> lines;  // one for each pair, in the order of the rows
  std::vector<ClosingStockLine> stock;
  std::map<long, long> openingGroups;  // by the group of closing stock that is bound to it
  bool operator==(const ClosingBalances&) const = default;
};

ClosingBalances readClosingBalances(ServiceObject& host, const RegisteredYear& year);

// The groups of the master by their primary group's number.
std::map<long, int> primaryGroups(ServiceObject& host);

// Whether its ledgers begin a year at nothing: trading, incomes, expenses and appropriations.
bool isProfitAndLoss(int primary);

}  // namespace quillet
