#include "editor/open_books.h"

#include <algorithm>
#include <utility>

#include "books/clients.h"
#include "books/locked_years.h"
#include "host/year_lock.h"

namespace quillet {

using enum TwoYears::Year;

namespace {

bool isFree(const YearLock& lock) { return lock.lost && !lock.gone && !lock.reason.empty(); }

}  // namespace

void OpenBooks::showLocks(Label& shown, bool entering) {
  const auto before = std::exchange(locks, {});
  if (entering) freed_ = false;
  std::string text;
  for (const TwoYears::Year year : {current, previous}) {
    if (!years.has(year)) continue;
    if (!years.inView(year)) {
      holds_[year].leave();
      losses_[year].forget();
    }
    locks[year] = entering && years.inView(year)
                      ? enterYear(holds_[year], context, years.books(year), years.keys(year))
                      : lockOf(context, years.client(), years.keys(year).second);
    const bool gone = locked(year) && locks[year]->gone;
    // Lost, and nobody has it any more: it is had again when it is read.
    const bool free = !entering && years.inView(year) && locked(year) && isFree(*locks[year]);
    freed_ = freed_ || free ||
             (!entering && ((before[year] && !locked(year)) || holds_[year].stale() ||
                            gone != years.isGone(year)));
    years.setGone(year, gone);
    // A year that is looked at and free is not ours for that.
    if (years.inView(year) && !free && (entering || locked(year))) tellLoss(year, shown.form());
    if (!locked(year) || !years.inView(year)) continue;
    text += (text.empty() ? "" : ". ") +
            std::string(year == previous ? "The previous year: " : "") + lockCaption(*locks[year]);
  }
  shown.setCaption(text);
  shown.setVisible(!text.empty());
}

bool OpenBooks::anyLocked() const {
  return std::ranges::any_of(std::array{current, previous}, [this](TwoYears::Year year) {
    return years.inView(year) && locked(year);
  });
}

void OpenBooks::tellLoss(TwoYears::Year year, const Form& form) {
  losses_[year].see(
      locks[year], context.environment.yearLocks(), form, typed(year),
      [&] {
        const YearKeys keys = years.keys(year);
        return subjectOf(years.clientName(), years.client(), keys.first, keys.second);
      },
      [this](const std::string& text) { context.environment.notice(text); });
}

void OpenBooks::forgetLocks() {
  locks = {};
  for (LossNote& loss : losses_) loss.forget();
}

void OpenBooks::leave() {
  for (YearHold& hold : holds_) hold.leave();
}

bool OpenBooks::refusesChange(TwoYears::Year year) const {
  return years.hasTable() && refusedAsLocked(context, years.client(), years.keys(year));
}

}  // namespace quillet
