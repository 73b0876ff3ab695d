// A form may remember a year, a ledger or a group that another station has deleted since, or linked
// to another one.
#pragma once

#include "suite/database.h"
#include "suite/history/act_log.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

// Ahead of a commit: throws RunTimeError when what the act has entered names a year, a ledger,
// a group or a heading of raw materials that is not there.
void refuseDeadNames(UnitOfWork& unit, Database& database, const ActLog& act);

}  // namespace quillet::suite
