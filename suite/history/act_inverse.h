// What takes an act back: the rows that it began go, the rows that it ended stand again. This is
// itself an act, which can be taken back in turn.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "suite/history/act_row.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

class ActInverse {
 public:
  // Reads what the act did; it changes nothing yet.
  ActInverse(UnitOfWork& unit, ActRow act);

  // The act left nothing that could be taken back.
  bool empty() const { return changes_.empty(); }
  // A year comes back in tables of another number.
  bool movesYear() const { return !numbers_.empty(); }
  // What it changed: "The line of Rent under EXPENSES (client C1), and 3 more rows."
  std::string words() const;
  // What later acts have done that stands in the way, one sentence each. Nothing is to be sent
  // then.
  std::vector<std::string> conflicts() const;
  // Other stations may have made years since the act was read.
  void chooseNumbers();
  // Sends the statements, within an act or a transaction.
  void send() const;
  const ActRow& act() const { return act_; }

 private:
  struct Change {
    std::string table;                 // in small letters
    std::string into;                  // where the rows that stand again are put
    std::vector<std::string> columns;  // those that `select *` shows
    long begun = 0;                    // rows that the act began
    long ended = 0;                    // rows that it ended
  };

  void read(const std::string& table);
  std::string begunRows(const Change& change) const;
  std::string endedRows(const Change& change) const;
  std::string standsUnchanged(const Change& change) const;
  bool keepsNewNames(const Change& change) const;
  void addChangedLater(const Change& change, std::vector<std::string>& found) const;
  void addMadeAgain(const Change& change, std::vector<std::string>& found) const;
  void addLostYears(const Change& change, std::vector<std::string>& found) const;
  void addLostNames(const Change& change, std::vector<std::string>& found) const;
  void addUsedNames(const Change& change, std::vector<std::string>& found) const;
  std::string restoredColumn(const Change& change, const std::string& column) const;
  void restore(const Change& change) const;

  UnitOfWork& unit_;
  ActRow act_;
  std::string at_;  // as a literal
  std::vector<Change> changes_;
  // The number of the tables that a year comes back under, where another year has its own by now.
  std::map<std::string, std::string> numbers_;
};

}  // namespace quillet::suite
