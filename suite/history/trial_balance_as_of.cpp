#include "suite/history/trial_balance_as_of.h"

#include <algorithm>
#include <utility>

#include "suite/history/names_as_of.h"

namespace quillet::suite {
namespace {

// `when` is asOf() or, for the lines that are there now, nothing.
std::vector<BookRow> linesOf(UnitOfWork& unit, const std::string& client, const std::string& suffix,
                             const std::string& when) {
  const RecordsetPtr rows =
      unit.query("select partid,allid,amt,nid,srno from TAB_" + suffix + when + " where code_no='" +
                 unit.escape(client) + "' order by srno");
  std::vector<BookRow> lines;
  for (; !rows->EOF_(); rows->MoveNext()) {
    BookRow& line = lines.emplace_back();
    line.partId = rows->integer(0);
    line.allId = rows->integer(1);
    const Money amount = Money::rounded(rows->number(2));
    line.balance = rows->integer(3) == credit ? -amount : amount;
    line.order = rows->integer(4);
  }
  return lines;
}

Totals totalsOf(const std::vector<BookRow>& lines) {
  Money sums[2];
  for (const BookRow& line : lines) sums[line.balance < Money() ? 1 : 0] += abs(line.balance);
  return {sums[0].rupees(), sums[1].rupees()};
}

}  // namespace

std::string LineAsOf::difference() const {
  if (!rows.before) return "Added since";
  if (!rows.after) return "Deleted since";
  if (!rows.isSame()) return "Changed";
  return ledger == ledgerNow && group == groupNow ? "" : "Renamed since";
}

TrialBalanceAsOf trialBalanceAsOf(UnitOfWork& unit, const ClientYear& year, Instant then) {
  TrialBalanceAsOf result;
  const Instant begins = historyBegins(unit);
  if (then < begins || begins == 0) {
    result.refused = "There is no history before " + localTime(begins == 0 ? instantNow() : begins);
    return result;
  }
  const std::vector<YearTables> over = tablesOver(unit, year);
  then = std::min(then, endOfTime - 1);
  std::vector<BookRow> before;
  std::vector<BookRow> after;
  if (const auto suffix = tablesAt(over, then)) {
    result.wasThere = true;
    before = linesOf(unit, year.client, *suffix, asOf(then));
  }
  if (const auto suffix = tablesAt(over, endOfTime - 1)) {
    result.isThere = true;
    after = linesOf(unit, year.client, *suffix, "");
  }
  result.then = totalsOf(before);
  result.now = totalsOf(after);
  NamesAsOf names(unit);
  std::vector<RowPair> pairs = matchRows(std::move(before), std::move(after));
  // As they stood then; what came since follows.
  std::ranges::stable_sort(pairs, {}, [](const RowPair& pair) {
    return std::pair(!pair.before, pair.before ? pair.before->order : 0);
  });
  for (RowPair& pair : pairs) {
    LineAsOf& line = result.lines.emplace_back();
    if (pair.after) {
      line.ledgerNow = names.ledger(pair.after->partId, endOfTime);
      line.groupNow = names.group(pair.after->allId, endOfTime);
    }
    line.ledger = pair.before ? names.ledger(pair.before->partId, then) : line.ledgerNow;
    line.group = pair.before ? names.group(pair.before->allId, then) : line.groupNow;
    line.rows = std::move(pair);
  }
  return result;
}

Instant nearestAct(UnitOfWork& unit, const ClientYear& year, Instant to, bool after) {
  const Instant begins = historyBegins(unit);
  Instant nearest = 0;
  for (const YearTables& tables : tablesOver(unit, year)) {
    const Period asked{std::max(after ? to + 1 : 0, std::max(tables.from, begins + 1)),
                       std::min(after ? endOfTime : to, std::min(tables.till + 1, endOfTime))};
    if (asked.from >= asked.till) continue;
    const RecordsetPtr rows =
        unit.query(versionsOf("%f,%t from TAB_" + tables.suffix) + " and code_no='" +
                   unit.escape(year.client) + '\'' + changedIn(asked));
    for (; !rows->EOF_(); rows->MoveNext()) {
      for (const Instant at : {Instant{rows->integer(0)}, Instant{rows->integer(1)}}) {
        if (!asked.has(at)) continue;
        nearest = nearest == 0 ? at : after ? std::min(nearest, at) : std::max(nearest, at);
      }
    }
  }
  return nearest;
}

}  // namespace quillet::suite
