// A source beside the lines that stand in the year: what is new, changed, the same or gone.
#pragma once

#include <set>
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

// `lines` as linesToEnter gives them. In the order of the source, then what vanished in that of
// the year.
std::vector<Difference> compareWithYear(const std::vector<ProposedLine>& lines,
                                        const KnownBooks& books);

}  // namespace quillet
