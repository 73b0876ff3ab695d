#include "books/closing_balances.h"

#include "books/closing_stock.h"
#include "books/merged_groups.h"
#include "books/primary_groups.h"
#include "books/raw_material_binding.h"

namespace quillet {
namespace {

std::vector<ClosingLine> linesOf(const std::vector<Line>& rows,
                                 const std::map<long, int>& primary) {
  std::vector<ClosingLine> lines;
  std::map<LedgerGroup, std::size_t> places;
  for (const Line& row : rows) {
    const LedgerGroup pair{row.partId, row.allId};
    const auto [place, isFirst] = places.emplace(pair, lines.size());
    if (isFirst) {
      const auto group = primary.find(row.allId);
      lines.push_back({.pair = pair,
                       .side = row.isCredit() ? credit : debit,
                       .primary = group == primary.end() ? 0 : group->second});
    }
    lines[place->second].balance += Money::rounded(row.balance());
  }
  return lines;
}

}  // namespace

std::map<long, int> primaryGroups(ServiceObject& host) {
  std::map<long, int> groups;
  const auto rows = host.query("Select AllId,GID From Mast_AllGrp");
  for (; !rows->EOF_(); rows->MoveNext()) {
    groups.emplace(rows->integer(0), static_cast<int>(rows->integer(1)));
  }
  return groups;
}

bool isProfitAndLoss(int primary) {
  return (primary >= static_cast<int>(PrimaryGroup::sales) &&
          primary <= static_cast<int>(PrimaryGroup::otherExpenses)) ||
         primary == static_cast<int>(PrimaryGroup::appropriations);
}

ClosingBalances readClosingBalances(ServiceObject& host, const RegisteredYear& year) {
  const ClientTable books{year.table, year.client};
  ClosingBalances closing;
  closing.lines = linesOf(TrialBalance(host, books).lines(), primaryGroups(host));
  const MergedGroups merged(host);
  for (const auto& line : ClosingStock(host, {stockTable(year.table), year.client}).lines()) {
    const Money amount = Money::rounded(line.amount);
    if (amount.isZero()) continue;
    closing.stock.push_back({{line.pair.partId, merged.successor(line.pair.allId)}, amount});
  }
  RawMaterialBinding binding(host);
  binding.open(year.client, year.table, year.keys);
  for (const BoundItem& item : binding.items()) {
    const auto& [opening, purchases, bound] = item.groups;
    if (opening != 0 && bound != 0) {
      closing.openingGroups.emplace(merged.successor(bound), merged.successor(opening));
    }
  }
  return closing;
}

}  // namespace quillet
