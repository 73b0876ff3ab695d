// Where the data is when it is not in the folder itself: the section "Server" of the settings names
// a database server, with the keys Host (several with commas between), Port, Socket, User,
// Database, Authority, PasswordFile, ConnectSeconds and AnswerSeconds.
#pragma once

#include <optional>

#include "suite/server_address.h"
#include "suite/settings.h"

namespace quillet::suite {

// Nothing when neither a host nor a socket is named: the data is in the folder. Not checked.
std::optional<ServerAddress> serverIn(const Settings& settings);

// Throws std::runtime_error when the section holds a password, which everybody could read who gets
// hold of a copy.
void refusePassword(const Settings& settings);

void keepServer(Settings& settings, const ServerAddress& address);

}  // namespace quillet::suite
