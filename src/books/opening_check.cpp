#include "books/opening_check.h"

#include <map>
#include <utility>

#include "books/account_groups.h"
#include "books/forward_entry.h"
#include "books/primary_groups.h"

namespace quillet {
namespace {

class Checker {
 public:
  Checker(ServiceObject& host, const ForwardBooks& books) : host_(host), books_(books) {
    groups_.load(host);
  }

  OpeningCheck compareBrought() {
    check_.basis = OpeningCheck::Basis::broughtForward;
    check_.when = books_.year.brought->when;
    PairBalances brought = books_.year.brought->amounts;
    const PairBalances standing = originals();
    const Opening opening = openingOf(books_.closing, books_.choices);
    for (const OpeningLine& line : opening.lines) {
      compare(line, of(brought, line.pair), of(standing, line.pair));
      brought.erase(line.pair);
    }
    for (const auto& [pair, amount] : brought) {
      compare({.pair = pair}, amount, of(standing, pair));
    }
    // Stock or profit that nobody chose a ledger for.
    const Money open = opening.lastDifference - opening.difference;
    if (!open.isZero()) tell("Not chosen: " + opening.question, "", open, Money());
    return std::move(check_);
  }

  OpeningCheck compareStock() {
    check_.basis = OpeningCheck::Basis::stockAlone;
    std::map<long, Money> closing;  // by the group of opening stock; 0: not bound
    for (const ClosingStockLine& line : books_.closing.stock) {
      const auto bound = books_.closing.openingGroups.find(line.pair.allId);
      closing[bound == books_.closing.openingGroups.end() ? 0 : bound->second] += line.amount;
    }
    std::map<long, Money> opening = openingStock(closing);
    for (const auto& [group, amount] : closing) opening.emplace(group, Money());
    for (const auto& [group, amount] : opening) {
      const Money stock = closing[group];
      if (stock == amount) continue;
      tell("Opening stock", group == 0 ? "" : groups_.name(group), stock, amount);
    }
    return std::move(check_);
  }

 private:
  static Money of(const PairBalances& balances, LedgerGroup pair) {
    const auto found = balances.find(pair);
    return found == balances.end() ? Money() : found->second;
  }

  void tell(const std::string& ledger, const std::string& group, Money closing, Money opening) {
    check_.differences.push_back({ledger, group, closing, opening});
  }

  // A line that stands at its opening agrees, whatever was brought forward.
  void compare(const OpeningLine& line, Money brought, Money standing) {
    if (standing == line.opening) return;
    if (brought != line.opening) {
      tell(line.pair.partId == 0 ? line.ledger : host_.GetPart_MastPartId(line.pair.partId),
           groups_.name(line.pair.allId), line.opening, brought);
    } else if (!brought.isZero()) {
      ++check_.changedSince;
    }
  }

  // The year's lines before the vouchers.
  PairBalances originals() const {
    PairBalances originals = balancesOf(books_.year.standing);
    for (const auto& [pair, amount] : books_.year.posted) originals[pair] -= amount;
    return originals;
  }

  // Its lines of opening stock, those of groups that nothing is bound to together.
  std::map<long, Money> openingStock(const std::map<long, Money>& bound) const {
    const auto primary = primaryGroups(host_);
    std::map<long, Money> opening;
    for (const auto& [pair, amount] : originals()) {
      const auto group = primary.find(pair.allId);
      if (group == primary.end() || group->second != static_cast<int>(PrimaryGroup::openingStock)) {
        continue;
      }
      opening[bound.contains(pair.allId) ? pair.allId : 0] += amount;
    }
    return opening;
  }

  ServiceObject& host_;
  const ForwardBooks& books_;
  AccountGroups groups_;
  OpeningCheck check_;
};

}  // namespace

OpeningCheck checkOpening(ServiceObject& host, const std::string& client, const YearKeys& year) {
  const auto last = Registry(host).year(client, year.before(), YearSelect::home);
  if (!last || last->table.empty()) return {};
  const ForwardBooks books = readForwardBooks(host, *last);
  Checker checker(host, books);
  const bool begun = books.year.brought && !books.year.isEmpty();
  return begun ? checker.compareBrought() : checker.compareStock();
}

}  // namespace quillet
