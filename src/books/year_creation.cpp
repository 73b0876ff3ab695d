#include "books/year_creation.h"

#include <algorithm>
#include <set>

namespace quillet {

std::optional<long> firstFreeNumber(const std::vector<long>& taken, long numbers) {
  const std::set<long> without(taken.begin(), taken.end());
  for (long number = 1; number <= numbers; ++number) {
    if (!without.contains(number)) return number;
  }
  return std::nullopt;
}

const RegisteredYear* latestBefore(const std::vector<RegisteredYear>& years,
                                   const std::string& secondKey) {
  const auto earlier = std::find_if(years.rbegin(), years.rend(), [&](const RegisteredYear& year) {
    return year.secondKey < secondKey;
  });
  return earlier == years.rend() ? nullptr : &*earlier;
}

}  // namespace quillet
