#include "suite/server_address.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>
#include <string_view>

#include "data/text.h"

namespace quillet::suite {
namespace {

constexpr std::string_view scheme = "mariadb://";
constexpr const char* form = "mariadb://user@host:port/database";

[[noreturn]] void refuse(const std::string& reason) {
  throw std::runtime_error(reason + " A server is named as " + form + '.');
}

unsigned numberFrom(std::string_view text, const std::string& what, unsigned most) {
  unsigned value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || value == 0 || value > most) {
    refuse("\"" + std::string(text) + "\" is no " + what + '.');
  }
  return value;
}

// "%40" is "@".
std::string decoded(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned value = 0;
    const char* const digits = text.data() + i + 1;
    if (text[i] != '%') {
      plain += text[i];
    } else if (i + 2 < text.size() &&
               std::from_chars(digits, digits + 2, value, 16).ptr == digits + 2) {
      plain += static_cast<char>(value);
      i += 2;
    } else {
      refuse("\"" + std::string(text) + "\" has a percent sign that nothing follows.");
    }
  }
  return plain;
}

std::string encoded(const std::string& text) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string safe;
  for (const char c : text) {
    if (std::string_view("%/?#@:,[] ").find(c) == std::string_view::npos) {
      safe += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      safe += {'%', digits[byte / 16], digits[byte % 16]};
    }
  }
  return safe;
}

// What stands before the separator, which goes with it.
std::string_view cut(std::string_view& text, char separator) {
  const std::size_t end = std::min(text.find(separator), text.size());
  const std::string_view head = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return head;
}

ServerAddress::Host parseHost(std::string_view text) {
  ServerAddress::Host host;
  std::string_view port;
  if (text.starts_with('[')) {
    const std::size_t end = text.find(']');
    if (end == std::string_view::npos) refuse("\"" + std::string(text) + "\" has no \"]\".");
    host.name = text.substr(1, end - 1);
    port = text.substr(end + 1);
  } else {
    const std::size_t end = std::min(text.find(':'), text.size());
    host.name = text.substr(0, end);
    port = text.substr(end);
  }
  if (!port.empty() && port.front() != ':') refuse("\"" + std::string(text) + "\" is no host.");
  if (!port.empty()) host.port = numberFrom(port.substr(1), "port", 65'535);
  const bool plain = std::ranges::all_of(host.name, [](char c) {
    return std::string_view(" \t\"'/\\@?#").find(c) == std::string_view::npos;
  });
  if (host.name.empty() || !plain) refuse("\"" + std::string(text) + "\" is no host.");
  return host;
}

void takeParameter(ServerAddress& address, std::string_view text) {
  const std::string name(cut(text, '='));
  const std::string value = decoded(text);
  if (name == "ca") {
    address.authority = value;
  } else if (name == "password-file") {
    address.passwordFile = value;
  } else if (name == "socket") {
    address.socket = value;
  } else if (name == "connect-seconds") {
    address.connectSeconds = numberFrom(value, "number of seconds", 3'600);
  } else if (name == "answer-seconds") {
    address.answerSeconds = numberFrom(value, "number of seconds", 86'400);
  } else {
    refuse("A server's address has no \"" + name + "\".");
  }
}

void takeUser(ServerAddress& address, std::string_view text) {
  if (text.find(':') != std::string_view::npos) {
    throw std::runtime_error(
        "A password does not stand in the address of a server, where others can read it. Leave it"
        " out to be asked for it, keep it in the keyring, or name a file that only you can read:"
        " ?password-file=FILE");
  }
  address.user = decoded(text);
}

}  // namespace

bool isServerUrl(const std::string& text) { return text.starts_with(scheme); }

ServerAddress parseServerUrl(const std::string& url) {
  if (!isServerUrl(url)) refuse("\"" + url + "\" does not name a server.");
  ServerAddress address;
  std::string_view rest(url);
  rest.remove_prefix(scheme.size());
  std::string_view place = cut(rest, '?');
  if (const std::size_t user = place.rfind('@'); user != std::string_view::npos) {
    takeUser(address, place.substr(0, user));
    place.remove_prefix(user + 1);
  }
  const std::string_view hosts = cut(place, '/');
  if (!place.empty()) address.database = decoded(place);
  while (!rest.empty()) takeParameter(address, cut(rest, '&'));
  if (!hosts.empty()) address.hosts = parseHosts(std::string(hosts));
  validate(address);
  return address;
}

std::vector<ServerAddress::Host> parseHosts(const std::string& text, unsigned port) {
  std::vector<ServerAddress::Host> hosts;
  std::string_view rest(text);
  while (!rest.empty()) hosts.push_back(parseHost(trimmed(cut(rest, ','))));
  for (auto host = hosts.rbegin(); host != hosts.rend(); ++host) {
    if (host->port == 0) host->port = port;
    port = host->port;
  }
  return hosts;
}

std::string hostsText(const std::vector<ServerAddress::Host>& hosts) {
  std::string text;
  for (const ServerAddress::Host& host : hosts) {
    if (!text.empty()) text += ',';
    const bool numeric = host.name.find(':') != std::string::npos;
    text += numeric ? '[' + host.name + ']' : host.name;
    if (host.port != 0) text += ':' + std::to_string(host.port);
  }
  return text;
}

bool isThisMachine(const ServerAddress::Host& host) {
  constexpr std::array names{"localhost", "127.0.0.1", "::1"};
  return std::ranges::any_of(names,
                             [&](const char* name) { return equalIgnoringCase(host.name, name); });
}

unsigned portOf(const ServerAddress::Host& host) {
  constexpr unsigned usual = 3306;
  return host.port == 0 && !equalIgnoringCase(host.name, "localhost") ? usual : host.port;
}

std::string ServerAddress::place() const { return socket.empty() ? hostsText(hosts) : socket; }

std::string ServerAddress::url() const {
  return std::string(scheme) + encoded(user) + '@' + hostsText(hosts) + '/' + database +
         (socket.empty() ? "" : "?socket=" + socket);
}

void validate(const ServerAddress& address) {
  if (address.hosts.empty() && address.socket.empty()) refuse("No host is named.");
  if (address.user.empty()) refuse("Nobody is named who has an account there.");
  const bool plain =
      !address.database.empty() && address.database.size() <= 64 &&
      address.database.find_first_not_of(
          "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_") == std::string::npos;
  if (plain) return;
  throw std::runtime_error("\"" + address.database +
                           "\" cannot name a database; use letters, digits and underscores.");
}

}  // namespace quillet::suite
