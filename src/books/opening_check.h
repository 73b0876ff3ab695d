// Whether a year's opening agrees with the closing of the year before.
//
// A trial balance holds what stands at its end, so its opening is what was brought forward:
// compared with the closing balances of the year before as they stand now, reckoned by the same
// choices. What the year's lines were changed by since is its movement, which is counted. In a year
// that was not begun so only the stock tells opening from movement: the lines of opening stock, as
// they were before the vouchers, are compared with the closing stock, group by group where the
// raw-material binding says which.
#pragma once

#include <string>
#include <vector>

#include "books/registry.h"
#include "books/trial_balance.h"

namespace quillet {

struct OpeningDifference {
  std::string ledger;
  std::string group;
  Money closing;  // debit positive
  Money opening;
};

struct OpeningCheck {
  enum class Basis { noYearBefore, broughtForward, stockAlone };
  Basis basis = Basis::noYearBefore;
  std::string when;  // it was brought forward
  std::vector<OpeningDifference> differences{};
  // Lines that agree as they were brought forward and stand at something else by now, by no
  // voucher.
  std::size_t changedSince = 0;
};

// What earlier failures left unposted has to be posted before.
OpeningCheck checkOpening(ServiceObject& host, const std::string& client, const YearKeys& year);

}  // namespace quillet
