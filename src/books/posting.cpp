#include "books/posting.h"

#include <exception>

#include "books/registry.h"

namespace quillet {

void Posting::readMerged() {
  if (!merged_) merged_.emplace(host_);
}

LedgerGroup Posting::pairInTable(LedgerGroup pair) {
  readMerged();
  pair.allId = merged_->successor(pair.allId);
  return pair;
}

void Posting::postMissing() {
  // Now, so that nothing can fail between a change of the journal and its entry here.
  readMerged();
  if (complete()) return;
  const ClientTable& books = table_.books();
  // Somebody may have deleted the year, and its journal with it.
  if (!Registry(host_).has(books.table, books.client)) return unposted_.forget(books);
  // A group may have been merged elsewhere since.
  for (const LedgerGroup pair : missing()) {
    const Money amount = missing(pair);
    unposted_.add(books, pair, -amount);
    unposted_.add(books, pairInTable(pair), amount);
  }
  for (const LedgerGroup pair : missing()) post(pair, missing(pair));
}

void Posting::journalChanged(LedgerGroup pair, Money amount) {
  unposted_.add(table_.books(), pairInTable(pair), amount);
}

void Posting::post(LedgerGroup pair, Money amount) {
  pair = pairInTable(pair);
  const Money before = storedBalance(pair);
  // Before the rows go: a sum that does not fit leaves everything as it is.
  const Money balance = before + amount;
  table_.removePair(pair);
  unposted_.add(table_.books(), pair, before);
  if (Changed) Changed(pair, Money());
  host_.ConQuery(flushTables);
  if (!balance.isZero()) insertBalance(pair, balance);
  unposted_.add(table_.books(), pair, -balance);
  if (Changed) Changed(pair, balance);
  if (!balance.isZero()) host_.ConQuery(flushTables);
}

Money Posting::storedBalance(LedgerGroup pair) {
  Money balance;
  for (const Line& line : table_.linesOf(pair, TrialBalance::Spelling::journal)) {
    balance += Money::rounded(line.nid == debit ? line.amount : -line.amount);
  }
  return balance;
}

void Posting::insertBalance(LedgerGroup pair, Money balance) {
  table_.insert({table_.nextSerial(), pair.partId, pair.allId, abs(balance).rupees(),
                 balance > Money() ? debit : credit});
}

void postAllMissing(ServiceObject& host, UnpostedChanges& unposted) {
  std::exception_ptr failure;
  for (const ClientTable& books : unposted.books()) {
    try {
      Posting(host, unposted, books).postMissing();
    } catch (const std::exception&) {
      failure = std::current_exception();  // the other books are posted all the same
    }
  }
  if (failure) std::rethrow_exception(failure);
}

}  // namespace quillet
