// The line of a form that says why its year takes no changes, and what the form asks before one.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "books/registry.h"
#include "controls/basic_controls.h"
#include "host/context.h"
#include "host/loss_note.h"
#include "host/year_hold.h"
#include "ports/year_locks.h"

namespace quillet {

class LockNote {
 public:
  LockNote(Label& label, Context& context) : label_(label), context_(context) {}

  // Whether something is typed in the form that is not stored.
  std::function<bool()> typed = [] { return false; };

  // Another year; nothing is known of its lock, and nothing held.
  void open(const ClientTable& books, const YearKeys& keys);
  // Asks whether the year is locked, and shows it; a lock that came while the form was open is
  // told, too. If there is none, this station has it until close().
  void read();
  void close() { hold_.leave(); }
  // As it was read last.
  bool locked() const { return lock_.has_value(); }
  // The year does not exist any more, or in other tables: nothing of them is this year's.
  bool gone() const { return lock_ && lock_->gone; }
  // It was lost before that: what was read of the year may not be stored any more.
  bool regained() const { return hold_.regained(); }
  // True, and a person was told, when the year is locked by now.
  bool refuses() const;

 private:
  Label& label_;
  Context& context_;
  ClientTable books_;
  YearKeys keys_;
  std::optional<YearLock> lock_;
  YearHold hold_;
  LossNote loss_;
};

}  // namespace quillet
