// Takes acts back, one by one or a chosen one: each is a new act, which is logged and can be taken
// back itself.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ports/books_history.h"
#include "suite/history/act_inverse.h"
#include "suite/history/year_locks.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

// An act as the log has it, newest first.
struct LoggedAct {
  ActRow row;
  bool takenBack = false;  // by a later act that is in effect itself
};

// "Save, 22/11/2026 14:05:10, anita"
std::string wordsFor(const ActRow& act);

class TakingBack {
 public:
  TakingBack(UnitOfWork& unit, ActLog& log, YearLockTable& locks)
      : unit_(unit), log_(log), locks_(locks) {}

  // The last acts on that client's books, of all clients for "", as many as are asked for.
  std::vector<LoggedAct> acts(const std::string& client, long most) const;
  // The last act on that year's books that is in effect, takes none back and can be taken back.
  std::optional<ActRow> last(const std::string& client, const std::string& secondDate) const;

  // What would take it back, for a person to look at first.
  ActInverse inverseOf(const ActRow& act) const { return {unit_, act}; }
  // What stands in the way; nothing when it can be taken back.
  std::vector<std::string> conflicts(const ActInverse& inverse) const;
  // Within an act. Nothing is changed when something stands in the way, which is told.
  std::vector<std::string> takeBack(ActInverse inverse);

  // The last one on that year.
  BooksHistory::TakenBack takeBackLast(const std::string& client, const std::string& secondDate);

  // Told after an act was taken back: what it changed must be read anew, and the files that it
  // removed come back.
  std::function<void(const ActRow& act)> onTakenBack;

 private:
  std::optional<ActInverse> lastInverse(const std::string& client,
                                        const std::string& secondDate) const;
  std::vector<LoggedAct> read(const std::string& where, long most) const;

  UnitOfWork& unit_;
  ActLog& log_;
  YearLockTable& locks_;
};

}  // namespace quillet::suite
