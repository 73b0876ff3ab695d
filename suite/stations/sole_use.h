// Keeps other stations from changing the books while they are copied, or while what goes with the
// whole of them is changed: one transaction that has the stations' turn. Where it ends, or the
// connection goes, they go on.
#pragma once

#include <string>

#include "suite/database.h"

namespace quillet::suite {

class SoleUse {
 public:
  // Begins the transaction. Throws std::runtime_error that names who has years open; nothing was
  // changed then. An embedded database has no other stations: nothing is done.
  SoleUse(Database& database, const std::string& purpose);
  // Takes back what was not committed, and lets the others go on.
  ~SoleUse();
  SoleUse(const SoleUse&) = delete;
  SoleUse& operator=(const SoleUse&) = delete;
  void commit();
  // Whether there are other stations at all.
  bool begun() const { return open_; }

 private:
  void giveUp() noexcept;

  Database& database_;
  bool open_ = false;
};

// Throws as above when other stations have years open.
void refuseOtherStations(Database& database, const std::string& purpose);

// Who keeps the others from the books, as a sentence; "" when nobody does.
std::string whoHasSoleUse(Database& database);

}  // namespace quillet::suite
