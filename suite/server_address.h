// Where a database server is, and how a station comes in. It never holds a password.
#pragma once

#include <string>
#include <vector>

namespace quillet::suite {

struct ServerAddress {
  struct Host {
    std::string name;
    unsigned port = 0;  // 0: the usual one; on this machine the server's socket
    bool operator==(const Host&) const = default;
  };
  // Tried in this order.
  std::vector<Host> hosts{};
  std::string socket{};  // on this machine, in place of hosts
  std::string user{};
  std::string database = "quillet";
  std::string authority{};     // the file with the certificates to trust; "": the system's
  std::string passwordFile{};  // "": the keyring is asked, then a person
  unsigned connectSeconds = 10;
  unsigned answerSeconds = 60;

  bool operator==(const ServerAddress&) const = default;
  // "mariadb://user@host:port/database", without what only this station knows.
  std::string url() const;
  // "host1:3307, host2"; the socket.
  std::string place() const;
};

bool isServerUrl(const std::string& text);

// mariadb://user@host1,host2:port/database?ca=FILE&password-file=FILE&socket=FILE
//     &connect-seconds=N&answer-seconds=N
// A host without a port has that of the next one that has one. Throws std::runtime_error that tells
// what is wrong, of a password too.
ServerAddress parseServerUrl(const std::string& url);

// "host1:3307,host2,[::1]:3307", with the port of those that name none. Throws as above.
std::vector<ServerAddress::Host> parseHosts(const std::string& text, unsigned port = 0);
std::string hostsText(const std::vector<ServerAddress::Host>& hosts);

// Whether nothing that is sent there leaves this machine.
bool isThisMachine(const ServerAddress::Host& host);

// Where connections to it go; 0: to the server's socket on this machine.
unsigned portOf(const ServerAddress::Host& host);

// Throws as above when the database has a name that no statement may hold, or nobody is named.
void validate(const ServerAddress& address);

}  // namespace quillet::suite
