// The books that the editor is open on, which its parts share.
#pragma once

#include <array>
#include <functional>
#include <optional>

#include "books/account_groups.h"
#include "books/two_years.h"
#include "controls/basic_controls.h"
#include "host/context.h"
#include "host/loss_note.h"
#include "host/year_hold.h"
#include "ports/year_locks.h"

namespace quillet {

struct OpenBooks {
  explicit OpenBooks(Context& opened) : context(opened), years(*opened.host) {}

  // Whether something is typed for that year that is not stored.
  std::function<bool(TwoYears::Year year)> typed = [](TwoYears::Year) { return false; };

  ServiceObject& host() const { return *context.host; }
  // Nothing is known of the locks of the years that are opened.
  void forgetLocks();
  // Asks whether the years are locked, and says on the label which of those in view are. This
  // station has the others in view until leave().
  void readLocks(Label& shown) { showLocks(shown, true); }
  void leave();
  // The same without having them: what is shown was read before.
  void lookAtLocks(Label& shown) { showLocks(shown, false); }
  // A year that was locked, or open elsewhere, is free by now, or gone: its lines may not be those
  // that are shown.
  bool mustBeReadAnew() const { return freed_; }
  bool locked(TwoYears::Year year) const { return locks[year].has_value(); }
  // Of the years in view.
  bool anyLocked() const;
  // True, and a person was told, when the year is locked by now.
  bool refusesChange(TwoYears::Year year) const;

  Context& context;
  TwoYears years;
  AccountGroups groups;
  std::array<std::optional<YearLock>, 2> locks;  // by year, as they were read last

 private:
  void showLocks(Label& shown, bool entering);
  void tellLoss(TwoYears::Year year, const Form& form);

  std::array<YearHold, 2> holds_;
  std::array<LossNote, 2> losses_;
  bool freed_ = false;
};

}  // namespace quillet
