#include "books/opening_changes.h"

#include <algorithm>
#include <set>

namespace quillet {
namespace {

Money of(const PairBalances& balances, LedgerGroup pair) {
  const auto found = balances.find(pair);
  return found == balances.end() ? Money() : found->second;
}

class Comparison {
 public:
  explicit Comparison(const NewYear& year) : year_(year), balances_(balancesOf(year.standing)) {
    for (const Line& line : year.standing) rows_.insert({line.partId, line.allId});
    for (const LedgerGroup pair : rows_) ledgers_.insert(pair.partId);
    for (const auto& [pair, amount] : year.posted) ledgers_.insert(pair.partId);
  }

  OpeningChange compare(const OpeningLine& line) const {
    OpeningChange change{.line = line};
    change.standing = of(balances_, line.pair);
    const bool stands = rows_.contains(line.pair) || year_.posted.contains(line.pair);
    const std::optional<Money> before = brought(line.pair);
    const Money original = change.standing - of(year_.posted, line.pair);
    const bool asBrought = original == before.value_or(Money());
    change.after = change.standing + line.opening - there(line, original, before);
    const bool adds = !stands && !before && line.stands;
    // The opening of a ledger that has none is not what it stands at during the year.
    const bool ownFigure = !before && stands && line.opening.isZero();
    change.offered = adds || (change.after != change.standing && !ownFigure);
    if (!change.offered) {
      change.state = line.stands || stands ? OpeningState::same : OpeningState::leftOut;
    } else if (!stands && !before) {
      change.state = OpeningState::isNew;
    } else {
      change.state =
          before && asBrought ? OpeningState::changedLastYear : OpeningState::differsHere;
    }
    change.takenFirst =
        change.offered &&
        (change.state == OpeningState::changedLastYear ||
         (change.state == OpeningState::isNew && (year_.isEmpty() || year_.brought.has_value())));
    return change;
  }

 private:
  // What of the opening the year holds already. What stands there counts before what is remembered
  // of it; of a ledger that stands nowhere any more nothing does.
  Money there(const OpeningLine& line, Money original, std::optional<Money> before) const {
    if (!before || original == line.opening) return original;
    return ledgers_.contains(line.pair.partId) ? *before : Money();
  }

  // A year without lines begins anew, whatever was brought into it before.
  std::optional<Money> brought(LedgerGroup pair) const {
    if (!year_.brought || year_.isEmpty()) return std::nullopt;
    const auto found = year_.brought->amounts.find(pair);
    return found == year_.brought->amounts.end() ? std::nullopt : std::optional(found->second);
  }

  const NewYear& year_;
  PairBalances balances_;
  std::set<LedgerGroup> rows_;
  std::set<long> ledgers_;
};

}  // namespace

const char* nameOf(OpeningState state) {
  switch (state) {
    case OpeningState::isNew:
      return "New";
    case OpeningState::same:
      return "The same";
    case OpeningState::changedLastYear:
      return "Old year changed";
    case OpeningState::differsHere:
      return "Differs here";
    default:
      return "Left out";
  }
}

std::vector<OpeningChange> openingChanges(const Opening& opening, const NewYear& year) {
  const Comparison comparison(year);
  std::vector<OpeningChange> changes;
  std::set<LedgerGroup> opened;
  for (const OpeningLine& line : opening.lines) {
    changes.push_back(comparison.compare(line));
    opened.insert(line.pair);
  }
  if (!year.brought || year.isEmpty()) return changes;
  for (const auto& [pair, amount] : year.brought->amounts) {
    if (amount.isZero() || opened.contains(pair)) continue;
    changes.push_back(comparison.compare({.pair = pair, .reason = "No longer in the old year"}));
  }
  return changes;
}

}  // namespace quillet
