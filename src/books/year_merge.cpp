#include "books/year_merge.h"

#include <cmath>
#include <cstdlib>
#include <map>
#include <utility>

namespace quillet {

std::vector<Line> mergedLines(const std::vector<Line>& lines) {
  // In whole paise, by group and particular: sums of many clients must not lose any.
  std::map<std::pair<long, long>, long long> sums;
  for (const Line& line : lines) {
    const long long paise = std::llround(line.amount * 100);
    sums[{line.allId, line.partId}] += line.isCredit() ? -paise : paise;
  }
  std::vector<Line> merged;
  for (const auto& [key, paise] : sums) {
    if (paise == 0) continue;
    merged.push_back({static_cast<long>(merged.size()) + 1, key.second, key.first,
                      static_cast<double>(std::llabs(paise)) / 100, paise < 0 ? credit : debit});
  }
  return merged;
}

}  // namespace quillet
