// What bringing forward would change in a year: its opening lines beside what stands there, and
// beside what was brought forward before.
//
// A year that was brought forward before is offered what changed in the old year since: the
// difference, on top of what stands by now. Where the year's own line was changed by hand, or
// nothing was brought forward and lines stand, a person takes each of them; nothing is taken by
// itself. What stands at its opening, but for vouchers, is never offered.
#pragma once

#include <optional>
#include <vector>

#include "books/bring_forward.h"

namespace quillet {

// What was brought forward into a year, and by which choices.
struct BroughtForward {
  std::string when;
  OpeningChoices choices{};
  PairBalances amounts{};  // with those of nothing
};

// The year that lines are brought into.
struct NewYear {
  std::vector<Line> standing;
  PairBalances posted;  // by its vouchers
  std::optional<BroughtForward> brought;

  bool isEmpty() const { return standing.empty() && posted.empty(); }
};

enum class OpeningState { isNew, same, changedLastYear, differsHere, leftOut };
const char* nameOf(OpeningState state);

struct OpeningChange {
  OpeningLine line;
  Money standing{};
  Money after{};  // when it is taken
  OpeningState state = OpeningState::same;
  bool offered = false;     // taking it changes something
  bool takenFirst = false;  // without a person's choice
};

// In the order of the opening's lines; what was brought forward and is not in the old year any more
// comes last.
std::vector<OpeningChange> openingChanges(const Opening& opening, const NewYear& year);

}  // namespace quillet
