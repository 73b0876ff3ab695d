#include "books/posted_amounts.h"

#include "books/journal.h"
#include "books/merged_groups.h"

namespace quillet {

PairBalances postedAmounts(ServiceObject& host, const ClientTable& books) {
  PairBalances posted;
  const MergedGroups merged(host);
  for (const auto& [pair, amount] : Journal(host, books).posted()) {
    posted[{pair.partId, merged.successor(pair.allId)}] += amount;
  }
  std::erase_if(posted, [](const auto& each) { return each.second.isZero(); });
  return posted;
}

}  // namespace quillet
