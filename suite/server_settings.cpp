#include "suite/server_settings.h"

#include <cstdlib>

namespace quillet::suite {

std::optional<Database::Server> serverIn(const Settings& settings) {
  const auto get = [&](const char* key, const std::string& usual = {}) {
    return settings.get("Server", key, usual);
  };
  Database::Server server;
  server.socket = get("Socket");
  server.host = get("Host", server.socket.empty() ? "" : server.host);
  if (server.host.empty() && server.socket.empty()) return std::nullopt;
  server.port = static_cast<unsigned>(std::strtoul(get("Port").c_str(), nullptr, 10));
  server.user = get("User");
  server.password = get("Password");
  server.schema = get("Database", server.schema);
  return server;
}

}  // namespace quillet::suite
