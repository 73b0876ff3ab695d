// Books in the shapes that practices have, made by chance from a seed, with what each row is. Knows
// nothing of how they are recognised.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "data/money.h"
#include "ports/source_book.h"

namespace quillet::support {

struct TrueLine {
  std::string ledger;
  std::string group;
  Money balance;
  bool operator==(const TrueLine&) const = default;
};

struct MadeBook {
  SourceBook book;
  std::map<int, TrueLine> ledgers;  // by row; every other row is none
  std::vector<std::string> groups;
  bool spoilt = false;  // one amount cannot be read, or no sum is right
  // An earlier one, and the mapping that a person chose for it.
  SourceBook before;
  std::string remembered;
};

inline constexpr int shapes = 16;  // the last one: sums without any mark; oddities come behind

std::string nameOfShape(int shape);
// `rows` ledgers, more or less.
MadeBook madeBook(int shape, std::uint32_t seed, int rows);

}  // namespace quillet::support
