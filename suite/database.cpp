#include "suite/database.h"

#include <mysql.h>

#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <vector>

#include "data/errors.h"
#include "data/text.h"
#include "suite/embedded_server.h"

namespace quillet::suite {
namespace {

constexpr const char* source = "MariaDB";
constexpr const char* ownSchema = "quillet";
constexpr const char* charset = "utf8mb4";
// Names are the same that differ in case or in blanks at the end; accents, the signs of Indian
// scripts and emoji tell them apart, as they do in the module. A server that does not know this
// collation gets the one that every server has, which ignores accents and takes all emoji for the
// same.
constexpr const char* collation = "utf8mb4_uca1400_as_ci";
constexpr const char* simpleCollation = "utf8mb4_general_ci";
constexpr long unknownCollation = 1273;
constexpr unsigned unknownDatabase = 1049;

// The rows stay where the client library put them.
class StoredRows : public Recordset {
 public:
  StoredRows(MYSQL_RES* result, unsigned long rows)
      : result_(result), count_(static_cast<long>(rows)) {
    if (result_ == nullptr) return;
    fields_ = mysql_fetch_fields(result_);
    fieldCount_ = static_cast<int>(mysql_num_fields(result_));
    fetch();
  }
  ~StoredRows() override { mysql_free_result(result_); }
  StoredRows(const StoredRows&) = delete;
  StoredRows& operator=(const StoredRows&) = delete;

  bool EOF_() const override { return row_ == nullptr; }
  void MoveNext() override {
    if (result_ != nullptr) fetch();
  }
  long RecordCount() const override { return count_; }
  int fieldCount() const override { return fieldCount_; }
  std::string_view fieldName(int column) const override {
    checkColumn(column);
    return {fields_[column].name, fields_[column].name_length};
  }
  std::optional<std::string_view> field(int column) const override {
    checkColumn(column);
    if (row_ == nullptr) {
      throw RunTimeError(3021, "There is no current record.", source);
    }
    if (row_[column] == nullptr) return std::nullopt;
    return std::string_view(row_[column], lengths_[column]);
  }
  bool numeric(int column) const override {
    checkColumn(column);
    return IS_NUM(fields_[column].type);
  }

 private:
  void fetch() {
    row_ = mysql_fetch_row(result_);
    lengths_ = row_ == nullptr ? nullptr : mysql_fetch_lengths(result_);
  }
  void checkColumn(int column) const {
    if (column < 0 || column >= fieldCount_) {
      throw RunTimeError(3265, "There is no column " + std::to_string(column) + ".", source);
    }
  }

  MYSQL_RES* result_;
  MYSQL_FIELD* fields_ = nullptr;
  MYSQL_ROW row_ = nullptr;
  unsigned long* lengths_ = nullptr;
  long count_;
  int fieldCount_ = 0;
};

// The server makes a table of a long list of values. That helps where rows are looked up by the
// list; where each row is compared with it, the list as it stands is faster.
std::string comparingLists(const std::string& sql) {
  constexpr std::string_view excluding = " Not In (";
  constexpr std::size_t longList = 4'000;
  if (sql.size() < longList || sql.find(excluding) == std::string::npos) return sql;
  return "set statement in_predicate_conversion_threshold=0 for " + sql;
}

bool isPlainName(const std::string& name) {
  return !name.empty() && name.find_first_not_of(
                              "abcdefghijklmnopqrstuvwxyz"
                              "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_") == std::string::npos;
}

}  // namespace

class Database::Impl {
 public:
  explicit Impl(std::unique_ptr<EmbeddedServer> server) : server_(std::move(server)) { prepare(); }
  ~Impl() { mysql_close(connection_); }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;

  MYSQL* connection() { return connection_; }
  EmbeddedServer* server() { return server_.get(); }

  void send(const std::string& sql) {
    if (!isUtf8(sql)) throw RunTimeError(1300, "The text is not valid UTF-8.", source);
    if (mysql_real_query(connection_, sql.data(), sql.size()) != 0) fail();
  }
  RecordsetPtr rows() {
    MYSQL_RES* result = mysql_store_result(connection_);
    if (result == nullptr && mysql_errno(connection_) != 0) fail();
    return std::make_unique<StoredRows>(result, result == nullptr ? 0 : mysql_num_rows(result));
  }
  void discardRows() { mysql_free_result(mysql_store_result(connection_)); }

  // Opens the schema, which is made when missing, with the collation that every table inherits. One
  // that is there keeps the collation it has.
  void useSchema(const std::string& schema) {
    if (mysql_select_db(connection_, schema.c_str()) != 0) {
      setCollation("create database if not exists " + schema);
      if (mysql_select_db(connection_, schema.c_str()) != 0) fail();
    }
    send("select @@character_set_database");
    if (rows()->text(0) != charset) setCollation("alter database " + schema);
  }

  // A lock of the server's, which goes with the connection. A server that has not noticed yet that
  // our last connection is lost is told so.
  void holdSchema(const std::string& schema) {
    auto holder = holderOf(schema, 0);
    if (holder && numbered(*holder) == own_) {
      mysql_query(connection_, ("kill " + *holder).c_str());
      holder = holderOf(schema, 2);
    }
    if (!holder) {
      own_ = numbered(std::to_string(mysql_thread_id(connection_)));
      return;
    }
    throw std::runtime_error(
        "Another station works with the database " + schema + " (" + numbered(*holder) +
        "). Close Quillet there first. If that station is gone without an end, or its connection"
        " was lost a moment ago, the server frees the database by: kill " +
        *holder);
  }
  bool keepsHistory() const { return keepsHistory_; }
  // Instants are the same on every station and through the year. A table with a history takes
  // further columns.
  void prepareHistory() {
    send("set session time_zone='+00:00'");
    send("show variables like 'system_versioning_alter_history'");
    keepsHistory_ = !rows()->EOF_();
    if (keepsHistory_) send("set session system_versioning_alter_history=keep");
  }
  bool hasTables() {
    send("select exists(select 1 from information_schema.tables where table_schema=database())");
    return rows()->integer(0) == 1;
  }

  void connectWithin();
  void connectTo(const Server& server);
  // The server that connections go to; without one they go to the one within this process.
  void remember(const Server& server) {
    remote_ = server;
    remote_->mayBeNew = false;
  }
  void renew();

 private:
  // Takes the lock, or tells the number of the connection that has it after so many seconds.
  std::optional<std::string> holderOf(const std::string& schema, int seconds) {
    const std::string lock = "lower('quillet." + schema + "')";
    send("select get_lock(" + lock + ',' + std::to_string(seconds) + "), is_used_lock(" + lock +
         ")");
    const RecordsetPtr held = rows();
    return held->integer(0) == 1 ? std::nullopt : std::optional(held->text(1));
  }
  // "user@host:port, connection 7"
  std::string numbered(const std::string& number) {
    send(
        "select concat_ws('@',user,nullif(host,'')) from information_schema.processlist where "
        "id='" +
        number + '\'');
    const RecordsetPtr station = rows();
    return (station->EOF_() ? "" : station->text(0) + ", ") + "connection " + number;
  }
  void prepare() {
    connection_ = mysql_init(nullptr);
    if (connection_ == nullptr) throw std::bad_alloc();
    mysql_options(connection_, MYSQL_SET_CHARSET_NAME, charset);
  }
  void setCollation(const std::string& sql) {
    const std::string with = sql + " character set " + charset + " collate ";
    try {
      send(with + collation);
    } catch (const RunTimeError& error) {
      if (error.number() != unknownCollation) throw;
      send(with + simpleCollation);
    }
  }
  [[noreturn]] void fail() {
    throw RunTimeError(static_cast<long>(mysql_errno(connection_)), mysql_error(connection_),
                       source);
  }

  std::unique_ptr<EmbeddedServer> server_;  // outlives the connection
  std::optional<Server> remote_;
  MYSQL* connection_ = nullptr;
  std::string own_;  // the last connection that held the schema
  bool keepsHistory_ = false;
};

Database::Database(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Database::~Database() = default;

// --- opening ------------------------------------------------------------------------------------

void Database::Impl::connectWithin() {
  if (mysql_real_connect(connection_, nullptr, nullptr, nullptr, nullptr, 0, nullptr, 0) ==
      nullptr) {
    throw std::runtime_error("The database in " + server_->folder().string() +
                             " does not answer: " + mysql_error(connection_));
  }
  useSchema(ownSchema);
  prepareHistory();
}

void Database::Impl::connectTo(const Server& server) {
  mysql_options(connection_, MYSQL_OPT_USE_REMOTE_CONNECTION, nullptr);
  // A new connection would be without our lock, and without the transaction that was open.
  const my_bool no = 0;
  mysql_options(connection_, MYSQL_OPT_RECONNECT, &no);
  const auto orNull = [](const std::string& text) { return text.empty() ? nullptr : text.c_str(); };
  if (mysql_real_connect(connection_, orNull(server.host), orNull(server.user),
                         orNull(server.password), nullptr, server.port, orNull(server.socket),
                         0) == nullptr) {
    throw std::runtime_error("The database server " + server.host +
                             " cannot be reached: " + mysql_error(connection_));
  }
  send("select @@lower_case_table_names");
  if (rows()->integer(0) == 0) {
    throw std::runtime_error("The database server " + server.host +
                             " tells upper from lower case in table names. Set "
                             "lower_case_table_names=1 in its configuration and restart it.");
  }
  send(
      "set session sql_mode='STRICT_ALL_TABLES,ERROR_FOR_DIVISION_BY_ZERO,NO_ENGINE_SUBSTITUTION',"
      " session wait_timeout=2147483,"
      // Stations that wait for each other see what the other one has committed.
      " session tx_isolation='READ-COMMITTED'");  // a practice stays open for days
  holdSchema(server.schema);
  const bool isThere = mysql_select_db(connection_, server.schema.c_str()) == 0;
  if (!isThere && mysql_errno(connection_) != unknownDatabase) {
    throw std::runtime_error("The database " + server.schema + " on the server " + server.host +
                             " cannot be opened: " + mysql_error(connection_));
  }
  if (!server.mayBeNew && (!isThere || !hasTables())) {
    throw std::runtime_error("The books of the practice are gone: the database " + server.schema +
                             " on the server " + server.host +
                             " has no tables. Restore it there, or correct the section [Server] of"
                             " settings.ini.");
  }
  useSchema(server.schema);
  prepareHistory();
}

void Database::Impl::renew() {
  if (mysql_ping(connection_) == 0) return;
  mysql_close(connection_);
  prepare();
  if (remote_) {
    connectTo(*remote_);
  } else {
    connectWithin();
  }
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
  // Prepares the client side alone: no server of our own starts.
  mysql_server_init(-1, nullptr, nullptr);
  if (!isPlainName(server.schema)) {
    throw std::runtime_error("\"" + server.schema +
                             "\" cannot name a database; use letters, digits and underscores.");
  }
  auto impl = std::make_unique<Impl>(nullptr);
  impl->connectTo(server);
  // Its books are known to be there from now on.
  impl->remember(server);
  return std::unique_ptr<Database>(new Database(std::move(impl)));
}

void Database::renewConnection() { impl_->renew(); }
bool Database::keepsHistory() const { return impl_->keepsHistory(); }

void Database::execute(const std::string& sql) {
  impl_->send(sql);
  impl_->discardRows();
}

RecordsetPtr Database::query(const std::string& sql) {
  // A server may be of a kind that does not know this.
  impl_->send(impl_->server() == nullptr ? sql : comparingLists(sql));
  return impl_->rows();
}

std::string Database::escape(const std::string& text) const {
  std::string escaped(text.size() * 2 + 1, '\0');
  escaped.resize(
      mysql_real_escape_string(impl_->connection(), escaped.data(), text.data(), text.size()));
  return escaped;
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
