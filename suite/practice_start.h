// Opens the database of a practice: what was lost is told, and never replaced by something new and
// empty.
#pragma once

#include <memory>

#include "ports/ports.h"
#include "suite/data_folder.h"
#include "suite/database.h"
#include "suite/front_end.h"
#include "suite/settings.h"
#include "suite/start_policy.h"

namespace quillet::suite {

// The database in the folder, or the one on the server that its settings name. Throws
// std::runtime_error with a message for the user; nothing was changed then. Progress is shown.
std::unique_ptr<Database> openPractice(const DataFolder& folder, FrontEnd& frontEnd,
                                       const StartPolicy& policy);

// Throws as above when tables of registered years are gone and the policy does not have them made.
void noticeLostTables(Database& database, const DataFolder& folder, const StartPolicy& policy);

// Writes a backup before books that an earlier program has made are brought up to this one. Those
// on a server are backed up there. Throws as above when the backup cannot be written.
void backUpOlder(Database& database, const DataFolder& folder, Clock& clock);

// Keeps what tells the next start that this one succeeded.
void noteStart(Database& database, const DataFolder& folder, Settings& settings);

}  // namespace quillet::suite
