// The numbers that nothing has yet: from above the highest one, then those left out below.
#pragma once

#include <algorithm>
#include <climits>
#include <set>

namespace quillet::suite::check {

class FreeNumbers {
 public:
  void take(long number) {
    taken_.insert(number);
    last_ = std::max(last_, number);
  }
  // Takes it as well.
  long next() {
    do last_ = last_ < INT_MAX ? last_ + 1 : 1;
    while (!taken_.insert(last_).second);
    return last_;
  }

 private:
  std::set<long> taken_;
  long last_ = 0;
};

}  // namespace quillet::suite::check
