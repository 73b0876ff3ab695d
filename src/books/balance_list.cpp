#include "books/balance_list.h"

#include "data/text.h"

namespace quillet {

std::optional<double> PairAmounts::find(LedgerGroup pair) const {
  const auto found = amounts_.find(keyOf(pair));
  return found == amounts_.end() ? std::nullopt : std::optional(found->second);
}

void BalanceList::clear() {
  balances_.clear();
  first_.clear();
}

void BalanceList::set(LedgerGroup pair, const std::string& group, double balance) {
  balances_.set(pair, balance);
  // Every ledger has a row without a group, and an old voucher may stand under a group that is
  // gone: neither proposes anything.
  if (pair.allId == 0 || group.empty()) return;
  const std::string capitals = upperCase(group);
  const auto [first, isNew] = first_.try_emplace(pair.partId, Group{pair.allId, capitals});
  if (!isNew && capitals < first->second.capitals) first->second = {pair.allId, capitals};
}

long BalanceList::firstGroup(long partId) const {
  const auto found = first_.find(partId);
  return found == first_.end() ? 0 : found->second.allId;
}

}  // namespace quillet
