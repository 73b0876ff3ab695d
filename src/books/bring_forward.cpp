#include "books/bring_forward.h"

#include <algorithm>

#include "books/primary_groups.h"

namespace quillet {
namespace {

constexpr const char* usualStockLedger = "Opening Stock";

bool isUnder(int primary, PrimaryGroup group) { return primary == static_cast<int>(group); }

class OpeningBuilder {
  using Choice = Opening::Choice;

 public:
  OpeningBuilder(const ClosingBalances& closing, const OpeningChoices& choices)
      : closing_(closing), choices_(choices) {}

  Opening build() {
    for (const ClosingLine& line : closing_.lines) addLine(line);
    for (const ClosingStockLine& line : closing_.stock) addStock(line);
    if (!opening_.unboundStock.isZero()) addUnboundStock();
    addProfit();
    for (OpeningLine& line : opening_.lines) {
      line.stands = !line.opening.isZero() || choices_.keepsZero;
      opening_.difference += line.opening;
    }
    if (opening_.lines.empty()) ask("The old year has nothing to bring forward.", Choice::none);
    return std::move(opening_);
  }

 private:
  void ask(const std::string& question, Opening::Choice choice) {
    if (!opening_.question.empty()) return;
    opening_.question = question;
    opening_.asked = choice;
  }

  void addLine(const ClosingLine& line) {
    OpeningLine& opened = opening_.lines.emplace_back();
    opened.pair = line.pair;
    opened.last = line.balance;
    opened.side = line.side;
    opening_.lastDifference += line.balance;
    if (isProfitAndLoss(line.primary)) {
      opening_.profit -= line.balance;
      opened.reason = "Profit and loss: begins at zero";
    } else {
      opened.opening = line.balance;
      opened.reason = line.primary == 0 ? "Its group is not in the master: carried as it stands"
                                        : "Balance sheet";
    }
  }

  OpeningLine& lineOf(LedgerGroup pair, const std::string& ledger) {
    const auto found = std::ranges::find_if(opening_.lines, [&](const OpeningLine& line) {
      return line.pair == pair && (pair.partId != 0 || line.ledger == ledger);
    });
    if (found != opening_.lines.end()) return *found;
    opening_.lines.push_back({.pair = pair, .ledger = ledger});
    return opening_.lines.back();
  }

  void add(OpeningLine& line, Money amount, const std::string& reason) {
    // Of a ledger that would begin at nothing, or is new, this is all that there is to say.
    const bool isAll = line.reason.empty() || line.opening != line.last;
    line.reason = isAll ? reason : line.reason + "; " + reason;
    line.opening += amount;
    if (!line.opening.isZero()) line.side = line.opening < Money() ? credit : debit;
  }

  void addStock(const ClosingStockLine& line) {
    opening_.profit += line.amount;
    const auto bound = closing_.openingGroups.find(line.pair.allId);
    if (bound == closing_.openingGroups.end()) {
      opening_.unboundStock += line.amount;
      return;
    }
    add(lineOf({ledgerOfBound(line.pair.partId, bound->second), bound->second}, usualStockLedger),
        line.amount, "Closing stock of the old year, by the raw-material binding");
  }

  // Its own ledger where that stands there or no other does alone.
  long ledgerOfBound(long own, long group) const {
    const bool stands = std::ranges::any_of(closing_.lines, [&](const ClosingLine& line) {
      return line.pair == LedgerGroup{own, group};
    });
    return stands ? own : onlyLedgerIn(closing_, group).value_or(own);
  }

  void addUnboundStock() {
    if (choices_.stock.allId == 0) {
      return ask("Choose the group of the opening stock.", Choice::stockGroup);
    }
    if (choices_.stock.partId == 0 && choices_.stockLedger.empty()) {
      return ask("Type the ledger of the opening stock.", Choice::stockLedger);
    }
    add(lineOf(choices_.stock, choices_.stockLedger), opening_.unboundStock,
        "Closing stock of the old year");
  }

  void addProfit() {
    const Money profit = opening_.profit;
    if (profit.isZero()) return;
    const std::string what = profit < Money() ? "loss" : "profit";
    if (choices_.shares.empty()) {
      return ask("Choose whose capital takes the " + what + '.', Choice::shares);
    }
    const long sum = sumOf(choices_.shares);
    if (sum != wholeShare) {
      return ask("The shares of the " + what + " come to " + percentText(sum) +
                     " per cent. They have to come to 100.",
                 Choice::shares);
    }
    const std::vector<Money> amounts = amountsOf(profit, choices_.shares);
    for (std::size_t at = 0; at < amounts.size(); ++at) {
      const ProfitShare& share = choices_.shares[at];
      add(lineOf(share.pair, share.ledger), -amounts[at],
          percentText(share.millionths) + " % of the " + what);
    }
  }

  const ClosingBalances& closing_;
  const OpeningChoices& choices_;
  Opening opening_;
};

// Where the old year had opening stock, else the first of the master; rather one that nothing is
// bound to. 0 when there is none.
long usualStockGroup(const ClosingBalances& closing, const std::map<long, int>& groups) {
  std::vector<long> all;
  for (const ClosingLine& line : closing.lines) {
    if (isUnder(line.primary, PrimaryGroup::openingStock)) all.push_back(line.pair.allId);
  }
  for (const auto& [group, primary] : groups) {
    if (isUnder(primary, PrimaryGroup::openingStock)) all.push_back(group);
  }
  const auto free = std::ranges::find_if(all, [&](long group) {
    return std::ranges::none_of(closing.openingGroups,
                                [&](const auto& bound) { return bound.second == group; });
  });
  if (free != all.end()) return *free;
  return all.empty() ? 0 : all.front();
}

}  // namespace

Opening openingOf(const ClosingBalances& closing, const OpeningChoices& choices) {
  return OpeningBuilder(closing, choices).build();
}

std::optional<long> onlyLedgerIn(const ClosingBalances& closing, long group) {
  std::optional<long> found;
  for (const ClosingLine& line : closing.lines) {
    if (line.pair.allId != group) continue;
    if (found) return std::nullopt;
    found = line.pair.partId;
  }
  return found;
}

OpeningChoices usualChoices(const ClosingBalances& closing, const std::map<long, int>& groups) {
  OpeningChoices choices;
  choices.stock.allId = usualStockGroup(closing, groups);
  const auto ledger = onlyLedgerIn(closing, choices.stock.allId);
  choices.stock.partId = ledger.value_or(0);
  if (!ledger) choices.stockLedger = usualStockLedger;
  std::vector<LedgerGroup> capitals;
  for (const ClosingLine& line : closing.lines) {
    // Drawings stand under capital, too, and on the other side.
    if (isUnder(line.primary, PrimaryGroup::capital) && line.balance < Money()) {
      capitals.push_back(line.pair);
    }
  }
  if (capitals.size() == 1) choices.shares = {{.pair = capitals[0], .millionths = wholeShare}};
  return choices;
}

}  // namespace quillet
