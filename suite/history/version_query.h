// Selects on the versions of rows, those that were deleted or changed among them.
#pragma once

#include <string>
#include <string_view>

#include "suite/history/instant.h"

namespace quillet::suite {

// Until when the versions hold that hold now.
inline constexpr Instant endOfTime = 2'147'483'647'999'999;

// A time before which nothing changed and one after which nothing will.
struct Period {
  Instant from = 0;
  Instant till = 0;  // the first instant behind it

  bool has(Instant at) const { return from <= at && at < till; }
};

// "columns from TABLE" as a select on all versions but those of no length; "%f" and "%t" stand for
// the instants from which and until which a version holds. Goes on with " and ..." or " order by".
std::string versionsOf(std::string_view columnsAndTable);
// " and ..." for the versions that begin or end in the period.
std::string changedIn(const Period& period);
// " for system_time as of ..."
std::string asOf(Instant at);

}  // namespace quillet::suite
