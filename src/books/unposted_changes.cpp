#include "books/unposted_changes.h"

#include <cmath>

#include "data/text.h"

namespace quillet {

// As the database compares them: capitals and blanks at the end do not count.
UnpostedChanges::Key UnpostedChanges::keyOf(const ClientTable& books) {
  return {upperCase(books.table), upperCase(trimmed(books.client))};
}

void UnpostedChanges::add(const ClientTable& books, LedgerGroup pair, double amount) {
  Missing& missing = amounts_.try_emplace(keyOf(books), Missing{books, {}}).first->second;
  if ((missing.paise[pair] += std::llround(amount * 100)) == 0) missing.paise.erase(pair);
  if (missing.paise.empty()) forget(books);
}

double UnpostedChanges::of(const ClientTable& books, LedgerGroup pair) const {
  const auto found = amounts_.find(keyOf(books));
  if (found == amounts_.end()) return 0;
  const auto amount = found->second.paise.find(pair);
  return amount == found->second.paise.end() ? 0 : static_cast<double>(amount->second) / 100;
}

std::vector<LedgerGroup> UnpostedChanges::pairs(const ClientTable& books) const {
  std::vector<LedgerGroup> all;
  const auto found = amounts_.find(keyOf(books));
  if (found == amounts_.end()) return all;
  for (const auto& [pair, amount] : found->second.paise) all.push_back(pair);
  return all;
}

std::vector<ClientTable> UnpostedChanges::books() const {
  std::vector<ClientTable> all;
  for (const auto& [key, missing] : amounts_) all.push_back(missing.books);
  return all;
}

}  // namespace quillet
