#include "books/balance_list.h"

#include "data/text.h"

namespace quillet {

std::optional<Money> PairAmounts::find(LedgerGroup pair) const {
  const auto found = amounts_.find(keyOf(pair));
  return found == amounts_.end() ? std::nullopt : std::optional(found->second);
}

void BalanceList::nameGroup(long allId, const std::string& name) {
  groups_.emplace(allId, upperCase(name));
}

void BalanceList::set(LedgerGroup pair, Money balance) {
  balances_.set(pair, balance);
  // Every ledger has a row without a group, and an old voucher may stand under a group that is
  // gone: neither proposes anything.
  const auto group = groups_.find(pair.allId);
  if (pair.allId == 0 || group == groups_.end() || group->second.empty()) return;
  const auto [first, isNew] = first_.try_emplace(pair.partId, pair.allId);
  if (!isNew && group->second < groups_.at(first->second)) first->second = pair.allId;
}

long BalanceList::firstGroup(long partId) const {
  const auto found = first_.find(partId);
  return found == first_.end() ? 0 : found->second;
}

}  // namespace quillet
