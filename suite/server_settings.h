// Where the data is when it is not in the folder itself: the section "Server" of the settings names
// a database server, with the keys Host, Port, Socket, User, Password and Database.
#pragma once

#include <optional>

#include "suite/database.h"
#include "suite/settings.h"

namespace quillet::suite {

// Nothing when neither a host nor a socket is named: the data is in the folder.
std::optional<Database::Server> serverIn(const Settings& settings);

}  // namespace quillet::suite
