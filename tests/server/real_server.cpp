#include "server/real_server.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "data/errors.h"

namespace quillet::support {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr auto patience = 60s;

std::string contents(const fs::path& file) {
  std::ostringstream text;
  text << std::ifstream(file).rdbuf();
  return text.str();
}

void run(const std::vector<std::string>& words, const fs::path& output) {
  if (waitFor(startProgram(words, output)) != 0)
    throw std::runtime_error(words.front() + ": " + contents(output));
}

bool isInstalled(const std::string& program) {
  return fs::exists("/usr/bin/" + program) || fs::exists("/usr/sbin/" + program);
}

// How a server keeps its data: small, and alike for all, so that one can be copied for another.
RealServer::Options sizes() {
  return {"--no-defaults", "--innodb-log-file-size=8M", "--innodb-buffer-pool-size=16M",
          "--innodb-data-file-path=ibdata1:10M:autoextend", "--skip-name-resolve"};
}

// Made once for each program of tests.
const fs::path& emptyData() {
  static const TemporaryFolder folder;
  static const fs::path data = [] {
    const fs::path path = folder.path() / "data";
    RealServer::Options words = sizes();
    words.insert(words.begin(), "mariadb-install-db");
    words.insert(words.end(), {"--datadir=" + path.string(), "--skip-test-db",
                               "--auth-root-authentication-method=normal"});
    if (getuid() == 0) words.emplace_back("--user=root");
    run(words, folder.path() / "log");
    return path;
  }();
  return data;
}

}  // namespace

int startProgram(const std::vector<std::string>& words, const fs::path& output) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  const int parent = getpid();
  const int process = fork();
  if (process < 0) throw std::runtime_error("no process can be made");
  if (process > 0) return process;
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(1);
  const int file = open(output.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
  dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
  dup2(file, STDOUT_FILENO);
  dup2(file, STDERR_FILENO);
  closefrom(STDERR_FILENO + 1);
  execvp(arguments.front(), arguments.data());
  _exit(127);
}

int waitFor(int process) {
  int status = 0;
  waitpid(process, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128;
}

unsigned freePort() {
  const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  auto* plain = reinterpret_cast<sockaddr*>(&address);
  if (bind(listener, plain, length) != 0 || getsockname(listener, plain, &length) != 0) {
    throw std::runtime_error("no port is free");
  }
  close(listener);
  return ntohs(address.sin_port);
}

// --- certificates -------------------------------------------------------------------------------

const Certificates& Certificates::shared() {
  static const Certificates certificates;
  return certificates;
}

fs::path Certificates::of(Kind kind) const {
  constexpr std::array names{"valid.pem", "expired.pem", "future.pem", "other-name.pem"};
  return folder_.path() / names.at(static_cast<std::size_t>(kind));
}

Certificates::Certificates() {
  const auto path = [&](const char* name) { return (folder_.path() / name).string(); };
  const auto openssl = [&](std::vector<std::string> words) {
    words.insert(words.begin(), "openssl");
    run(words, path("log"));
  };
  for (const char* name : {"authority", "stranger"}) {
    openssl({"req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes",
             "-days", "2", "-subj", std::string("/CN=") + name, "-keyout", path(name) + ".key",
             "-out", path(name) + ".pem"});
  }
  openssl({"req", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-subj",
           "/CN=server", "-keyout", key().string(), "-out", path("request")});
  const auto sign = [&](Kind kind, const char* days, const char* names) {
    std::ofstream(path("names")) << "subjectAltName=" << names << '\n';
    openssl({"x509", "-req", "-in", path("request"), "-CA", authority().string(), "-CAkey",
             path("authority.key"), "-CAcreateserial", "-days", days, "-extfile", path("names"),
             "-out", of(kind).string()});
  };
  sign(Kind::valid, "2", "IP:127.0.0.1,IP:127.0.0.2,DNS:localhost");
  sign(Kind::expired, "-1", "IP:127.0.0.1,DNS:localhost");
  sign(Kind::otherName, "2", "DNS:books.example");
  // Only this command knows a beginning.
  std::ofstream(path("index"));
  std::ofstream(path("ca.conf")) << "[ca]\ndefault_ca=one\n[one]\ndefault_md=sha256\npolicy=any\n"
                                    "rand_serial=yes\nx509_extensions=names\ndatabase="
                                 << path("index") << "\nnew_certs_dir=" << folder_.path().string()
                                 << "\n[any]\ncommonName=supplied\n"
                                    "[names]\nsubjectAltName=IP:127.0.0.1\n";
  openssl({"ca", "-batch", "-notext", "-config", path("ca.conf"), "-cert", authority().string(),
           "-keyfile", path("authority.key"), "-in", path("request"), "-startdate",
           "20900101000000Z", "-enddate", "20910101000000Z", "-out", of(Kind::future).string()});
}

// --- the server ---------------------------------------------------------------------------------

std::string RealServer::absent() {
#ifdef __SANITIZE_ADDRESS__
  return "the client library is not loaded under AddressSanitizer";
#else
  for (const char* program : {"mariadbd", "mariadb-install-db", "openssl"}) {
    if (!isInstalled(program)) return std::string(program) + " is not installed";
  }
  return fs::exists("/usr/lib/galera/libgalera_smm.so") ? "" : "galera is not installed";
#endif
}

bool RealServer::maySkip() {
#ifdef __SANITIZE_ADDRESS__
  return true;
#else
  return std::getenv("CI") == nullptr;
#endif
}

RealServer::RealServer(Options options) : port_(freePort()) {
  fs::copy(emptyData(), data(), fs::copy_options::recursive);
  start(std::move(options));
}

RealServer::~RealServer() { kill(); }

RealServer::Options RealServer::encrypted(Certificates::Kind kind) {
  const Certificates& made = Certificates::shared();
  return {"--ssl-ca=" + made.authority().string(), "--ssl-cert=" + made.of(kind).string(),
          "--ssl-key=" + made.key().string()};
}

void RealServer::start(Options options) {
  options_ = std::move(options);
  start();
}

void RealServer::start() {
  Options words = sizes();
  words.insert(words.begin(), "mariadbd");
  words.insert(
      words.end(),
      {"--datadir=" + data().string(), "--socket=" + socket().string(),
       "--pid-file=" + (folder_.path() / "pid").string(), "--port=" + std::to_string(port_),
       "--bind-address=127.0.0.1", "--tmpdir=" + folder_.path().string(),
       "--lower-case-table-names=1", "--innodb-flush-log-at-trx-commit=2",
       "--innodb-buffer-pool-dump-at-shutdown=0", "--innodb-buffer-pool-load-at-startup=0",
       "--innodb-fast-shutdown=2", "--key-buffer-size=8192", "--aria-pagecache-buffer-size=1M"});
  words.insert(words.end(), options_.begin(), options_.end());
  if (std::ranges::find(options_, "--user=mysql") != options_.end()) {
    // What belongs to root is of no use to the account that the server runs as.
    run({"chown", "-R", "mysql", folder_.path().string()}, folder_.path() / "log");
  } else if (getuid() == 0) {
    words.emplace_back("--user=root");
  }
  process_ = startProgram(words, folder_.path() / "log");
  waitUntilReady();
}

void RealServer::waitUntilReady() {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (true) {
    try {
      // A node of a cluster refuses this until it is ready.
      value("select count(*) from mysql.db");
      return;
    } catch (const RunTimeError&) {
      root_.reset();
    }
    int status = 0;
    if (waitpid(process_, &status, WNOHANG) == process_) {
      process_ = -1;
      throw std::runtime_error("The server ended: " + log());
    }
    if (std::chrono::steady_clock::now() > end) {
      throw std::runtime_error("The server does not answer: " + log());
    }
    std::this_thread::sleep_for(20ms);
  }
}

void RealServer::reap(int signal) {
  root_.reset();
  if (process_ <= 0) return;
  ::kill(process_, SIGCONT);
  ::kill(process_, signal);
  waitpid(process_, nullptr, 0);
  process_ = -1;
}

void RealServer::stop() { reap(SIGTERM); }
void RealServer::kill() { reap(SIGKILL); }
void RealServer::pause() {
  ::kill(process_, SIGSTOP);
  waitpid(process_, nullptr, WUNTRACED);
}
void RealServer::resume() { ::kill(process_, SIGCONT); }

std::string RealServer::log() const { return contents(folder_.path() / "log"); }

suite::ClientConnection& RealServer::root() {
  if (!root_) {
    auto connection = std::make_unique<suite::ClientConnection>(suite::ClientConnection::remote());
    connection->open({.socket = socket().string(), .user = "root", .connectSeconds = 10});
    root_ = std::move(connection);
  }
  return *root_;
}

std::string RealServer::value(const std::string& sql) {
  const RecordsetPtr rows = root().query(sql);
  return rows->EOF_() ? "" : rows->text(0);
}

void RealServer::addAccount(const std::string& user, const std::string& password,
                            const std::string& rights) {
  const std::string account = root().quoted(user) + "@'%'";
  root().execute("create user " + account + " identified by " + root().quoted(password));
  root().execute("grant " + rights + " to " + account);
}

suite::Database::Server RealServer::entrance(const std::string& user,
                                             const std::string& password) const {
  suite::Database::Server server;
  server.address.hosts = {{"127.0.0.1", port_}};
  server.address.user = user;
  server.password = password;
  return server;
}

}  // namespace quillet::support
