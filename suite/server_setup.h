// Makes a practice on a database server: the database with its tables, and accounts.
#pragma once

#include <string>
#include <vector>

#include "suite/client_connection.h"
#include "suite/server_address.h"

namespace quillet::suite {

// What the server's settings must be and are, a line for each; all are as they must be at a server
// that logIn() takes.
std::vector<std::string> settingsTold(ClientConnection& connection);

// Makes the database when it is missing. Throws std::runtime_error when it holds tables.
void makeDatabase(ClientConnection& administrator, const std::string& database);

bool accountExists(ClientConnection& administrator, const std::string& name);
// With the rights that a station needs on the database and none elsewhere. One that exists keeps
// its password.
void makeAccount(ClientConnection& administrator, const std::string& database,
                 const std::string& name, const std::string& password);

}  // namespace quillet::suite
