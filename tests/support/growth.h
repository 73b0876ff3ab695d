// How the time of some work grows with its size: a machine that is slow or busy changes both times,
// so a bound on their ratio holds everywhere.
#pragma once

#include <ctime>

namespace quillet::support {

// How many times longer a piece of work takes for ten times the size, in time of this process's
// processor. The work is called with its size: some 10 for linear work, some 100 for quadratic.
template <typename Work>
double growthTenfold(int size, const Work& work) {
  const auto timeOf = [&](int each) {
    const std::clock_t begin = std::clock();
    work(each);
    return static_cast<double>(std::clock() - begin);
  };
  double few = 0;
  constexpr int turns = 3;
  for (int turn = 0; turn < turns; ++turn) few += timeOf(size) / turns;
  return timeOf(10 * size) / few;
}

}  // namespace quillet::support
