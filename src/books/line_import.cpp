#include "books/line_import.h"

#include <algorithm>
#include <set>
#include <stdexcept>

#include "books/all_or_nothing.h"
#include "books/ledger_or_new.h"
#include "books/registry.h"

namespace quillet {

ImportEnd LineImport::run(const std::vector<ImportedLine>& lines, const std::vector<Line>& seen,
                          const std::function<void()>& besides) {
  AllOrNothing part(host_);
  const ImportEnd end = enter(lines, seen);
  if (end != ImportEnd::done) return end;
  if (besides) besides();
  part.keep();
  return end;
}

ImportEnd LineImport::enter(const std::vector<ImportedLine>& lines, const std::vector<Line>& seen) {
  const ClientTable& books = year_.books();
  if (!Registry(host_).has(books.table, books.client)) return ImportEnd::yearGone;
  standing_ = year_.lines();
  byPair_.clear();
  for (const Line& line : standing_) {
    byPair_.emplace(LedgerGroup{line.partId, line.allId}, line);
  }
  if (standing_ != seen) return ImportEnd::booksOther;
  return enterAll(lines) ? ImportEnd::done : ImportEnd::stopped;
}

// False when a person stopped it.
bool LineImport::enterAll(const std::vector<ImportedLine>& lines) {
  serial_ = year_.nextSerial();
  PairBalances expected = balancesOf(standing_);
  std::set<LedgerGroup> entered;
  host_.objProgress().Max(static_cast<long>(lines.size()));
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i % ledgersAtOnce == 0) lookUpLedgers(lines, i);
    const ImportedLine& line = lines[i];
    const LedgerGroup pair = pairOf(line);
    if (!entered.insert(pair).second) {
      throw std::runtime_error(line.ledger + " comes twice in one group.");
    }
    replace(pair, line);
    expected[pair] = line.balance;
    host_.objProgress().update_pg();
    if (host_.objProgress().stopped()) return false;
  }
  std::erase_if(expected, [](const auto& each) { return each.second.isZero(); });
  if (balancesOf(year_.lines()) != expected) {
    throw std::runtime_error("The year does not hold what was to be imported.");
  }
  return true;
}

void LineImport::lookUpLedgers(const std::vector<ImportedLine>& lines, std::size_t from) {
  std::vector<std::string> names;
  for (std::size_t i = from; i < std::min(lines.size(), from + ledgersAtOnce); ++i) {
    if (lines[i].partId == 0) names.push_back(lines[i].ledger);
  }
  quillet::lookUpLedgers(host_, names);
}

LedgerGroup LineImport::pairOf(const ImportedLine& line) {
  if (line.partId != 0) return {line.partId, line.allId};
  return {ledgerOrNew(host_, line.ledger), line.allId};
}

void LineImport::replace(LedgerGroup pair, const ImportedLine& line) {
  // No other station changes them while the import has its turn.
  const auto [first, end] = byPair_.equal_range(pair);
  for (auto each = first; each != end; ++each) year_.takeOut(each->second, standing_);
  const Money balance = line.balance;
  if (balance.isZero() && line.zeroSide == 0) return;
  year_.insert({.srno = serial_++,
                .partId = pair.partId,
                .allId = pair.allId,
                .amount = abs(balance).rupees(),
                .nid = balance.isZero()    ? line.zeroSide
                       : balance < Money() ? credit
                                           : debit});
}

}  // namespace quillet
