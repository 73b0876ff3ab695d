// What the log of acts says of single instants, for lists of changes.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "suite/history/instant.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

struct ActNote {
  std::string station;
  std::string person;
  std::string form;
  std::string command;
  std::string reason;
  Instant takesBack = 0;    // the act that it takes back
  Instant takenBackBy = 0;  // and the one that takes it back; 0 for none
};

class ActNotes {
 public:
  ActNotes() = default;
  ActNotes(UnitOfWork& unit, const std::vector<Instant>& acts);

  // All is empty of a change that no act has made.
  const ActNote& of(Instant act) const;

 private:
  void read(UnitOfWork& unit, const std::string& instants);
  void markTakenBack(UnitOfWork& unit);

  std::unordered_map<Instant, ActNote> notes_;
};

}  // namespace quillet::suite
