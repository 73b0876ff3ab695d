// What a person answers belongs to what is shown. Where another station had one of the years that
// are open here while the question stood, nothing that follows the answer is done: a line may be
// gone by then, and its number another one's.
#pragma once

#include <set>

#include "suite/stations/turn.h"
#include "suite/stations/year_presence.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

class QuestionWatch {
 public:
  QuestionWatch(UnitOfWork& unit, YearPresence& presence) : unit_(unit), presence_(presence) {}

  // Nothing of the act is open then. A connection that is lost shows with the next statement.
  void asked() noexcept;
  void answered() noexcept;

 private:
  UnitOfWork& unit_;
  YearPresence& presence_;
  TurnCount before_;
  std::set<YearPresence::Year> had_;
};

}  // namespace quillet::suite
