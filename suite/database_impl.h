// What a database consists of: the server of our own or the address of another one, and the
// connection.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "suite/client_connection.h"
#include "suite/database.h"
#include "suite/embedded_server.h"
#include "suite/host_probe.h"

namespace quillet::suite {

// Of the server of our own.
inline constexpr const char* ownSchema = "quillet";

class Database::Impl {
 public:
  explicit Impl(std::unique_ptr<EmbeddedServer> server)
      : server_(std::move(server)), connection_(makeConnection()) {}

  ClientConnection& connection() { return connection_; }
  EmbeddedServer* server() { return server_.get(); }
  bool keepsHistory() const { return keepsHistory_; }

  // Opening, in database_opening.cpp.
  void connectWithin();
  void connectTo(const Server& server, const std::vector<SilentHost>& silent = {});
  void share();
  bool hasTables(const std::string& which = {});
  // The server that connections go to; without one they go to the one within this process.
  void remember(const Server& server) {
    remote_ = server;
    remote_->mayBeNew = false;
  }

  // A connection that is lost or silent, in database_renewing.cpp.
  void tellWaiting(ClientConnection::Waiting waiting);
  void renew(Waiting waiting);
  bool renewSoon();
  bool answersSoon();
  void giveUpIfSilent() noexcept;

 private:
  using Clock = std::chrono::steady_clock;

  // Without a server of our own there is one elsewhere.
  ClientConnection makeConnection() const {
    return server_ ? ClientConnection() : ClientConnection::remote();
  }
  void openBooks(const Server& server);
  void useSchema(const std::string& schema);
  void holdSchema(const std::string& schema);
  void prepareHistory();
  bool isThere(const std::string& schema);
  // Those of a copy that has not come to its end too.
  bool hasOurTables() { return hasTables(" and table_name in ('Mast_Part','suitecopy')"); }

  bool answered(std::chrono::milliseconds longest);
  void lookForSilent(Clock::time_point end, const ClientConnection::Waiting& waiting);
  void connectAgain();

  std::unique_ptr<EmbeddedServer> server_;  // outlives the connection
  std::optional<Server> remote_;
  ClientConnection connection_;
  ClientConnection::Waiting waiting_;
  std::string lock_;  // on the schema, "" when it is not held
  bool keepsHistory_ = false;
  bool outOfReach_ = false;  // it was waited for in vain
  Clock::time_point askedAt_;
  HostProbe probe_;
  bool anySilent_ = false;          // there may be hosts that keep whoever connects waiting
  std::vector<SilentHost> silent_;  // as far as they are known
  bool allAnswer_ = false;          // each did when it was asked last, be it with a refusal
};

}  // namespace quillet::suite
