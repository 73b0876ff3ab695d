#include "suite/database.h"

#include <chrono>
#include <optional>
#include <stdexcept>
#include <thread>
#include <utility>

#include "data/errors.h"
#include "suite/client_connection.h"
#include "suite/embedded_server.h"
#include "suite/server_login.h"

namespace quillet::suite {
namespace {

constexpr const char* ownSchema = "quillet";
constexpr const char* charset = "utf8mb4";
// Names are the same that differ in case or in blanks at the end; accents, the signs of Indian
// scripts and emoji tell them apart, as they do in the module.
constexpr const char* withCollation = " character set utf8mb4 collate utf8mb4_uca1400_as_ci";
constexpr long unknownDatabase = 1049;
constexpr long accessDenied = 1044;
// What nobody feels.
constexpr std::chrono::milliseconds moment{300};

// The server makes a table of a long list of values. That helps where rows are looked up by the
// list; where each row is compared with it, the list as it stands is faster.
std::string comparingLists(const std::string& sql) {
  constexpr std::string_view excluding = " Not In (";
  constexpr std::size_t longList = 4'000;
  if (sql.size() < longList || sql.find(excluding) == std::string::npos) return sql;
  return "set statement in_predicate_conversion_threshold=0 for " + sql;
}

}  // namespace

class Database::Impl {
 public:
  explicit Impl(std::unique_ptr<EmbeddedServer> server)
      : server_(std::move(server)), connection_(makeConnection()) {}

  ClientConnection& connection() { return connection_; }
  EmbeddedServer* server() { return server_.get(); }

  // Opens the schema, which is made when missing, with the collation that every table inherits. One
  // that is there keeps the collation it has.
  void useSchema(const std::string& schema) {
    if (!isThere(schema)) {
      connection_.execute("create database if not exists " + schema + withCollation);
      connection_.execute("use " + schema);
    }
    if (connection_.query("select @@character_set_database")->text(0) != charset) {
      connection_.execute("alter database " + schema + withCollation);
    }
  }

  // One station after the other opens the books, which may have to be completed. The lock goes with
  // the connection, at the latest.
  void holdSchema(const std::string& schema) {
    lock_ = "lower('quillet." + schema + "')";
    if (connection_.query("select get_lock(" + lock_ + ",60)")->integer(0) == 1) return;
    throw std::runtime_error("Another station is opening, copying or updating the database " +
                             schema + " and has not ended. Please try again.");
  }
  void share() {
    if (!lock_.empty()) connection_.execute("do release_lock(" + lock_ + ')');
    lock_.clear();
  }
  bool keepsHistory() const { return keepsHistory_; }
  // Instants are the same on every station and through the year. A table with a history takes
  // further columns.
  void prepareHistory() {
    connection_.execute("set session time_zone='+00:00'");
    keepsHistory_ =
        !connection_.query("show variables like 'system_versioning_alter_history'")->EOF_();
    if (keepsHistory_) connection_.execute("set session system_versioning_alter_history=keep");
  }
  bool hasTables(const std::string& which = {}) {
    return connection_
               .query(
                   "select exists(select 1 from information_schema.tables where "
                   "table_schema=database()" +
                   which + ')')
               ->integer(0) == 1;
  }
  // Those of a copy that has not come to its end too.
  bool hasOurTables() { return hasTables(" and table_name in ('Mast_Part','suitecopy')"); }

  void connectWithin();
  void connectTo(const Server& server, const std::vector<SilentHost>& silent = {});
  void openBooks(const Server& server);
  // The server that connections go to; without one they go to the one within this process.
  void remember(const Server& server) {
    remote_ = server;
    remote_->mayBeNew = false;
  }
  void renew(Waiting waiting, const std::vector<SilentHost>& silent = {});
  bool answersSoon();
  bool renewSoon();
  void giveUpIfSilent() noexcept;

 private:
  // Without a server of our own there is one elsewhere.
  ClientConnection makeConnection() const {
    return server_ ? ClientConnection() : ClientConnection::remote();
  }
  bool answered(std::chrono::milliseconds longest);
  bool isThere(const std::string& schema) {
    try {
      connection_.execute("use " + schema);
      return true;
    } catch (const RunTimeError& error) {
      if (error.number() != unknownDatabase) throw;
      return false;
    }
  }

  std::unique_ptr<EmbeddedServer> server_;  // outlives the connection
  std::optional<Server> remote_;
  ClientConnection connection_;
  std::string lock_;  // on the schema, "" when it is not held
  bool keepsHistory_ = false;
  bool outOfReach_ = false;
  std::chrono::steady_clock::time_point askedAt_;
  HostProbe probe_;
  bool anySilent_ = false;  // when hosts were looked for last
  bool allAnswer_ = false;
};

Database::Database(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Database::~Database() = default;

// --- opening ------------------------------------------------------------------------------------

void Database::Impl::connectWithin() {
  try {
    connection_.open();
  } catch (const RunTimeError& error) {
    throw std::runtime_error("The database in " + server_->folder().string() +
                             " does not answer: " + error.what());
  }
  useSchema(ownSchema);
  prepareHistory();
}

void Database::Impl::connectTo(const Server& server, const std::vector<SilentHost>& silent) {
  const ServerAddress& address = server.address;
  ClientConnection before = std::exchange(connection_, logIn(address, server.password, silent));
  try {
    holdSchema(address.database);
    openBooks(server);
    prepareHistory();
  } catch (...) {
    // A connection without the books, and the lock that it may have, go.
    connection_ = std::move(before);
    lock_.clear();
    throw;
  }
}

void Database::Impl::openBooks(const Server& server) {
  const ServerAddress& address = server.address;
  const std::string told = "the database " + address.database + " on the server " + address.place();
  bool there = false;
  try {
    there = isThere(address.database);
  } catch (const RunTimeError& error) {
    if (error.number() != accessDenied) throw;
  }
  const auto missing = missingRights(connection_, address.database);
  if (!missing.empty()) {
    throw std::runtime_error("The account " + address.user + " lacks rights on " + told + ": " +
                             listed(missing) +
                             ". Name another database, or have whoever keeps the server give the"
                             " rights with: quillet server-account");
  }
  if (there && hasTables() && !hasOurTables()) {
    throw std::runtime_error("In " + told +
                             " another program has its tables, and there are no books. Name"
                             " another database.");
  }
  if (!server.mayBeNew && (!there || !hasTables())) {
    throw std::runtime_error("There are no books: " + told +
                             (there ? " has no tables" : " is not there") +
                             ". If they were there, restore them. If another one is meant, name it"
                             " in the address or the section [Server] of settings.ini. New books"
                             " are made with: quillet server-init");
  }
  useSchema(address.database);
}

void Database::Impl::renew(Waiting waiting, const std::vector<SilentHost>& silent) {
  if (!remote_) {
    if (connection_.answers()) return;
    connection_ = makeConnection();
    return connectWithin();
  }
  if (isReady(connection_)) return;
  // Another host takes some seconds to become the one that works. Once that was waited for in vain,
  // nobody waits again with each step.
  const bool waits = waiting == Waiting::yes && !std::exchange(outOfReach_, true);
  const auto end =
      std::chrono::steady_clock::now() + std::chrono::seconds(remote_->address.connectSeconds);
  while (true) {
    try {
      connectTo(*remote_, silent);
      outOfReach_ = false;
      return share();
    } catch (const WrongPassword&) {
      throw;
    } catch (const std::runtime_error&) {
      if (!waits || std::chrono::steady_clock::now() > end) throw;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
  }
}

bool Database::Impl::answersSoon() {
  if (!remote_ || connection_.asked()) return !remote_ || answered(std::chrono::milliseconds(0));
  connection_.ask();
  askedAt_ = std::chrono::steady_clock::now();
  return answered(moment);
}

bool Database::Impl::answered(std::chrono::milliseconds longest) {
  const auto patience = std::chrono::seconds(remote_->address.answerSeconds);
  if (connection_.answered(longest)) return true;
  if (std::chrono::steady_clock::now() - askedAt_ < patience) return false;
  connection_.giveUp();
  return connection_.answered(longest);
}

void Database::Impl::giveUpIfSilent() noexcept {
  try {
    if (!answersSoon() && !answered(std::chrono::seconds(3))) connection_.giveUp();
  } catch (const std::exception&) {
    // It is lost.
  }
}

// Where every host answered the last time, be it with a refusal, connecting keeps nobody waiting,
// and asking first would be one aborted connection more.
bool Database::Impl::renewSoon() {
  std::vector<SilentHost> silent;
  if (remote_ && !allAnswer_) {
    const auto longest = anySilent_ ? std::chrono::milliseconds(0) : moment;
    const auto known = probe_.silent(remote_->address, longest);
    anySilent_ = !known || !known->empty();
    if (!known) return false;
    silent = *known;
  }
  allAnswer_ = false;
  const auto begun = std::chrono::steady_clock::now();
  try {
    renew(Waiting::no, silent);
  } catch (const std::exception&) {
    allAnswer_ = silent.empty() && std::chrono::steady_clock::now() - begun < moment;
    throw;
  }
  anySilent_ = false;
  return true;
}

std::unique_ptr<Database> Database::openEmbedded(const std::filesystem::path& folder,
                                                 const ExaminationPolicy& policy) {
  auto impl = std::make_unique<Impl>(std::make_unique<EmbeddedServer>(folder, policy));
  impl->connectWithin();
  if (!policy.mayBeNew && !impl->hasTables()) {
    throw std::runtime_error("The books of the practice are gone: the database in " +
                             folder.string() +
                             " has no tables. Restore the practice from a backup.");
  }
  return std::unique_ptr<Database>(new Database(std::move(impl)));
}

std::unique_ptr<Database> Database::connect(const Server& server) {
  auto impl = std::make_unique<Impl>(nullptr);
  impl->connectTo(server);
  // Its books are known to be there from now on.
  impl->remember(server);
  return std::unique_ptr<Database>(new Database(std::move(impl)));
}

void Database::share() { impl_->share(); }
void Database::renewConnection(Waiting waiting) { impl_->renew(waiting); }
bool Database::answersSoon() { return impl_->answersSoon(); }
bool Database::renewConnectionSoon() { return impl_->renewSoon(); }
void Database::giveUpIfSilent() noexcept { impl_->giveUpIfSilent(); }
bool Database::keepsHistory() const { return impl_->keepsHistory(); }

void Database::executeLater(const std::string& sql) {
  if (impl_->server() != nullptr) return execute(sql);
  impl_->connection().executeLater(sql);
}
void Database::forgetLater() { impl_->connection().forgetLater(); }
void Database::execute(const std::string& sql) { impl_->connection().execute(sql); }

RecordsetPtr Database::query(const std::string& sql) {
  return impl_->connection().query(comparingLists(sql));
}

RecordsetPtr Database::query(const std::string& sql, std::size_t& answer) {
  return impl_->connection().query(sql, answer);
}

std::string Database::escape(const std::string& text) const {
  return impl_->connection().escape(text);
}

std::filesystem::path Database::schemaFolder() const {
  const EmbeddedServer* server = impl_->server();
  return server == nullptr ? std::filesystem::path() : server->folder() / ownSchema;
}

void Database::bulkLoad(const std::function<void()>& work) {
  EmbeddedServer* server = impl_->server();
  if (server == nullptr || !server->isNew()) return work();
  server->beginBulkLoad();
  execute("set global innodb_flush_log_at_trx_commit=0, global sync_frm=0");
  work();
  execute("set global innodb_flush_log_at_trx_commit=1, global sync_frm=1");
  execute("flush engine logs");
  server->endBulkLoad();
}

}  // namespace quillet::suite
