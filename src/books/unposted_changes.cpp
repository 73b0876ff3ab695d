#include "books/unposted_changes.h"

#include "data/text.h"

namespace quillet {

// As the database compares them: capitals and blanks at the end do not count.
UnpostedChanges::Key UnpostedChanges::keyOf(const ClientTable& books) {
  return {upperCase(books.table), upperCase(trimmed(books.client))};
}

void UnpostedChanges::add(const ClientTable& books, LedgerGroup pair, Money amount) {
  Missing& missing = missing_.try_emplace(keyOf(books), Missing{books, {}}).first->second;
  if ((missing.amounts[pair] += amount).isZero()) missing.amounts.erase(pair);
  if (missing.amounts.empty()) forget(books);
}

Money UnpostedChanges::of(const ClientTable& books, LedgerGroup pair) const {
  const auto found = missing_.find(keyOf(books));
  if (found == missing_.end()) return {};
  const auto amount = found->second.amounts.find(pair);
  return amount == found->second.amounts.end() ? Money() : amount->second;
}

std::vector<LedgerGroup> UnpostedChanges::pairs(const ClientTable& books) const {
  std::vector<LedgerGroup> all;
  const auto found = missing_.find(keyOf(books));
  if (found == missing_.end()) return all;
  for (const auto& [pair, amount] : found->second.amounts) all.push_back(pair);
  return all;
}

std::vector<ClientTable> UnpostedChanges::books() const {
  std::vector<ClientTable> all;
  for (const auto& [key, missing] : missing_) all.push_back(missing.books);
  return all;
}

}  // namespace quillet
