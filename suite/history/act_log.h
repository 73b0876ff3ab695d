// The log of acts. Each act that changes versioned tables happens at one instant of its own and
// leaves one row in SuiteAct: when, at which station, who, by which command, on whose books, and a
// hash over that and the row before. The rows that the act began or ended carry its instant, so
// that the log says of every version who made it.
//
// On a server they all have its clock. Instants rise whatever the clock does: a row that began
// later than it ends would leave no history.
#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "suite/database.h"
#include "suite/history/digest.h"
#include "suite/history/instant.h"

namespace quillet::suite {

// What this computer is called.
std::string stationName();

// What an act is told by.
struct ActCause {
  std::string form;        // "Trial Balance Generation"
  std::string command;     // "Save", "Enter in Credit Amount"
  std::string client;      // its code, "" for what all clients share
  std::string table;       // of the year that is being worked on: "TAB_2"
  std::string secondDate;  // and its end: "31032009"
};

// What whoever changes the books adds to that.
struct ActRemark {
  std::string command{};  // where no command of a form is running
  std::string reason{};
  Instant takesBack = 0;  // the act that it takes back
  // Whose books, where what is changed does not say so.
  std::string client{};
  std::string secondDate{};
};

class ActLog {
 public:
  explicit ActLog(Database& database);

  // Once the tables are there: the first act of all says since when there is a history.
  void open();

  // False on a server that keeps no history: nothing is logged then.
  bool keeps() const { return keeps_; }

  // Asked for each act. What the act changed decides which year it is.
  std::function<ActCause()> cause;
  // Told once when the clock of the computer stands well before the last act, or on a server when
  // it differs from the server's.
  std::function<void(const std::string& text)> onWrongClock;
  // Looks for that ahead of the first act.
  void lookAtClocks();

  // To be called ahead of each statement of a transaction; the first one that changes a versioned
  // table fixes the instant.
  void sending(const std::string& sql);
  // Whether the transaction that is open has changed versioned tables.
  bool changed() const { return instant_ != 0; }
  Instant instant() const { return instant_; }
  // In small letters.
  const std::set<std::string>& tables() const { return tables_; }
  // Whether rows may have ended.
  bool endsRows() const { return endsRows_; }
  // Whether rows may have come under another client or year, or again under an id.
  bool movesRows() const { return movesRows_ || note_.takesBack != 0; }
  // What the transaction that is open, or the next one, is told by besides its cause.
  void note(ActRemark remark) { note_ = std::move(remark); }
  // Writes the row, ahead of the commit.
  void write();
  // Whether the row that was written last is there.
  bool wasWritten() const;
  // The transaction was taken back by the server, and is done again under a later instant.
  void again();
  // The transaction was committed, or taken back.
  void ended(bool kept) noexcept;

  // Who works at this station: on a server its account there.
  std::string person() const;

  // Runs work that changes many rows outside of acts, as one that counts by itself. What happened
  // is logged under that command, but cannot be taken back as one act.
  void alone(const std::string& command, const std::function<void()>& work);

  // The time of this computer comes from here.
  std::function<Instant()> now = instantNow;

 private:
  void begin();
  void compareClocks();
  void readLast();
  bool changesOthers(const std::string& sql, const std::string& table) const;
  ActCause describe() const;
  void insert(const ActCause& told);
  std::string yearOf(const std::string& client, const std::string& suffix) const;

  Database& database_;
  const bool keeps_;
  const bool shared_;
  Instant last_ = -1;           // of the last act, -1 when not read yet
  std::string lastHash_;        // and its hash
  Instant serverClock_ = 0;     // as it stood when they were read
  mutable std::string person_;  // once it was asked of a server
  bool toldOfClock_ = false;
  Instant instant_ = 0;  // of the transaction that is open
  std::string hash_;
  ActRemark note_;
  std::string client_;      // in work when it began
  bool othersToo_ = false;  // it changed books of other clients than the one in work
  std::set<std::string> tables_;
  bool endsRows_ = false;
  bool movesRows_ = false;
  Digest digest_;
};

}  // namespace quillet::suite
