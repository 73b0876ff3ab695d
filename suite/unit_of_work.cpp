#include "suite/unit_of_work.h"

#include <algorithm>
#include <utility>

#include "data/errors.h"
#include "data/text.h"
#include "suite/act_errors.h"
#include "suite/client_connection.h"
#include "suite/history/written_table.h"
#include "suite/stations/sole_use.h"
#include "suite/within_act.h"

namespace quillet::suite {
namespace {

bool isFlush(const std::string& sql) { return equalIgnoringCase(sql, flushTables); }

}  // namespace

UnitOfWork::UnitOfWork(Database& database, ActLog* log)
    : database_(database), log_(log), shared_(database.schemaFolder().empty()) {}

// Runs work, once more after the server took the act back in favour of another station's. Any other
// error of the database may take the act back.
template <class Work>
auto UnitOfWork::settled(Work work) {
  constexpr int most = 5;
  for (int tries = 1;; ++tries) {
    try {
      return work();
    } catch (const RunTimeError& error) {
      if (error.number() == deadlock && tries < most && (nothingIsOpen() || again())) continue;
      if (losesConnection(error.number()) && tries == 1 && reachesAgain()) continue;
      // What came after the statement is not sent: nothing of the act can stand.
      const bool later = dynamic_cast<const LaterFailed*>(&error) != nullptr;
      failed(later && !takesBack(error.number()) ? laterFailed : error.number(), reasonOf(error));
      throw;
    }
  }
}

// What the server says of another station, for a person.
std::string UnitOfWork::reasonOf(const RunTimeError& error) noexcept {
  if (error.number() == deadlock) {
    return "The books were changed by somebody else at the same moment.";
  }
  if (error.number() != waitedTooLong) return error.what();
  std::string who;
  try {
    if (turns_) who = whoHasSoleUse(database_);
  } catch (const std::exception&) {
    // It is not known.
  }
  return "Another station kept the books busy for too long." + (who.empty() ? "" : ' ' + who);
}

void UnitOfWork::execute(const std::string& sql) {
  refuseAfterTakingBack();
  if (isFlush(sql)) return;
  if (log_ != nullptr) prepareDefinition(actRuns_() ? withinAct(sql) : sql);
  if (!actRuns_()) return executeAlone(sql);
  if (turns_ && !open_ && changesScratch(sql)) {
    return settled([&] { database_.execute(withinAct(sql)); });
  }
  begin();
  const std::string within = withinAct(sql);
  settled([&] { send(within); });
  wrote_ = true;
  if (turns_) turns_->wrote(within);
}

// The server commits what went before a definition, so that is logged and held to the locks first.
void UnitOfWork::prepareDefinition(const std::string& sql) {
  const Written written = writtenBy(sql);
  if (written.defines && !written.tables.empty() && onDefining) {
    askFor([&] { onDefining(written.tables); });
  }
  if (written.commits) commit();
}

void UnitOfWork::takeTurns() {
  if (shared_) turns_.emplace(database_);
}

void UnitOfWork::beginWriting() {
  refuseAfterTakingBack();
  if (turns_ && actRuns_()) begin();
}

void UnitOfWork::executeAlone(const std::string& sql) {
  if (log_ == nullptr) return database_.execute(sql);
  if (equalIgnoringCase(sql, "start transaction")) return begin();
  if (equalIgnoringCase(sql, "commit")) return commit();
  if (equalIgnoringCase(sql, "rollback")) return undo();
  wrote_ = true;
  if (open_) return send(sql);
  if (writtenBy(sql).tables.empty()) return database_.execute(sql);
  try {
    begin();
    wrote_ = true;
    send(sql);
    commit();
  } catch (...) {
    undo();
    throw;
  }
}

RecordsetPtr UnitOfWork::query(const std::string& sql) {
  return settled([&] {
    return turns_ && actRuns_() && !takenBack_ ? turns_->query(sql) : database_.query(sql);
  });
}

RecordsetPtr UnitOfWork::queryAside(const std::string& sql,
                                    const std::vector<std::string>& before) {
  wroteAside_ = wroteAside_ || !before.empty();
  return settled([&] {
    for (const std::string& each : before) database_.executeLater(each);
    return database_.query(sql);
  });
}

void UnitOfWork::executeAside(const std::string& sql) {
  wroteAside_ = true;
  settled([&] { database_.execute(sql); });
}

void UnitOfWork::executeIdle(const std::string& sql) {
  if (shared_ && !open_ && database_.answersSoon()) database_.execute(sql);
}

std::chrono::seconds UnitOfWork::turnTaken() const {
  if (!open_) return {};
  return std::chrono::ceil<std::chrono::seconds>(std::chrono::steady_clock::now() - begun_);
}

// Where a transaction is open the turn is taken already.
void UnitOfWork::inTurn(const std::function<void()>& work) {
  if (open_ || !turns_) return work();
  settled([&] {
    database_.executeLater("start transaction");
    try {
      turns_->wait();
      work();
      database_.execute("commit");
    } catch (...) {
      database_.execute("rollback");
      throw;
    }
  });
}

void UnitOfWork::begin() {
  if (open_) return;
  settled([&] { database_.executeLater("start transaction"); });
  open_ = true;
  wrote_ = wroteLog_ = wroteAside_ = false;
  ++transactions_;
  if (turns_) settled([&] { turns_->take(); });
  begun_ = std::chrono::steady_clock::now();
}

void UnitOfWork::send(const std::string& sql) {
  if (log_ != nullptr) log_->sending(sql);
  database_.executeLater(sql);
}

// A statement by itself gave way.
bool UnitOfWork::nothingIsOpen() const { return turns_ && !open_ && !takenBack_; }

// The connection went while nobody was at work: an act that has neither read nor written yet begins
// on a new one.
bool UnitOfWork::reachesAgain() noexcept {
  if (!turns_ || !actRuns_() || takenBack_ || committing_ || turns_->running()) return false;
  try {
    database_.forgetLater();
    database_.renewConnection(Database::Waiting::no);
    if (open_) database_.executeLater("start transaction");
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

// Does again what the act has done so far. False when what it has read is not so any more.
bool UnitOfWork::again() noexcept {
  if (!turns_ || !open_ || !actRuns_() || takenBack_) return false;
  try {
    database_.forgetLater();
    database_.execute("rollback");
    if (log_ != nullptr) log_->again();
    database_.executeLater("start transaction");
    return turns_->takeAgain([&](const std::string& sql) { send(sql); });
  } catch (const std::exception&) {
    return false;
  }
}

// Some errors have ended the transaction already; what was sent before the statement is gone then.
void UnitOfWork::failed(long error, const std::string& reason) noexcept {
  if (!actRuns_()) return;
  if (committing_ && shared_ && losesConnection(error)) uncertain_ = true;
  if (takesBack(error)) return takeBack(reason);
  if (!open_) return;
  try {
    if (database_.query("select @@in_transaction")->integer(0) == 0) takeBack(reason);
  } catch (const std::exception&) {
    takeBack(reason);
  }
}

void UnitOfWork::takeBack(const std::string& reason) noexcept {
  takenBack_ = reason;
  undo();
}

void UnitOfWork::undo() noexcept {
  ++takenBackSoFar_;
  open_ = false;
  if (turns_) turns_->ended();
  database_.forgetLater();
  try {
    database_.execute("rollback");
  } catch (const std::exception&) {
    // The connection is gone, and the server takes back by itself what was not committed.
  }
  if (log_ != nullptr) log_->ended(false);
  if (onTakenBack) onTakenBack();
}

void UnitOfWork::refuseAfterTakingBack() const {
  if (!takenBack_) return;
  throw RunTimeError(refusedAfterTakingBack,
                     "Not sent, because what went before was taken back: " + *takenBack_,
                     "Unit of work");
}

void UnitOfWork::logAct() {
  if (log_ == nullptr || !log_->changed()) return;
  if (onCommitting) askFor([this] { onCommitting(*log_); });
  log_->write();
  wroteLog_ = true;
}

bool UnitOfWork::changesMasters() const {
  return log_ != nullptr && std::ranges::any_of(log_->tables(), [](const std::string& table) {
           return yearSuffix(table).empty();
         });
}

// The rest of an act that is refused is not sent any more.
template <class Check>
void UnitOfWork::askFor(Check check) {
  try {
    check();
  } catch (const std::exception& error) {
    const auto* const ofServer = dynamic_cast<const RunTimeError*>(&error);
    const bool gaveWay = ofServer != nullptr && ofServer->number() == deadlock;
    if (actRuns_() && !gaveWay) takeBack(error.what());
    throw;
  }
}

void UnitOfWork::commit() {
  if (!open_) return;
  settled([&] {
    committing_ = false;
    // An act that took its turn and changed nothing of its own.
    if (turns_ && !wrote_) return database_.execute(wroteAside_ ? "commit" : "rollback");
    logAct();
    if (turns_) turns_->pass(changesMasters());
    committing_ = true;
    database_.execute("commit");
  });
  committing_ = false;
  open_ = false;
  if (turns_) turns_->stored();
  if (log_ != nullptr) log_->ended(true);
  if (onKept && (wrote_ || !turns_)) onKept();
}

void UnitOfWork::keep() {
  refuseAfterTakingBack();
  commit();
}

// The lost connection may still be at it; its turn ends with it.
std::optional<bool> UnitOfWork::wasStored() noexcept {
  if (!turns_ || !wroteLog_) return std::nullopt;
  try {
    database_.execute("start transaction");
    turns_->take();
    const bool stored = log_->wasWritten();
    database_.execute("rollback");
    return stored;
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

std::optional<UnitOfWork::TakenBack> UnitOfWork::end() noexcept {
  try {
    commit();
  } catch (const std::exception& error) {
    // A commit that failed, for whatever reason, has taken the act back.
    if (!takenBack_) takeBack(error.what());
  }
  committing_ = false;
  if (turns_) turns_->ended();
  const bool uncertain = std::exchange(uncertain_, false);
  const auto reason = std::exchange(takenBack_, std::nullopt);
  if (!reason) return std::nullopt;
  return TakenBack{*reason, uncertain};
}

}  // namespace quillet::suite
