#include "books/opening_check.h"

#include <set>

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

  std::vector<OpeningDifference> compareBrought() {
    const PairBalances& brought = books_.year.brought->amounts;
    const Opening opening = openingOf(books_.closing, books_.choices);
    std::set<LedgerGroup> seen;
    for (const OpeningLine& line : opening.lines) {
      const auto found = brought.find(line.pair);
      seen.insert(line.pair);
      add(line.ledger, line.pair, line.opening, found == brought.end() ? Money() : found->second);
    }
    for (const auto& [pair, amount] : brought) {
      if (!seen.contains(pair)) add("", pair, Money(), amount);
    }
    // Stock or profit that nobody chose a ledger for.
    const Money open = opening.lastDifference - opening.difference;
    if (!open.isZero()) found_.push_back({"Not chosen: " + opening.question, "", open, Money()});
    return std::move(found_);
  }

  std::vector<OpeningDifference> compareStock() {
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
      found_.push_back({"Opening stock", group == 0 ? "" : groups_.name(group), stock, amount});
    }
    return std::move(found_);
  }

 private:
  void add(const std::string& newLedger, LedgerGroup pair, Money closing, Money opening) {
    if (closing == opening) return;
    found_.push_back({pair.partId == 0 ? newLedger : host_.GetPart_MastPartId(pair.partId),
                      groups_.name(pair.allId), closing, opening});
  }

  // The year's lines of opening stock before the vouchers, those of groups that nothing is bound to
  // together.
  std::map<long, Money> openingStock(const std::map<long, Money>& bound) const {
    PairBalances originals = balancesOf(books_.year.standing);
    for (const auto& [pair, amount] : books_.year.posted) originals[pair] -= amount;
    const auto primary = primaryGroups(host_);
    std::map<long, Money> opening;
    for (const auto& [pair, amount] : originals) {
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
  std::vector<OpeningDifference> found_;
};

}  // namespace

OpeningCheck checkOpening(ServiceObject& host, const std::string& client, const YearKeys& year) {
  const auto last = Registry(host).year(client, year.before(), YearSelect::home);
  if (!last || last->table.empty()) return {};
  const ForwardBooks books = readForwardBooks(host, *last);
  Checker checker(host, books);
  if (books.year.brought && !books.year.isEmpty()) {
    return {OpeningCheck::Basis::broughtForward, books.year.brought->when,
            checker.compareBrought()};
  }
  return {OpeningCheck::Basis::stockAlone, "", checker.compareStock()};
}

}  // namespace quillet
