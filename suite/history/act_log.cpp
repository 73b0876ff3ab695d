#include "suite/history/act_log.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "data/text.h"
#include "suite/history/act_row.h"
#include "suite/history/written_table.h"

namespace quillet::suite {
namespace {

// A clock that is so far off is wrong; less may be its daily correction.
constexpr Instant noticed = 60LL * 1'000'000;

std::string accountName() {
  const passwd* account = getpwuid(getuid());
  return account == nullptr ? std::to_string(getuid()) : account->pw_name;
}

// Half a microsecond more, since the server cuts what its number does not hold exactly.
std::string timestampNumber(Instant instant) {
  std::string fraction = std::to_string(instant % 1'000'000);
  fraction.insert(0, 6 - fraction.size(), '0');
  return std::to_string(instant / 1'000'000) + '.' + fraction + '5';
}

}  // namespace

std::string stationName() {
  std::array<char, 256> name{};
  if (gethostname(name.data(), name.size() - 1) != 0) return {};
  return name.data();
}

ActLog::ActLog(Database& database)
    : database_(database),
      keeps_(database.keepsHistory()),
      shared_(database.schemaFolder().empty()) {}

void ActLog::open() {
  if (!keeps_) return;
  readLast();
  if (last_ == 0) alone("The history begins", [] {});
}

void ActLog::sending(const std::string& sql) {
  if (!keeps_) return;
  Written written = writtenBy(sql);
  // A file that goes with the act is noted under its instant.
  if (instant_ == 0 && sql.starts_with("insert into SuiteRemoval")) begin();
  if (written.tables.empty()) return;
  if (instant_ == 0) begin();
  for (const std::string& table : written.tables) {
    if (!yearSuffix(table).empty()) othersToo_ = othersToo_ || changesOthers(sql, table);
  }
  tables_.merge(written.tables);
  endsRows_ = endsRows_ || written.endsRows;
  movesRows_ = movesRows_ || written.movesRows;
  digest_.add(sql);
}

// What is changed for the client in work names it, or a voucher, whose number no other client has.
bool ActLog::changesOthers(const std::string& sql, const std::string& table) const {
  const bool named =
      !client_.empty() && sql.find('\'' + database_.escape(client_) + '\'') != std::string::npos;
  const bool voucher = table.starts_with("jrnl_") && sql.find(" where VId=") != std::string::npos;
  return !named && !voucher;
}

void ActLog::begin() {
  readLast();
  hash_.clear();
  compareClocks();
  instant_ = std::max(shared_ ? serverClock_ : now(), last_ + 1);
  tables_.clear();
  endsRows_ = movesRows_ = false;
  digest_ = Digest();
  client_ = cause ? cause().client : std::string();
  database_.executeLater("set timestamp=" + timestampNumber(instant_));
}

// On a server whoever's clock is wrong is told, and nobody else: acts have the server's.
void ActLog::compareClocks() {
  const Instant clock = now();
  const bool wrong = shared_ ? std::abs(clock - serverClock_) > noticed : clock + noticed < last_;
  if (!wrong || !onWrongClock || std::exchange(toldOfClock_, true)) return;
  onWrongClock("The clock of this computer stands at " + localTime(clock) +
               (shared_ ? ", that of the database server at " + localTime(serverClock_) +
                              ". Changes are logged with the server's time. Please set the clock"
                              " that is wrong."
                        : ", before the last change of the books at " + localTime(last_) +
                              ". Changes are logged in their right order, but with that time."
                              " Please set the clock."));
}

void ActLog::lookAtClocks() {
  if (!keeps_ || !shared_) return;
  readLast();
  compareClocks();
}

// Other stations of a server may have gone on. Its clock comes with the same request, whatever the
// session's timestamp is set to.
void ActLog::readLast() {
  if (last_ >= 0 && !shared_) return;
  const RecordsetPtr row = database_.query(
      "select a.At,a.Hash,sysdate(6) from (select 1) as one left join (select At,Hash from "
      "SuiteAct "
      "order by At desc limit 1) as a on true");
  last_ = row->field(0) ? instantFrom(row->text(0)) : 0;
  lastHash_ = row->field(1) ? row->text(1) : std::string();
  serverClock_ = instantFrom(row->text(2));
}

// What changes the books of several clients is nobody's in particular, what changes several years
// no year's.
ActCause ActLog::describe() const {
  ActCause told = cause ? cause() : ActCause{};
  std::set<std::string> years;
  for (const std::string& table : tables_) {
    if (const std::string suffix = yearSuffix(table); !suffix.empty()) years.insert(suffix);
  }
  if (othersToo_ || (years.empty() && !tables_.contains("master"))) told.client.clear();
  if (years.size() != 1 || othersToo_) {
    told.secondDate.clear();
  } else if (!equalIgnoringCase(told.table, "TAB_" + *years.begin())) {
    told.secondDate = yearOf(told.client, *years.begin());
  }
  return told;
}

// The year may be gone by now.
std::string ActLog::yearOf(const std::string& client, const std::string& suffix) const {
  const RecordsetPtr row = database_.query(
      "select s_yr from master for system_time all where code_no='" + database_.escape(client) +
      "' and tbl_nm='TAB_" + suffix + "' order by row_till desc limit 1");
  return row->EOF_() ? std::string() : row->text(0);
}

std::string ActLog::person() const {
  if (!shared_) return accountName();
  if (person_.empty()) person_ = database_.query("select current_user()")->text(0);
  return person_;
}

void ActLog::write() {
  if (instant_ != 0) insert(describe());
}

void ActLog::insert(const ActCause& told) {
  ActRow row;
  row.at = instant_;
  row.station = stationName();
  row.person = person();
  row.form = told.form;
  row.command = note_.command.empty() ? told.command : note_.command;
  row.client = told.client;
  row.secondDate = told.secondDate;
  row.reason = note_.reason;
  for (const std::string& table : tables_) row.tables += (row.tables.empty() ? "" : ",") + table;
  if (note_.takesBack != 0 || !note_.client.empty()) {
    row.takesBack = note_.takesBack;
    row.client = note_.client;
    row.secondDate = note_.secondDate;
  }
  row.digest = digest_.hex();
  hash_ = row.hashAfter(lastHash_);
  database_.executeLater(row.insertion(database_, hash_));
}

bool ActLog::wasWritten() const {
  return !database_.query("select 1 from SuiteAct where Hash='" + hash_ + '\'')->EOF_();
}

void ActLog::again() {
  instant_ = 0;
  othersToo_ = false;
  tables_.clear();
}

void ActLog::ended(bool kept) noexcept {
  note_ = {};
  if (instant_ == 0) return;
  if (kept) {
    last_ = instant_;
    lastHash_ = hash_;
  }
  instant_ = 0;
  othersToo_ = false;
  try {
    database_.executeLater("set timestamp=default");
  } catch (const std::exception&) {
    // The connection is gone, and its time with it.
  }
}

void ActLog::alone(const std::string& command, const std::function<void()>& work) {
  if (!keeps_) return work();
  begin();
  try {
    work();
    ActCause told;
    told.command = command;
    insert(told);
  } catch (...) {
    // What was done so far stands, and later changes lie after it.
    ended(true);
    throw;
  }
  ended(true);
}

}  // namespace quillet::suite
