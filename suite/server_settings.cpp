#include "suite/server_settings.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace quillet::suite {
namespace {

constexpr const char* serverSection = "Server";

}  // namespace

std::optional<ServerAddress> serverIn(const Settings& settings) {
  const auto get = [&](const char* key) { return settings.get(serverSection, key); };
  const auto numberOr = [&](const char* key, unsigned usual) {
    const auto number = static_cast<unsigned>(std::strtoul(get(key).c_str(), nullptr, 10));
    return number == 0 ? usual : number;
  };
  ServerAddress server;
  server.socket = get("Socket");
  server.hosts = parseHosts(get("Host"), numberOr("Port", 0));
  if (server.hosts.empty() && server.socket.empty()) return std::nullopt;
  server.user = get("User");
  server.database = settings.get(serverSection, "Database", server.database);
  server.authority = get("Authority");
  server.passwordFile = get("PasswordFile");
  server.connectSeconds = numberOr("ConnectSeconds", server.connectSeconds);
  server.answerSeconds = numberOr("AnswerSeconds", server.answerSeconds);
  return server;
}

void refusePassword(const Settings& settings) {
  if (settings.get(serverSection, "Password").empty()) return;
  throw std::runtime_error(
      "The section [Server] of settings.ini holds a password, which everybody can read who gets "
      "hold of a copy. Take the line out, to be asked for it, or write it to a file that only you "
      "can read and name that as PasswordFile. Change it at the server if others may have seen "
      "it.");
}

void keepServer(Settings& settings, const ServerAddress& address) {
  const auto set = [&](const char* key, const std::string& value) {
    if (settings.get(serverSection, key) != value) settings.set(serverSection, key, value);
  };
  set("Host", hostsText(address.hosts));
  set("Port", "");
  set("Socket", address.socket);
  set("User", address.user);
  set("Database", address.database);
  set("Authority", address.authority);
  set("PasswordFile", address.passwordFile);
  set("ConnectSeconds", std::to_string(address.connectSeconds));
  set("AnswerSeconds", std::to_string(address.answerSeconds));
}

}  // namespace quillet::suite
