// A trial balance as it stood at an instant, beside the one of today.
#pragma once

#include <string>
#include <vector>

#include "books/lines.h"
#include "suite/history/row_matching.h"
#include "suite/history/year_tables.h"

namespace quillet::suite {

struct LineAsOf {
  RowPair rows;                     // then and now
  std::string ledger, group;        // as they were called then, of a line added since as now
  std::string ledgerNow, groupNow;  // "" of a line deleted since

  // In what it differs from today, "" when in nothing: "Changed", "Added since", "Deleted since",
  // "Renamed since".
  std::string difference() const;
};

struct TrialBalanceAsOf {
  std::string refused;  // why there is nothing to show
  std::vector<LineAsOf> lines;
  Totals then, now;
  bool wasThere = false;  // the year, then
  bool isThere = false;   // and now
};

// `then` may be any instant; one that is still to come shows today's lines.
TrialBalanceAsOf trialBalanceAsOf(UnitOfWork& unit, const ClientYear& year, Instant then);

// The nearest act before or after the instant that changed the lines of the year; 0 when there is
// none.
Instant nearestAct(UnitOfWork& unit, const ClientYear& year, Instant to, bool after);

}  // namespace quillet::suite
