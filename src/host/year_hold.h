// A form's hold on the year that it is open on, where several stations work on the same books: this
// station writes in it as long as the form is open, and the others read.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "books/registry.h"
#include "host/context.h"
#include "ports/year_locks.h"

namespace quillet {

class YearHold {
 public:
  YearHold() = default;
  ~YearHold() { leave(); }
  YearHold(const YearHold&) = delete;
  YearHold& operator=(const YearHold&) = delete;

  // Why nothing of the year can be changed: it is locked, or another station has it. Else this one
  // has it from now on, and what is stored is to be read after this. Once for each opening a person
  // is asked whether to take it over, unless another form reads it already; `subject` names client
  // and year for that. `table` is the trial balance's that the form works on.
  std::optional<YearLock> enter(YearLocks* locks, Dialogs& dialogs,
                                const std::function<std::string()>& subject,
                                const std::string& client, const std::string& secondDate,
                                const std::string& table);
  // This station is making the year: whoever opens it elsewhere is told so, until leave().
  void take(YearLocks* locks, const std::string& client, const std::string& secondDate,
            const std::string& table);
  // Another station has the year that was taken by now, or had it, or has deleted it.
  bool lost() const;
  void leave();
  // The year was lost before it was entered last: what was read of it may not be stored any more.
  bool regained() const { return regained_; }
  // It was since then, and another form has it again.
  bool stale() const;

 private:
  void open(YearLocks* locks, const std::string& client, const std::string& secondDate);
  void setReading(bool reading);

  YearLocks* locks_ = nullptr;  // null while no year is known
  std::string client_, secondDate_;
  bool held_ = false;
  bool asked_ = false;
  bool reading_ = false;
  bool regained_ = false;
  unsigned regains_ = 0;  // of the year when it was entered last
};

}  // namespace quillet
