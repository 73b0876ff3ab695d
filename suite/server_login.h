// The way to a database server: the first of its hosts that lives, is set as it must be and is
// ready to work.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "suite/client_connection.h"
#include "suite/host_probe.h"
#include "suite/server_address.h"

namespace quillet::suite {

// Thrown when a host is there but takes neither the account nor its password.
class WrongPassword : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A connection with the session set as the books need it; no database is in use yet. Connections
// are encrypted and the server's certificate and name are checked, unless it is this machine.
// Throws std::runtime_error that tells of each host what is to be done there. Those that are known
// to be silent are not tried.
ClientConnection logIn(const ServerAddress& address, const std::string& password,
                       const std::vector<SilentHost>& silent = {});

// Whether the server at the other end still takes changes; false when the connection is lost.
bool isReady(ClientConnection& connection);

// What at this server is not as it must be and what it is to be set to; empty when all is well.
std::vector<std::string> wrongSettings(ClientConnection& connection);

// The rights on its database that a station's account needs: "select", "create".
const std::vector<std::string>& neededRights();
// Those that the account in use lacks.
std::vector<std::string> missingRights(ClientConnection& connection, const std::string& database);

// "a, b, c"
std::string listed(const std::vector<std::string>& texts, const char* between = ", ");

}  // namespace quillet::suite
