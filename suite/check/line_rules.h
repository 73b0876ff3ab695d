// What holds for the lines of a client's trial balance: known ledger and group, one line for a
// pair, a side, an amount in whole paise that is not negative, a number of its own.
#pragma once

#include <optional>
#include <vector>

#include "suite/check/finding.h"
#include "suite/check/masters.h"

namespace quillet::suite::check {

struct LineRow {
  long rowId = 0;
  std::optional<long> srno, partid, allid, nid;
  std::optional<double> amount;
  bool operator==(const LineRow&) const = default;
};

// What mends them leaves the sum of each ledger as it is.
void examineLines(const Masters& masters, const Place& place, std::vector<LineRow> rows,
                  Examined& examined);

}  // namespace quillet::suite::check
