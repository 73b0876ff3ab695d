// How the books are opened.
#include <stdexcept>
#include <utility>

#include "data/errors.h"
#include "suite/database_impl.h"
#include "suite/server_login.h"

namespace quillet::suite {
namespace {

constexpr const char* booksCharset = "utf8mb4";
// Names are the same that differ in case or in blanks at the end; accents, the signs of Indian
// scripts and emoji tell them apart, as they do in the module.
constexpr const char* withCollation = " character set utf8mb4 collate utf8mb4_uca1400_as_ci";
constexpr long unknownDatabase = 1049;
constexpr long accessDenied = 1044;

}  // namespace

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
  connection_.tellWaiting(waiting_);
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

// Opens the schema, which is made when missing, with the collation that every table inherits. One
// that is there keeps the collation it has.
void Database::Impl::useSchema(const std::string& schema) {
  if (!isThere(schema)) {
    connection_.execute("create database if not exists " + schema + withCollation);
    connection_.execute("use " + schema);
  }
  if (connection_.query("select @@character_set_database")->text(0) != booksCharset) {
    connection_.execute("alter database " + schema + withCollation);
  }
}

bool Database::Impl::isThere(const std::string& schema) {
  try {
    connection_.execute("use " + schema);
    return true;
  } catch (const RunTimeError& error) {
    if (error.number() != unknownDatabase) throw;
    return false;
  }
}

// One station after the other opens the books, which may have to be completed. The lock goes with
// the connection, at the latest.
void Database::Impl::holdSchema(const std::string& schema) {
  lock_ = "lower('quillet." + schema + "')";
  if (connection_.query("select get_lock(" + lock_ + ",60)")->integer(0) == 1) return;
  throw std::runtime_error("Another station is opening, copying or updating the database " +
                           schema + " and has not ended. Please try again.");
}

void Database::Impl::share() {
  if (!lock_.empty()) connection_.execute("do release_lock(" + lock_ + ')');
  lock_.clear();
}

// Instants are the same on every station and through the year. A table with a history takes
// further columns.
void Database::Impl::prepareHistory() {
  connection_.execute("set session time_zone='+00:00'");
  keepsHistory_ =
      !connection_.query("show variables like 'system_versioning_alter_history'")->EOF_();
  if (keepsHistory_) connection_.execute("set session system_versioning_alter_history=keep");
}

bool Database::Impl::hasTables(const std::string& which) {
  return connection_
             .query(
                 "select exists(select 1 from information_schema.tables where "
                 "table_schema=database()" +
                 which + ')')
             ->integer(0) == 1;
}

}  // namespace quillet::suite
