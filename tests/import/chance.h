// What is made by chance, from a seed.
#pragma once

#include <random>

namespace quillet::support {

using Chance = std::mt19937;

inline int below(Chance& chance, int limit) {
  return static_cast<int>(chance() % static_cast<unsigned>(limit));
}

}  // namespace quillet::support
