// What holds for the masters that all clients share: an id stands once, names differ for the
// database too, and what points to a group finds one.
#pragma once

#include "suite/check/finding.h"
#include "suite/check/masters.h"
#include "suite/database.h"

namespace quillet::suite::check {

void examineMasters(Database& database, const Masters& masters, Examined& examined);

}  // namespace quillet::suite::check
