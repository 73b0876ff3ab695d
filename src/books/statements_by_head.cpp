#include "books/statements_by_head.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "books/primary_groups.h"
#include "data/names.h"

namespace quillet {
namespace {

constexpr const char* resultName = "Profit/(Loss) for the year";

bool isCreditSide(HeadKind kind) { return kind == HeadKind::liability || kind == HeadKind::income; }

void add(TwoAmounts& sum, const TwoAmounts& amounts) {
  for (std::size_t year = 0; year < sum.size(); ++year) sum[year] += amounts[year];
}

// Where a primary group stands; nothing for a number that no practice begins with.
std::optional<HeadKind> kindOfPrimary(long number) {
  using enum PrimaryGroup;
  if (number < static_cast<long>(capital) || number > static_cast<long>(appropriations)) {
    return std::nullopt;
  }
  switch (static_cast<PrimaryGroup>(number)) {
    case capital:
    case reserves:
    case securedLoans:
    case unsecuredLoans:
    case currentLiabilities:
    case provisions:
    case otherLiabilities:
      return HeadKind::liability;
    case sales:
    case otherIncomes:
      return HeadKind::income;
    case fixedAssets:
    case investments:
    case closingStock:
    case debtors:
    case cashAndBank:
    case otherCurrentAssets:
    case loansAndAdvances:
    case miscellaneousExpenditure:
    case otherAssets:
      return HeadKind::asset;
    default:
      return HeadKind::expense;
  }
}

std::optional<HeadKind> kindOfGrand(long number) {
  constexpr HeadKind kinds[] = {HeadKind::asset, HeadKind::liability, HeadKind::income,
                                HeadKind::expense};
  if (number < 1 || number > 4) return std::nullopt;
  return kinds[number - 1];
}

// Puts amounts under heads, and makes the statements of what stands there.
class Placing {
 public:
  Placing(const StatementBooks& books, const GroupMappings& mappings,
          const StatutoryHeadList& heads, Scheme scheme)
      : books_(books), mappings_(mappings), heads_(heads), scheme_(scheme) {}

  StatementsByHead statements() {
    for (const std::size_t year : {0, 1}) {
      for (const BookedAmount& line : books_.lines[year]) {
        put(placeOf(line.pair.allId), line.pair, year, line.amount);
      }
      for (const BookedAmount& stock : books_.stock[year]) putStock(stock, year);
    }
    StatementsByHead made;
    for (const HeadKind kind : {HeadKind::income, HeadKind::expense}) make(made, kind);
    made.result = made.of(HeadKind::income).total;
    for (const std::size_t year : {0, 1}) {
      made.result[year] -= made.of(HeadKind::expense).total[year];
    }
    for (const HeadKind kind : {HeadKind::liability, HeadKind::asset}) make(made, kind);
    putResult(made);
    return made;
  }

 private:
  struct Place {
    HeadKind kind = HeadKind::asset;
    const StatutoryHead* head = nullptr;  // mapped to none
    std::string lostHead = {};
  };
  // By the key of the name, so that they are in their order; several may have one name.
  using NameAndId = std::pair<std::string, long>;
  struct GatheredGroup {
    std::string name, lostHead;
    std::map<NameAndId, ScheduleLedger> ledgers;
  };
  using GatheredGroups = std::map<NameAndId, GatheredGroup>;

  const StatutoryHead* mappedTo(long group, Scheme scheme) const {
    const auto found = mappings_.find(group);
    return found == mappings_.end() ? nullptr : heads_.find(scheme, found->second.head(scheme).id);
  }

  const Place& placeOf(long group) {
    const auto known = places_.find(group);
    if (known != places_.end()) return known->second;
    const StatutoryHead* head = mappedTo(group, scheme_);
    return places_[group] = head ? Place{head->kind, head}
                                 : Place{unmappedKind(group), nullptr, lostHead(group)};
  }

  // A group of no known side counts where this year's balance has it, or else last year's.
  HeadKind unmappedKind(long group) const {
    if (const auto found = books_.groups.find(group); found != books_.groups.end()) {
      if (const auto kind = kindOfPrimary(found->second.primary)) return *kind;
      if (const auto kind = kindOfGrand(found->second.grand)) return *kind;
    }
    for (const auto& lines : books_.lines) {
      Money sum;
      for (const BookedAmount& line : lines) {
        if (line.pair.allId == group) sum += line.amount;
      }
      if (!sum.isZero()) return sum < Money() ? HeadKind::liability : HeadKind::asset;
    }
    return HeadKind::asset;
  }

  std::string lostHead(long group) const {
    const auto found = mappings_.find(group);
    if (found == mappings_.end()) return {};
    const NamedId& head = found->second.head(scheme_);
    if (head.id == 0) return {};
    return head.name.empty() ? "number " + std::to_string(head.id) : head.name;
  }

  std::string groupName(long group) const {
    const auto found = books_.groups.find(group);
    if (found != books_.groups.end()) return found->second.name;
    return group == 0 ? "No group" : "Group " + std::to_string(group);
  }
  std::string ledgerName(long ledger) const {
    const auto found = books_.ledgers.find(ledger);
    if (found != books_.ledgers.end() && !found->second.empty()) return found->second;
    return ledger == 0 ? "No ledger" : "Ledger " + std::to_string(ledger);
  }

  void put(const Place& place, LedgerGroup pair, std::size_t year, Money balance) {
    const std::string name = groupName(pair.allId);
    GatheredGroup& group =
        gathered_[static_cast<std::size_t>(place.kind)][place.head][{nameKey(name), pair.allId}];
    group.name = name;
    group.lostHead = place.lostHead;
    const std::string ledger = ledgerName(pair.partId);
    ScheduleLedger& line = group.ledgers[{nameKey(ledger), pair.partId}];
    line.name = ledger;
    line.amounts[year] += isCreditSide(place.kind) ? -balance : balance;
  }

  // Once as an asset, once against the costs.
  void putStock(const BookedAmount& stock, std::size_t year) {
    const long group = stock.pair.allId;
    const StatutoryHead* mapped = mappedTo(group, scheme_);
    const bool asAsset = mapped && inBalanceSheet(mapped->kind);
    put(asAsset ? Place{mapped->kind, mapped}
                : Place{HeadKind::asset, nullptr, mapped ? "" : lostHead(group)},
        stock.pair, year, stock.amount);
    const StatutoryHead* head = mapped && !asAsset ? mapped : stockHead(roleOf(group, year));
    put({head ? head->kind : HeadKind::expense, head}, stock.pair, year, -stock.amount);
  }

  // What kind of stock a group holds: as an asset that it is mapped to in either list says, or the
  // raw-material binding.
  HeadRole roleOf(long group, std::size_t year) const {
    for (const Scheme scheme : schemes) {
      const StatutoryHead* head = mappedTo(group, scheme);
      if (head && inBalanceSheet(head->kind) && head->role != HeadRole::none) return head->role;
    }
    const auto bound = books_.boundStock[year].find(group);
    return bound == books_.boundStock[year].end() ? HeadRole::closingStock : bound->second;
  }

  // Null where the list has no head for any closing stock.
  const StatutoryHead* stockHead(HeadRole role) const {
    for (const HeadRole wanted : {role, HeadRole::closingStock}) {
      for (const StatutoryHead& head : heads_.heads) {
        if (head.scheme == scheme_ && head.role == wanted && !inBalanceSheet(head.kind)) {
          return &head;
        }
      }
    }
    return nullptr;
  }

  static HeadFigures figuresOf(GatheredGroups&& gathered) {
    HeadFigures figures;
    for (auto& [key, from] : gathered) {
      ScheduleGroup& group = figures.groups.emplace_back();
      group.name = std::move(from.name);
      group.lostHead = std::move(from.lostHead);
      for (auto& [name, ledger] : from.ledgers) {
        add(group.amounts, ledger.amounts);
        group.ledgers.push_back(std::move(ledger));
      }
      add(figures.amounts, group.amounts);
    }
    return figures;
  }

  void make(StatementsByHead& statements, HeadKind kind) {
    KindFigures& made = statements.kinds[static_cast<std::size_t>(kind)];
    auto& gathered = gathered_[static_cast<std::size_t>(kind)];
    for (const StatutoryHead& head : heads_.heads) {
      const auto found = gathered.find(&head);
      if (found == gathered.end()) continue;
      HeadFigures& figures = made.heads.emplace_back(figuresOf(std::move(found->second)));
      figures.head = head;
      add(made.total, figures.amounts);
    }
    made.unmapped = figuresOf(std::move(gathered[nullptr]));
    made.unmapped.head.kind = kind;
    add(made.total, made.unmapped.amounts);
  }

  // Under the head that takes it: of several the first that is in use.
  void putResult(StatementsByHead& statements) const {
    if (statements.result == TwoAmounts{}) return;
    KindFigures& made = statements.kinds[static_cast<std::size_t>(HeadKind::liability)];
    const auto takes = [&](const StatutoryHead& head) {
      return head.scheme == scheme_ && head.role == HeadRole::result &&
             head.kind == HeadKind::liability;
    };
    HeadFigures* under = &made.unmapped;
    const auto used = std::ranges::find_if(made.heads, takes, &HeadFigures::head);
    const auto head = std::ranges::find_if(heads_.heads, takes);
    if (used != made.heads.end()) {
      under = &*used;
    } else if (head != heads_.heads.end()) {
      const auto before = std::ranges::find_if(made.heads, [&](const HeadFigures& figures) {
        return heads_.find(scheme_, figures.head.id) > &*head;
      });
      under = &*made.heads.insert(before, HeadFigures{*head, {}, {}});
    }
    under->groups.push_back({resultName, {}, statements.result, {}});
    add(under->amounts, statements.result);
    add(made.total, statements.result);
  }

  const StatementBooks& books_;
  const GroupMappings& mappings_;
  const StatutoryHeadList& heads_;
  const Scheme scheme_;
  std::map<long, Place> places_;  // by group
  std::array<std::map<const StatutoryHead*, GatheredGroups>, 4> gathered_;
};

}  // namespace

TwoAmounts StatementsByHead::difference() const {
  TwoAmounts difference = of(HeadKind::asset).total;
  for (const std::size_t year : {0, 1}) difference[year] -= of(HeadKind::liability).total[year];
  return difference;
}

StatementsByHead statementsByHead(const StatementBooks& books, const GroupMappings& mappings,
                                  const StatutoryHeadList& heads, Scheme scheme) {
  return Placing(books, mappings, heads, scheme).statements();
}

}  // namespace quillet
