#include "home/year_lock_commands.h"

#include "books/locked_years.h"
#include "home/third.h"
#include "host/year_lock.h"

namespace quillet {

YearLockCommands::YearLockCommands(third& form, Context& context)
    : form_(form), context_(context), lock_(context) {
  third::on(form.mnulockyear.Click, "MNULOCKYEAR_CLICK", [this] { MNULOCKYEAR_CLICK(); });
  third::on(form.mnuunlockyear.Click, "MNUUNLOCKYEAR_CLICK", [this] { MNUUNLOCKYEAR_CLICK(); });
  const bool offered = context.environment.yearLocks() != nullptr;
  for (MenuEntry* entry : {&form.mnulockyear, &form.mnuunlockyear}) {
    entry->setVisible(offered);
  }
}

void YearLockCommands::MNULOCKYEAR_CLICK() { open(false); }

void YearLockCommands::MNUUNLOCKYEAR_CLICK() { open(true); }

void YearLockCommands::open(bool unlocks) {
  form_.status("");
  if (!form_.famyears.shown() || form_.mergeList.shown() || !form_.years.chosen()) {
    context_.MsgBox(
        "Choose the client and the year first: \"Alter/View Trial Balance\" lists them.",
        Buttons::OK, Icon::information);
    return;
  }
  const auto year = form_.years.findChosen();
  if (!year) return;
  const auto lock = lockOf(context_, year->client, year->keys.second);
  if (lock && !lock->station.empty()) {
    refusedAsLocked(context_, year->client, year->keys);
    return;
  }
  if (lock.has_value() != unlocks) {
    form_.years.showAt(year->keys);
    form_.status("The year " + year->keys.text() +
                 (lock ? " is locked already: " + lockText(*lock) : " is not locked") + ".");
    return;
  }
  lock_.INITDATA(year->client, form_.clientName(), year->keys);
  lock_.showModal([this, keys = year->keys] { showDone(keys); });
}

void YearLockCommands::showDone(const YearKeys& year) {
  if (!lock_.done()) return;
  form_.years.showAt(year);
  form_.statusFirst("The year " + year.text() +
                    (lock_.unlocks() ? " is unlocked." : " is locked."));
}

}  // namespace quillet
