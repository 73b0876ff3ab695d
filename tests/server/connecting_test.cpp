// The way in to a server, and what is told when there is none.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <fstream>

#include "data/errors.h"
#include "server/real_server.h"
#include "suite/server_login.h"
#include "suite/server_password.h"

namespace quillet::suite {
namespace {

using support::Certificates;
using support::RealServer;

class Connecting : public ::testing::Test {
 protected:
  void SetUp() override { NEEDS_REAL_SERVERS(); }

  // "" when the books open.
  static std::string told(const Database::Server& server) {
    try {
      Database::connect(server)->query("select 1");
      return {};
    } catch (const std::exception& error) {
      return error.what();
    }
  }
  static void expectTold(const Database::Server& server, const std::vector<std::string>& texts) {
    const std::string text = told(server);
    for (const std::string& part : texts) {
      EXPECT_NE(text.find(part), std::string::npos) << "not told: " << part << "\nbut: " << text;
    }
  }
  static std::string rights(const std::string& all = listed(neededRights())) {
    return all + " on quillet.*";
  }
};

TEST_F(Connecting, TellsWhatIsWrongWithTheServer) {
  RealServer server;
  server.addAccount("kamal", "right", rights());
  server.addAccount("reader", "right", rights("select, insert, create"));
  Database::Server entrance = server.entrance("kamal", "right");
  EXPECT_EQ("", told(entrance)) << "these rights are enough, also to make the database";

  Database::Server wrong = server.entrance("kamal", "wrong");
  EXPECT_THROW(Database::connect(wrong), WrongPassword);
  expectTold(wrong, {"does not take the password of kamal"});
  expectTold(server.entrance("reader", "right"),
             {"lacks rights", "update, delete, drop", "server-account"});
  entrance.mayBeNew = false;
  expectTold(entrance, {"no tables"});

  entrance.address.connectSeconds = 1;
  server.pause();
  expectTold(entrance, {"does not answer within 1 s"});
  server.resume();

  server.stop();
  expectTold(entrance, {"127.0.0.1", "Look whether the server runs"});
  server.start({"--lower-case-table-names=0", "--max-allowed-packet=1M", "--read-only=1",
                "--enforce-storage-engine=Aria", "--secure-timestamp=YES"});
  expectTold(entrance, {"lower_case_table_names=1", "max_allowed_packet=64M", "read-only",
                        "enforce_storage_engine", "secure_timestamp=NO"});
  server.stop();
  server.start({"--version=10.6.3-MariaDB"});
  expectTold(entrance, {"10.6.3-MariaDB", "10.11 or later"});
}

TEST_F(Connecting, ChecksTheCertificate) {
  const Certificates& made = Certificates::shared();
  RealServer server(RealServer::encrypted());
  server.addAccount("kamal", "right", rights());
  Database::Server entrance = server.entrance("kamal", "right");
  entrance.address.authority = made.authority().string();
  EXPECT_EQ("", told(entrance));
  entrance.address.authority = made.stranger().string();
  expectTold(entrance, {"signed by nobody who is trusted here", made.stranger().string()});
  entrance.address.authority = made.authority().string();
  struct Case {
    RealServer::Options options;
    const char* told;
  };
  const Case cases[] = {
      {RealServer::encrypted(Certificates::Kind::expired), "has expired"},
      {RealServer::encrypted(Certificates::Kind::future), "is not valid yet"},
      {RealServer::encrypted(Certificates::Kind::otherName), "is not for the name 127.0.0.1"},
      {{"--skip-ssl"}, "does not encrypt"},
  };
  for (const auto& [options, told] : cases) {
    server.stop();
    server.start(options);
    expectTold(entrance, {told});
  }
}

// The program takes this address for another machine.
TEST_F(Connecting, GoesToOtherMachinesEncryptedOnly) {
  const Certificates& made = Certificates::shared();
  const auto at = [](RealServer::Options options) {
    options.emplace_back("--bind-address=127.0.0.1,127.0.0.2");
    return options;
  };
  RealServer server(at({"--skip-ssl"}));
  server.addAccount("kamal", "right", rights());
  Database::Server entrance = server.entrance("kamal", "right");
  EXPECT_EQ("", told(entrance)) << "this machine";
  entrance.address.hosts[0].name = "127.0.0.2";
  expectTold(entrance, {"does not encrypt", "another machine"});
  server.stop();
  server.start(at(RealServer::encrypted()));
  expectTold(entrance, {"signed by nobody who is trusted here"});
  entrance.address.authority = made.authority().string();
  EXPECT_EQ("", told(entrance));
  server.stop();
  server.start(at(RealServer::encrypted(Certificates::Kind::otherName)));
  expectTold(entrance, {"is not for the name 127.0.0.2"});
}

TEST_F(Connecting, GoesToTheNextHost) {
  RealServer first;
  RealServer second;
  for (RealServer* server : {&first, &second}) {
    server->addAccount("kamal", "right", rights());
    server->root().execute("create database quillet");
    server->root().execute("create table quillet.Mast_Part (PartId int)");
    server->root().execute("create table quillet.which (port int)");
    server->root().execute("insert into quillet.which values (" + std::to_string(server->port()) +
                           ')');
  }
  Database::Server entrance = first.entrance("kamal", "right");
  entrance.address.hosts.push_back({"127.0.0.1", second.port()});
  entrance.address.answerSeconds = 1;
  const auto database = Database::connect(entrance);
  const auto used = [&] {
    return static_cast<unsigned>(database->query("select port from which")->integer(0));
  };
  const auto lost = [&] {
    try {
      database->execute("insert into which values (0)");
    } catch (const RunTimeError& error) {
      EXPECT_NE(std::string(error.what()).find("is lost"), std::string::npos) << error.what();
      return error.number() == 2013 || error.number() == 2006;
    }
    return false;
  };
  EXPECT_EQ(first.port(), used());
  first.pause();
  EXPECT_TRUE(lost()) << "it does not answer in time";
  first.kill();
  database->renewConnection();
  EXPECT_EQ(second.port(), used());
  EXPECT_EQ("+00:00 READ-COMMITTED",
            database->query("select concat_ws(' ',@@time_zone,@@tx_isolation)")->text(0));
  first.start();
  second.root().execute("set global read_only=1");
  database->renewConnection();
  EXPECT_EQ(first.port(), used()) << "the other one takes no changes any more";
  EXPECT_EQ("1", second.value("select count(*) from quillet.which")) << "nothing was sent twice";

  database->execute("set max_heap_table_size=16384");
  database->execute("create temporary table full (t char(250)) engine=memory");
  try {
    for (int i = 0; i < 1'000; ++i) database->execute("insert into full values ('x')");
    ADD_FAILURE() << "it is never full";
  } catch (const RunTimeError& error) {
    EXPECT_NE(std::string(error.what()).find("make room there"), std::string::npos);
  }
}

TEST_F(Connecting, TellsOfALostQuorum) {
  RealServer node({"--wsrep-on=1", "--wsrep-provider=/usr/lib/galera/libgalera_smm.so",
                   "--wsrep-cluster-address=gcomm://", "--wsrep-node-address=127.0.0.1",
                   "--binlog-format=row", "--innodb-autoinc-lock-mode=2",
                   "--wsrep-provider-options=gmcast.listen_addr=tcp://127.0.0.1:" +
                       std::to_string(support::freePort()) +
                       ";gcache.size=1M;pc.announce_timeout=PT0.5S;pc.wait_prim_timeout=PT1S"});
  node.addAccount("kamal", "right", rights());
  Database::Server entrance = node.entrance("kamal", "right");
  entrance.address.connectSeconds = 2;  // so long a renewal looks for a node
  const auto database = Database::connect(entrance);
  database->execute("create table t (n int primary key) engine=innodb");
  node.root().execute("set global wsrep_cluster_address='gcomm://127.0.0.1:1'");
  expectTold(entrance, {"too few nodes of its cluster"});
  EXPECT_THROW(database->execute("insert into t values (1)"), RunTimeError);
  EXPECT_THROW(database->renewConnection(), std::runtime_error);
}

TEST_F(Connecting, FindsThePassword) {
  RealServer server;
  server.addAccount("kamal", "right", rights());
  const support::TemporaryFolder folder;
  const std::string file = (folder.path() / "password").string();
  ServerAddress address = server.entrance("kamal", "").address;
  std::vector<std::string> answers;
  // The answer to the last question, or what was told.
  const auto opened = [&] {
    std::string asked;
    try {
      withPassword(
          address,
          [&](const std::string& prompt) -> std::optional<std::string> {
            asked += prompt + '|';
            if (answers.empty()) return std::nullopt;
            const std::string answer = answers.front();
            answers.erase(answers.begin());
            return answer;
          },
          [&](const std::string& password) { logIn(address, password); },
          [](const std::string&) { return true; });
      return asked + "open";
    } catch (const std::exception& error) {
      return asked + error.what();
    }
  };
  const std::string prompt = "Password of kamal at 127.0.0.1:" + std::to_string(server.port());
  EXPECT_EQ(0U, opened().find(prompt + "|The database server")) << opened();
  answers = {"wrong", "right"};
  EXPECT_EQ(prompt + "|That was not it. " + prompt + "|open", opened());

  // A keyring keeps what was typed, until it is another one.
  const std::string keyring = (folder.path() / "secret-tool").string();
  std::ofstream(keyring) << "#!/bin/sh\ncase $1 in\n"
                            "store) shift 2; cat >\"$0 $*\";;\n"
                            "lookup) shift; cat \"$0 $*\";;\nesac\n";
  std::filesystem::permissions(keyring, std::filesystem::perms(0700));
  const std::string path = std::getenv("PATH");
  setenv("PATH", (folder.path().string() + ':' + path).c_str(), 1);
  answers = {"right"};
  EXPECT_EQ(prompt + "|open", opened());
  EXPECT_EQ("open", opened()) << "it is kept";
  server.root().execute("alter user kamal identified by 'newer'");
  answers = {"newer"};
  EXPECT_EQ("The one in the keyring was not it. " + prompt + "|open", opened());
  EXPECT_EQ("open", opened());
  server.root().execute("alter user kamal identified by 'right'");
  setenv("PATH", path.c_str(), 1);

  std::ofstream(file) << "right\nmore\n";
  address.passwordFile = file;
  std::filesystem::permissions(file, std::filesystem::perms(0640));
  EXPECT_NE(std::string::npos, opened().find("not yours alone")) << opened();
  std::filesystem::permissions(file, std::filesystem::perms(0600));
  EXPECT_EQ("open", opened());
}

// One whose queue is full drops what would connect, one that listens and says nothing hangs.
TEST(HostProbe, NamesTheHostsThatAreSilentAndKeepsNobodyWaiting) {
  std::vector<int> sockets;
  const auto made = [&] {
    return sockets.emplace_back(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  };
  ServerAddress address;
  address.connectSeconds = 1;
  for (int i = 0; i < 2; ++i) {
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof place;
    auto* const plain = reinterpret_cast<sockaddr*>(&place);
    const int listening = made();
    ASSERT_EQ(bind(listening, plain, size) + listen(listening, i == 0 ? 0 : 16), 0);
    getsockname(listening, plain, &size);
    for (int client = 0; i == 0 && client < 4; ++client) connect(made(), plain, size);
    address.hosts.push_back({"127.0.0.1", ntohs(place.sin_port)});
  }
  const std::vector<ServerAddress::Host> quiet = address.hosts;
  address.hosts.push_back({"127.0.0.1", support::freePort()});  // refuses
  HostProbe probe;
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_EQ(probe.silent(address, {}).has_value(), false);
  EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(address.connectSeconds));
  const auto silent = probe.silent(address, std::chrono::seconds(10));
  ASSERT_TRUE(silent && silent->size() == 2);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_EQ((*silent)[i].host, quiet[i]);
    EXPECT_EQ((*silent)[i].fault.find("it does not answer within 1 s"), 0U);
  }
  for (const int each : sockets) close(each);
}

TEST(ServerAddress, IsRefusedInWords) {
  const std::pair<const char*, const char*> cases[] = {
      {"http://a@b/c", "does not name a server"},
      {"mariadb://a:secret@b/c", "A password does not stand in the address"},
      {"mariadb://b/c", "Nobody is named"},
      {"mariadb://a@/c", "No host is named"},
      {"mariadb://a@b:x/c", "\"x\" is no port"},
      {"mariadb://a@b:70000/c", "is no port"},
      {"mariadb://a@b c/d", "is no host"},
      {"mariadb://a@b/c`d", "cannot name a database"},
      {"mariadb://a@b/c?d=e", "has no \"d\""},
      {"mariadb://a@b/c?answer-seconds=0", "is no number of seconds"},
      {"mariadb://a%zz@b/c", "percent sign"},
  };
  for (const auto& [url, told] : cases) {
    try {
      parseServerUrl(url);
      ADD_FAILURE() << url;
    } catch (const std::runtime_error& error) {
      EXPECT_NE(std::string(error.what()).find(told), std::string::npos) << url << error.what();
      EXPECT_EQ(std::string(error.what()).find("secret"), std::string::npos);
    }
  }
}

}  // namespace
}  // namespace quillet::suite
