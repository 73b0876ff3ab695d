// A database server of Debian's package, on the loopback address and in a folder of its own, both
// gone with the object. Nothing of the system's own server is read or touched.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "suite/client_connection.h"
#include "suite/database.h"
#include "support/practice.h"

namespace quillet::support {

// Tests on real servers begin with it: they are skipped in words under AddressSanitizer, and where
// the packages of server-packages.txt are not installed, but fail on a machine that integrates
// changes.
#define NEEDS_REAL_SERVERS()                                               \
  do {                                                                     \
    const std::string absent = ::quillet::support::RealServer::absent();   \
    if (absent.empty()) break;                                             \
    if (::quillet::support::RealServer::maySkip()) GTEST_SKIP() << absent; \
    FAIL() << absent;                                                      \
  } while (false)

// Certificates made when they are first asked for, for 127.0.0.1 and localhost.
class Certificates {
 public:
  static const Certificates& shared();
  std::filesystem::path authority() const { return folder_.path() / "authority.pem"; }
  // Signed by nobody that the server's certificate goes by.
  std::filesystem::path stranger() const { return folder_.path() / "stranger.pem"; }
  std::filesystem::path key() const { return folder_.path() / "server.key"; }
  enum class Kind { valid, expired, future, otherName };
  std::filesystem::path of(Kind kind) const;

 private:
  Certificates();
  TemporaryFolder folder_;
};

class RealServer {
 public:
  using Options = std::vector<std::string>;

  // What keeps servers from being started here, "" when nothing does.
  static std::string absent();
  static bool maySkip();

  // Starts it with these options besides its own: "--max-allowed-packet=1M".
  explicit RealServer(Options options = {});
  ~RealServer();
  RealServer(const RealServer&) = delete;
  RealServer& operator=(const RealServer&) = delete;

  // The options that encrypt connections.
  static Options encrypted(Certificates::Kind kind = Certificates::Kind::valid);

  // Started again it has the same port, socket and data. The options take the place of those
  // before.
  void start();
  void start(Options options);
  void stop();   // in good order
  void kill();   // at once
  void pause();  // it keeps its connections and answers no more
  void resume();
  bool runs() const { return process_ > 0; }

  unsigned port() const { return port_; }
  std::filesystem::path socket() const { return folder_.path() / "socket"; }
  std::filesystem::path data() const { return folder_.path() / "data"; }
  // What it said since it was first started.
  std::string log() const;

  // As root, whose password is "": for preparing and for looking. Opened anew after a start.
  suite::ClientConnection& root();
  // The first cell of the answer.
  std::string value(const std::string& sql);

  // Makes an account with a password and these rights: "all on quillet.*".
  void addAccount(const std::string& user, const std::string& password,
                  const std::string& rights = "all on *.*");
  // As a station names it.
  suite::Database::Server entrance(const std::string& user, const std::string& password) const;

 private:
  void waitUntilReady();
  void reap(int signal);

  TemporaryFolder folder_;
  Options options_;
  unsigned port_;
  int process_ = -1;
  std::unique_ptr<suite::ClientConnection> root_;
};

// Runs a program whose output goes to the end of a file; it does not outlive us. Returns its
// process.
int startProgram(const std::vector<std::string>& words, const std::filesystem::path& output);
// Its exit status, once it has ended.
int waitFor(int process);

// A port of the loopback address that is free now.
unsigned freePort();

}  // namespace quillet::support
