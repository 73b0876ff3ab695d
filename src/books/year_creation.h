// What the creation of a year decides without asking anybody: which table number it takes, and
// which year it follows.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillet {

// The lowest number from 1 to `numbers` that is not taken; nothing when all are.
std::optional<long> firstFreeNumber(const std::vector<long>& taken, long numbers);

// One row of the registry.
struct RegisteredYear {
  std::string firstKey;
  std::string secondKey;
  std::string table;
};

// The latest year that ends before the key; years may have gaps. Null when none does. `years` is
// ordered by second key.
const RegisteredYear* latestBefore(const std::vector<RegisteredYear>& years,
                                   const std::string& secondKey);

}  // namespace quillet
