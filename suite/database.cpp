#include "suite/database.h"

#include <stdexcept>
#include <utility>

#include "suite/database_impl.h"

namespace quillet::suite {
namespace {

// The server makes a table of a long list of values. That helps where rows are looked up by the
// list; where each row is compared with it, the list as it stands is faster.
std::string comparingLists(const std::string& sql) {
  constexpr std::string_view excluding = " Not In (";
  constexpr std::size_t longList = 4'000;
  if (sql.size() < longList || sql.find(excluding) == std::string::npos) return sql;
  return "set statement in_predicate_conversion_threshold=0 for " + sql;
}

}  // namespace

Database::Database(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Database::~Database() = default;

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
void Database::tellWaiting(std::function<void(bool)> waiting) {
  if (impl_->server() == nullptr) impl_->tellWaiting(std::move(waiting));
}
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
