// In which tables the books of a client's year stood over time, by the registry.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "suite/history/version_query.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

struct ClientYear {
  std::string client;
  std::string secondDate;  // "31032009"
};

struct YearTables {
  std::string suffix;  // "3" of TAB_3 and its siblings
  // From the act that registered the year there to the one that deleted it, both included.
  Instant from = 0;
  Instant till = 0;
};

// In their order. A year that is there has its tables until the end of time.
std::vector<YearTables> tablesOver(UnitOfWork& unit, const ClientYear& year);

// The suffix of its tables at an instant; nothing when the year was not there.
std::optional<std::string> tablesAt(const std::vector<YearTables>& over, Instant at);

// The client's years, those that were deleted among them, in their order.
struct YearEver {
  std::string firstDate;  // "01042008"
  std::string secondDate;
  bool isThere = false;
};
std::vector<YearEver> yearsEver(UnitOfWork& unit, const std::string& client);

// The instant before which there is no history, 0 when there is none at all.
Instant historyBegins(UnitOfWork& unit);

}  // namespace quillet::suite
