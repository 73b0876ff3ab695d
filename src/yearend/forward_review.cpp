#include "yearend/forward_review.h"

#include <algorithm>
#include <utility>

namespace quillet {
namespace {

void add(SideTotals& totals, Money balance) {
  (balance < Money() ? totals.credit : totals.debit) += abs(balance);
}

}  // namespace

void ForwardReview::open(ForwardBooks books) {
  forget();
  choices_ = books.choices;
  open_ = true;
  setBooks(std::move(books));
}

void ForwardReview::setBooks(ForwardBooks books) {
  books_ = std::move(books);
  reckon();
}

void ForwardReview::forget() { *this = {}; }

ForwardReview::Key ForwardReview::keyOf(const OpeningLine& line) {
  return {line.pair.partId, line.pair.allId, line.ledger};
}

void ForwardReview::reckon() {
  opening_ = openingOf(books_.closing, choices_);
  rows_.clear();
  for (OpeningChange& change : openingChanges(opening_, books_.year)) {
    const auto tick = ticks_.find(keyOf(change.line));
    const bool taken = change.offered && (tick == ticks_.end() ? change.takenFirst : tick->second);
    rows_.push_back({std::move(change), taken});
  }
}

void ForwardReview::choose(const std::function<void(OpeningChoices& choices)>& change) {
  OpeningChoices chosen = choices_;
  change(chosen);
  if (chosen == choices_) return;
  choices_ = std::move(chosen);
  touched_ = true;
  reckon();
}

void ForwardReview::take(std::size_t row, bool taken) {
  Row& changed = rows_.at(row);
  if (!changed.change.offered || changed.taken == taken) return;
  changed.taken = taken;
  ticks_[keyOf(changed.change.line)] = taken;
  touched_ = true;
}

bool ForwardReview::takesAny() const { return std::ranges::any_of(rows_, &Row::taken); }

bool ForwardReview::leavesAny() const {
  return std::ranges::any_of(rows_,
                             [](const Row& row) { return row.change.offered && !row.taken; });
}

bool ForwardReview::remembersOther() const {
  const auto& brought = books_.year.brought;
  return brought && std::ranges::any_of(rows_, [&](const Row& row) {
           const auto found = brought->amounts.find(row.change.line.pair);
           return !row.change.offered && found != brought->amounts.end() &&
                  found->second != row.change.line.opening;
         });
}

SideTotals ForwardReview::last() const {
  SideTotals totals;
  for (const ClosingLine& line : books_.closing.lines) add(totals, line.balance);
  return totals;
}

SideTotals ForwardReview::brought() const {
  SideTotals totals;
  for (const OpeningLine& line : opening_.lines) add(totals, line.opening);
  return totals;
}

SideTotals ForwardReview::afterwards() const {
  PairBalances balances = balancesOf(books_.year.standing);
  SideTotals totals;
  for (const auto& [change, taken] : rows_) {
    if (!taken) continue;
    // A ledger that is yet to be made stands nowhere.
    if (change.line.pair.partId != 0) balances.erase(change.line.pair);
    add(totals, change.after);
  }
  for (const auto& [pair, balance] : balances) add(totals, balance);
  return totals;
}

}  // namespace quillet
