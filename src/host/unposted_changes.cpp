#include "host/unposted_changes.h"

#include <cmath>

#include "data/text.h"

namespace quillet {

// As the database compares them: capitals and blanks at the end do not count.
UnpostedChanges::Key UnpostedChanges::keyOf(const ClientTable& books) {
  return {upperCase(books.table), upperCase(trimmed(books.client))};
}

void UnpostedChanges::add(const ClientTable& books, LedgerGroup pair, double amount) {
  std::map<LedgerGroup, std::int64_t>& pairs = amounts_[keyOf(books)];
  if ((pairs[pair] += std::llround(amount * 100)) == 0) pairs.erase(pair);
  if (pairs.empty()) forget(books);
}

double UnpostedChanges::of(const ClientTable& books, LedgerGroup pair) const {
  const auto found = amounts_.find(keyOf(books));
  if (found == amounts_.end()) return 0;
  const auto amount = found->second.find(pair);
  return amount == found->second.end() ? 0 : static_cast<double>(amount->second) / 100;
}

std::vector<LedgerGroup> UnpostedChanges::pairs(const ClientTable& books) const {
  std::vector<LedgerGroup> all;
  const auto found = amounts_.find(keyOf(books));
  if (found == amounts_.end()) return all;
  for (const auto& [pair, amount] : found->second) all.push_back(pair);
  return all;
}

}  // namespace quillet
