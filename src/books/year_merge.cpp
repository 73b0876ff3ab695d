#include "books/year_merge.h"

#include "books/closing_stock.h"
#include "books/trial_balance.h"

namespace quillet {

std::vector<PairSums::Sum> PairSums::sums() const {
  std::vector<Sum> sums;
  for (const auto& [key, balance] : sums_) {
    if (!balance.isZero()) sums.push_back({{key.second, key.first}, balance});
  }
  return sums;
}

void YearMerge::add(const ClientTable& source) {
  const Sql where = " where code_no=" + host_.quoted(source.client);
  const auto rows = host_.query("select * from " + sqlName(source.table) + where);
  for (const Line& line : readLines(*rows)) {
    balances_.add({line.partId, line.allId}, Money::rounded(line.balance()));
  }
  const auto stock = host_.query("select * from " + sqlName(stockTable(source.table)) + where);
  for (; !stock->EOF_(); stock->MoveNext()) {
    stock_.add({stock->integer("partid"), stock->integer("allid")},
               Money::rounded(stock->number("amt")));
  }
}

void YearMerge::write(const ClientTable& target) {
  const auto balances = balances_.sums();
  const auto stock = stock_.sums();
  const Sql client = host_.quoted(target.client);
  const Sql table = sqlName(target.table);
  const Sql stockSql = sqlName(stockTable(target.table));
  // A merge that was interrupted is done anew, not added to.
  host_.change("delete from " + table + " where code_no=" + client);
  host_.change("delete from " + stockSql + " where code_no=" + client);
  Progress& progress = host_.objProgress();
  progress.Max(static_cast<long>(balances.size() + stock.size()));
  lines_ = stockLines_ = 0;
  for (const auto& [pair, balance] : balances) {
    const long side = balance < Money() ? credit : debit;
    host_.change(lineInsert(table, client,
                            {++lines_, pair.partId, pair.allId, abs(balance).rupees(), side}));
    progress.update_pg();
  }
  for (const auto& [pair, amount] : stock) {
    host_.change(stockInsert(stockSql, client, pair, amount));
    ++stockLines_;
    progress.update_pg();
  }
}

}  // namespace quillet
