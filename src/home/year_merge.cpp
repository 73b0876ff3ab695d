#include "home/year_merge.h"

#include <cmath>
#include <map>
#include <utility>

namespace quillet {

std::vector<Line> mergedLines(const std::vector<Line>& lines) {
  std::map<std::pair<long, long>, double> sums;  // by group and particular
  for (const Line& line : lines) {
    sums[{line.allId, line.partId}] += line.isCredit() ? -line.amount : line.amount;
  }
  std::vector<Line> merged;
  for (const auto& [key, sum] : sums) {
    // What adding in binary left over below a paisa is no part of the sum.
    const double amount = std::round(sum * 100) / 100;
    if (amount == 0) continue;
    merged.push_back({static_cast<long>(merged.size()) + 1, key.second, key.first,
                      std::fabs(amount), amount < 0 ? credit : debit});
  }
  return merged;
}

}  // namespace quillet
