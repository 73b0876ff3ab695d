#include "books/statement_books.h"

#include "books/closing_stock.h"
#include "books/raw_material_binding.h"
#include "books/raw_material_heads.h"
#include "books/trial_balance.h"

namespace quillet {
namespace {

constexpr std::size_t closingStockPlace = 2;  // of a bound item
constexpr long rawMaterial = 1;               // types of a raw-material head
constexpr long workInProgress = 3;

std::map<long, StatementGroup> readGroups(ServiceObject& host) {
  const auto rows = host.query(
      "select mast_allgrp.allid,mast_allgrp.allgrp,mast_allgrp.gid,mast_gunder.ggid from "
      "mast_allgrp left join mast_gunder on mast_gunder.gid=mast_allgrp.gid");
  std::map<long, StatementGroup> groups;
  for (; !rows->EOF_(); rows->MoveNext()) {
    groups[rows->integer(0)] = {rows->text(1), rows->integer(2), rows->integer(3)};
  }
  return groups;
}

std::map<long, HeadRole> readBoundStock(ServiceObject& host, const TwoYears& years,
                                        TwoYears::Year year) {
  RawMaterialBinding binding(host);
  binding.open(years.client(), years.table(year), years.keys(year));
  const std::vector<BoundItem> items = binding.items();
  if (items.empty()) return {};
  std::map<long, long> types;
  for (const RawMaterialHead& head : RawMaterialHeads(host).heads()) types[head.id] = head.type;
  std::map<long, HeadRole> bound;
  for (const BoundItem& item : items) {
    const long type = types[item.head];
    bound[item.groups[closingStockPlace]] = type == rawMaterial      ? HeadRole::rawMaterialStock
                                            : type == workInProgress ? HeadRole::workInProgressStock
                                                                     : HeadRole::closingStock;
  }
  return bound;
}

}  // namespace

StatementBooks readStatementBooks(ServiceObject& host, const TwoYears& years) {
  StatementBooks books;
  books.groups = readGroups(host);
  for (const TwoYears::Year year : {TwoYears::current, TwoYears::previous}) {
    if (!years.has(year)) continue;
    const auto add = [&](std::vector<BookedAmount>& amounts, LedgerGroup pair, double amount) {
      amounts.push_back({pair, Money::rounded(amount)});
      books.ledgers.try_emplace(pair.partId);
    };
    for (const Line& line : TrialBalance(host, years.books(year)).lines()) {
      add(books.lines[year], {line.partId, line.allId}, line.balance());
    }
    const ClosingStock closing(host, {stockTable(years.table(year)), years.client()});
    for (const ClosingStock::Line& line : closing.lines()) {
      add(books.stock[year], line.pair, line.amount);
    }
    if (!books.stock[year].empty()) books.boundStock[year] = readBoundStock(host, years, year);
  }
  for (auto& [id, name] : books.ledgers) name = host.GetPart_MastPartId(id);
  return books;
}

}  // namespace quillet
