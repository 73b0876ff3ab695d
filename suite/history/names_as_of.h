// Names of ledgers and groups as they stood at an instant.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "suite/history/instant.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

class NamesAsOf {
 public:
  // Each list is read when it is first asked for.
  explicit NamesAsOf(UnitOfWork& unit) : unit_(&unit) {}

  // One that an act deletes has its last name still at the instant of the act.
  const std::string& ledger(long id, Instant at);
  const std::string& group(long id, Instant at);
  const std::string& primaryGroup(long id, Instant at);

 private:
  struct Version {
    Instant from;
    std::string name;
  };
  struct Names {
    bool read = false;
    std::unordered_map<long, std::vector<Version>> versions;
  };
  const std::string& find(Names& names, const char* select, long id, Instant at);

  UnitOfWork* unit_;
  Names ledgers_;
  Names groups_;
  Names primaryGroups_;
};

}  // namespace quillet::suite
