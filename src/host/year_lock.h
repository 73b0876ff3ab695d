// What the forms ask and say about locked years. A host without locks locks none.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "books/registry.h"
#include "host/context.h"
#include "host/year_hold.h"
#include "ports/year_locks.h"

namespace quillet {

std::optional<YearLock> lockOf(Context& context, const std::string& client,
                               const std::string& secondDate);
// The same for a form that is open on the year in that table; when nothing is in the way, this
// station has it.
std::optional<YearLock> enterYear(YearHold& hold, Context& context, const ClientTable& books,
                                  const YearKeys& keys);
// True, and a person was told why and what to do, when the year is locked.
bool refusedAsLocked(Context& context, const std::string& client, const YearKeys& keys);

// What a master does to all years would change these. True when there are none, or when a person
// who has the right to unlock years wants it all the same; the running act may change them then.
// To be asked last, right before the change, which is called `what`: "The merge".
bool mayChangeLocked(Context& context, const std::vector<LockedYear>& years,
                     const std::string& what);
// Every locked year; none where the host has no locks.
std::vector<LockedYear> lockedYears(Context& context);

}  // namespace quillet
