#include "server/real_server.h"

#include <gtest/gtest.h>

#include "data/errors.h"

namespace quillet::support {
namespace {

using suite::ClientConnection;

// What the connection through TCP says: its cipher, or the error.
std::string encryptedAt(const RealServer& server, const std::string& host,
                        const std::filesystem::path& authority) {
  try {
    ClientConnection connection = ClientConnection::remote();
    connection.open({.host = host,
                     .port = server.port(),
                     .user = "root",
                     .encrypted = true,
                     .authority = authority.string(),
                     .connectSeconds = 5});
    return connection.query("show status like 'ssl_cipher'")->text(1);
  } catch (const RunTimeError& error) {
    return std::to_string(error.number());
  }
}

TEST(RealServer, IsTheSameAfterItsEnd) {
  NEEDS_REAL_SERVERS();
  RealServer server;
  server.root().execute("create database books");
  server.root().execute("create table books.t (n int)");
  server.root().execute("insert into books.t values (7)");
  server.stop();
  server.start();
  EXPECT_EQ("7", server.value("select n from books.t"));
  server.kill();
  EXPECT_FALSE(server.runs());
  server.start({"--read-only=1"});
  EXPECT_EQ("7", server.value("select n from books.t"));
  EXPECT_EQ("1", server.value("select @@read_only"));
}

TEST(RealServer, IsKnownByItsCertificate) {
  NEEDS_REAL_SERVERS();
  const Certificates& made = Certificates::shared();
  const auto certificate = [](Certificates::Kind kind) { return RealServer::encrypted(kind); };
  RealServer server(certificate(Certificates::Kind::valid));
  EXPECT_GT(encryptedAt(server, "127.0.0.1", made.authority()).size(), 5U);
  EXPECT_GT(encryptedAt(server, "localhost", made.authority()).size(), 5U);
  EXPECT_EQ("2026", encryptedAt(server, "127.0.0.1", made.stranger()));
  EXPECT_EQ("2026", encryptedAt(server, "127.0.0.1", {}));
  for (const auto kind : {Certificates::Kind::expired, Certificates::Kind::otherName}) {
    server.stop();
    server.start(certificate(kind));
    EXPECT_EQ("2026", encryptedAt(server, "127.0.0.1", made.authority()));
  }
  server.stop();
  server.start({"--skip-ssl"});
  EXPECT_EQ("2026", encryptedAt(server, "127.0.0.1", made.authority()));
}

}  // namespace
}  // namespace quillet::support
