// The beginnings and ends of the versions of rows, gathered act by act into changes.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "suite/history/changes.h"

namespace quillet::suite {

class VersionEvents {
 public:
  VersionEvents(UnitOfWork& unit, const Period& period) : unit_(unit), period_(period) {}

  // Reads the versions that begin or end in the part of the period. The select's first two columns
  // are "%f,%t"; `rowOf` makes a row of the others.
  using RowOf = std::function<BookRow(const Recordset& columns)>;
  void read(Change::Of of, const std::string& select, const std::string& condition,
            const Period& part, const RowOf& rowOf);
  void add(Instant at, Change::Of of, bool begins, BookRow row);

  // The changes, the last act first; what came out as it was is none.
  Changes take();

 private:
  struct Event {
    Instant at;
    Change::Of of;
    bool begins;
    BookRow row;
  };

  UnitOfWork& unit_;
  const Period period_;
  std::vector<Event> events_;
};

}  // namespace quillet::suite
