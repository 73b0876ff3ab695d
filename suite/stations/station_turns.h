// How the acts of this station go with those of others on the same books. What an act reads and
// writes is recorded; when it takes its turn, and somebody else has stored something since its
// first read, everything that it has read is asked again and has to be the same.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "suite/database.h"
#include "suite/stations/act_tape.h"
#include "suite/stations/turn.h"

namespace quillet::suite {

// Of the module's own kind, the server never sends it: other stations changed what an act has read.
inline constexpr long changedMeanwhile = 20003;

class StationTurns {
 public:
  explicit StationTurns(Database& database);

  // Other stations have stored something; the names that are remembered may be wrong. Must not read
  // or throw.
  std::function<void()> onMoved;

  // --- while an act runs
  RecordsetPtr query(const std::string& sql);
  void wrote(const std::string& sql) { tape_.wrote(sql); }
  // The act has read or written something.
  bool running() const { return tape_.running(); }
  // Within a transaction that has just begun. Throws RunTimeError with changedMeanwhile.
  void take();
  // Takes it for what reads nothing of the books.
  void wait() { turn_.take(); }
  // The same after the server took the transaction back: sends everything again. False when the
  // act cannot be done again because of what others have stored.
  bool takeAgain(const std::function<void(const std::string& sql)>& write);
  // Ahead of the commit of a transaction that has changed something.
  void pass(bool masters);
  // The transaction is committed.
  void stored();
  // The act is over, or was taken back.
  void ended() { tape_.clear(); }

  // What other stations have stored, as it was seen since the last call.
  struct Movement {
    bool any = false;
    bool masters = false;
  };
  Movement movement() { return std::exchange(movement_, {}); }
  // Another node of the cluster on which other stations work, which are to be on one; once.
  std::string elsewhere() { return turn_.elsewhere(); }
  // Looks for that.
  void look();
  // As it was seen last.
  const TurnCount& known() const { return known_; }

 private:
  void note(const TurnCount& count);
  bool stillTrue();
  std::size_t answerTo(const std::string& sql);

  Database& database_;
  Turn turn_;
  ActTape tape_;
  TurnCount known_;  // of the last look
  Movement movement_;
  bool passing_ = false;  // the own act counts when it is committed
  TurnCount passed_;
};

}  // namespace quillet::suite
