// What an act changes in the database is one transaction: it begins before the act's first change
// and is committed when the act has ended. The module sends statement by statement and knows
// nothing of it.
//
// A statement that fails for a reason of its own (a table that is missing) leaves those before it
// in effect. A deadlock, a lost connection, a storage error and a failing commit take the whole act
// back: the rest of its changes is refused, and end() tells why. What is read then is what is
// stored.
//
// On a server that other stations use, an act takes the stations' turn with its transaction, and
// one that the server took back in favour of another station's is done again where it can be.
//
// What changes versioned tables is logged as one act with the transaction. Outside of acts each
// such statement, or each transaction that is sent as statements, is one by itself.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <set>
#include <string>

#include "data/errors.h"
#include "suite/database.h"
#include "suite/history/act_log.h"
#include "suite/stations/station_turns.h"

namespace quillet::suite {

class UnitOfWork {
 public:
  // Without a log nothing is logged: for what changes no versioned table.
  explicit UnitOfWork(Database& database, ActLog* log = nullptr);
  UnitOfWork(const UnitOfWork&) = delete;
  UnitOfWork& operator=(const UnitOfWork&) = delete;

  // Whether an act is running. Without this, and outside of acts, every statement counts by itself,
  // unless a transaction is sent.
  void follow(std::function<bool()> actRuns) { actRuns_ = std::move(actRuns); }
  // What the act changed so far stands for good; or it was taken back. Must not throw.
  std::function<void()> onKept;
  std::function<void()> onTakenBack;
  // Ahead of each commit of a logged act; what it throws takes the act back.
  std::function<void(const ActLog& act)> onCommitting;
  // Ahead of a statement that changes these tables themselves, as to drop them; what it throws
  // takes the act back.
  std::function<void(const std::set<std::string>& tables)> onDefining;
  // The database is shared with other stations, which wait for what the transaction has locked.
  bool shared() const { return shared_; }
  // From now on acts take turns with those of other stations; the tables are there. Null on a
  // database of our own.
  void takeTurns();
  StationTurns* turns() { return turns_ ? &*turns_ : nullptr; }
  // What the act does from here on writes: its turn begins before it reads anything.
  void beginWriting();
  // Former versions of rows can be read.
  bool keepsHistory() const { return log_ != nullptr && log_->keeps(); }

  // Throws RunTimeError as Database does. A flush is not sent: it would commit, and what it is for
  // does not exist here. The scratch tables are temporary ones, whose definition does not commit.
  void execute(const std::string& sql);
  RecordsetPtr query(const std::string& sql);
  std::string escape(const std::string& text) const { return database_.escape(text); }
  // The suite's own statements amid an act, of which they are no part: whether they still hold does
  // not matter to it. What is to be sent before goes with a query as one request.
  RecordsetPtr queryAside(const std::string& sql, const std::vector<std::string>& before = {});
  void executeAside(const std::string& sql);
  // One of these while a person thinks over a question. An error of it does not concern the act; it
  // is not sent while a transaction is open. Throws RunTimeError.
  void executeIdle(const std::string& sql);
  // How long the transaction that is open has had the turn; 0 when none is open.
  std::chrono::seconds turnTaken() const;
  // Runs such statements while this station has the turn: what another one was storing is stored by
  // then, and nothing else is stored meanwhile.
  void inTurn(const std::function<void()>& work);
  // The number of the transaction that is open, 0 when none is. What is read in one stays true in
  // it but for its own changes.
  unsigned long transaction() const { return open_ ? transactions_ : 0; }
  // How many acts were taken back so far.
  unsigned long takenBackSoFar() const { return takenBackSoFar_; }

  // A statement of the act failed: takes the act back if that follows from the error.
  void failed(long error, const std::string& reason) noexcept;

  // Nothing of what the running act does from here on is stored.
  void refuseRest(const std::string& reason) noexcept {
    if (actRuns_() && !takenBack_) takeBack(reason);
  }

  // Commits what there is so far, before a person is told that it is done. Throws when the act was
  // taken back by that.
  void keep();
  // After an act that was taken back: the connection may have been lost by that. Throws
  // std::runtime_error when it cannot be opened again.
  void renewConnection(Database::Waiting waiting = Database::Waiting::yes) {
    database_.renewConnection(waiting);
  }
  // Between acts, for whoever does nothing; as those of the database.
  bool answersSoon() { return database_.answersSoon(); }
  bool renewConnectionSoon() { return database_.renewConnectionSoon(); }
  struct TakenBack {
    std::string reason;
    // The connection was lost in the commit, which a server may have done; wasStored() tells.
    bool uncertain = false;
  };
  // The end of an act: commits what remains, and lets statements pass again. Nothing when the act
  // stands.
  std::optional<TakenBack> end() noexcept;
  // Whether the server has done a commit whose answer was lost; nothing when it cannot be told.
  std::optional<bool> wasStored() noexcept;
  // Throws when the act was taken back.
  void refuseAfterTakingBack() const;

 private:
  void begin();
  template <class Work>
  auto settled(Work work);
  bool nothingIsOpen() const;
  std::string reasonOf(const RunTimeError& error) noexcept;
  bool again() noexcept;
  bool reachesAgain() noexcept;
  bool changesMasters() const;
  void commit();
  void logAct();
  template <class Check>
  void askFor(Check check);
  void prepareDefinition(const std::string& sql);
  void executeAlone(const std::string& sql);
  void undo() noexcept;
  void send(const std::string& sql);
  void takeBack(const std::string& reason) noexcept;

  Database& database_;
  ActLog* log_;
  const bool shared_;
  std::optional<StationTurns> turns_;
  bool wrote_ = false;     // the transaction that is open, or the last one
  bool wroteLog_ = false;  // its row in the log
  bool wroteAside_ = false;
  std::function<bool()> actRuns_ = [] { return false; };
  bool committing_ = false;         // until the commit is known to be done
  bool uncertain_ = false;          // the connection went in the commit
  bool open_ = false;               // a transaction is open
  unsigned long transactions_ = 0;  // how many were begun
  std::chrono::steady_clock::time_point begun_;
  unsigned long takenBackSoFar_ = 0;
  std::optional<std::string> takenBack_;  // why, until the act is over
};

}  // namespace quillet::suite
