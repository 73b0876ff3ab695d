// Tells a person once that the year of an open form can be written in no more, since another
// station took it, locked it or deleted it, and what becomes of what stands in the fields.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "controls/form.h"
#include "ports/year_locks.h"

namespace quillet {

class LossNote {
 public:
  using Tell = std::function<void(const std::string& text)>;

  // Another year is opened; whoever opens one that is locked reads why.
  void forget() { had_ = false; }
  // The lock of the form's year, as it was just read. Told is whoever works in the form, and
  // whoever has typed something there that is not stored. `subject` names client and year.
  void see(const std::optional<YearLock>& lock, YearLocks* locks, const Form& form, bool typed,
           const std::function<std::string()>& subject, const Tell& tell);

 private:
  bool had_ = false;
};

}  // namespace quillet
