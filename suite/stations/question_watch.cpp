#include "suite/stations/question_watch.h"

#include <algorithm>
#include <exception>

namespace quillet::suite {

void QuestionWatch::asked() noexcept {
  had_.clear();
  if (unit_.turns() == nullptr || !presence_.any()) return;
  try {
    unit_.turns()->look();
    before_ = unit_.turns()->known();
    had_ = presence_.kept();
  } catch (const std::exception&) {
    had_.clear();
  }
}

void QuestionWatch::answered() noexcept {
  if (had_.empty()) return;
  try {
    unit_.turns()->look();
    // A silence in which nobody did anything has lost nothing.
    if (unit_.turns()->known() == before_) return presence_.revive();
    const std::set<YearPresence::Year> kept = presence_.kept();
    if (std::ranges::includes(kept, had_)) return;
    unit_.refuseRest(
        "While the question stood another station had the year. Please look at what is stored now, "
        "and do it again.");
  } catch (const std::exception&) {
    // What the act does next finds out.
  }
}

}  // namespace quillet::suite
