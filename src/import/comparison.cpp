#include "import/comparison.h"

#include <array>
#include <map>
#include <set>

namespace quillet {
namespace {

constexpr std::array<std::string_view, 4> differenceNames{"New", "Changed", "Same", "Gone"};

std::string nameIn(const std::unordered_map<long, std::string>& names, long id) {
  const auto found = names.find(id);
  return found == names.end() ? std::string() : found->second;
}

}  // namespace

std::string_view nameOf(Difference::Kind kind) {
  return differenceNames[static_cast<std::size_t>(kind)];
}

std::vector<Difference> compareWithYear(const Proposals& proposals, const KnownBooks& books) {
  using Kind = Difference::Kind;
  std::map<LedgerGroup, Money> standing;
  std::vector<LedgerGroup> order;
  for (const Line& line : books.current) {
    const LedgerGroup pair{line.partId, line.allId};
    const auto [found, isFirst] = standing.emplace(pair, Money());
    found->second += Money::rounded(line.balance());
    if (isFirst) order.push_back(pair);
  }
  std::vector<Difference> differences;
  for (const LineToEnter& entered : proposals.toEnter) {
    const ProposedLine& line = proposals.lines[entered.line];
    const Money after = entered.balance;
    const auto found = line.partId == 0 ? standing.end() : standing.find(line.pair());
    const bool stands = found != standing.end();
    // What comes to nothing changes only what stands.
    if (!stands && after.isZero()) continue;
    const Money before = stands ? found->second : Money();
    const Kind kind = !stands ? Kind::isNew : before == after ? Kind::same : Kind::changed;
    differences.push_back(
        {kind, line.row, line.ledger, line.group, line.pair(), before, after, kind != Kind::same});
  }
  std::set<LedgerGroup> inSource;
  for (const ProposedLine& line : proposals.lines) inSource.insert(line.pair());
  for (const LedgerGroup& pair : order) {
    if (inSource.contains(pair)) continue;
    differences.push_back({Kind::vanished, 0, nameIn(books.ledgerNames, pair.partId),
                           nameIn(books.groupNames, pair.allId), pair, standing[pair], Money(),
                           false});
  }
  return differences;
}

}  // namespace quillet
