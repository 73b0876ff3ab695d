// What holds for the log of acts: each row carries a hash over itself and the row before, and its
// table keeps every version, so that a row that was changed, taken out or put in is noticed.
#pragma once

#include "suite/check/finding.h"
#include "suite/database.h"

namespace quillet::suite::check {

void examineActLog(Database& database, Examined& examined);

}  // namespace quillet::suite::check
