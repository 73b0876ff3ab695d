// A source beside the lines that stand in the year: what is new, changed, the same or gone.
#pragma once

#include <string>
#include <vector>

#include "import/proposals.h"

namespace quillet {

struct Difference {
  enum class Kind : std::uint8_t { isNew, changed, same, vanished };

  Kind kind = Kind::isNew;
  int row = 0;  // of the source; 0 for a line that vanished
  std::string ledger;
  std::string group;
  LedgerGroup pair;  // without ids where ledger is new
  Money before;      // debit positive
  Money after;
  bool taken = false;  // proposed: all but the same and those that vanished
};
std::string_view nameOf(Difference::Kind kind);

// In the order of the source, then what vanished in that of the year. A line of the source that is
// not taken is in none of them.
std::vector<Difference> compareWithYear(const Proposals& proposals, const KnownBooks& books);

}  // namespace quillet
