#include "home/year_removal.h"

#include <utility>

#include "books/clients.h"
#include "books/locked_years.h"
#include "editor/frmcrtb.h"
#include "home/third.h"
#include "host/year_lock.h"

namespace quillet {

void closeEditorOf(Context& context, const std::string& client, const std::string& table) {
  if (!context.editorForm) return;
  frmcrtb& editor = theEditor(context);
  if (editor.shows(client, table)) editor.close();
}

// Another station that has the year, perhaps with nobody at it, would have it again as soon as it
// was taken over and closed here.
bool YearRemoval::take(const std::string& client, const YearKeys& year) {
  const auto lock = lockOf(context_, client, year.second);
  if (lock && !lock->station.empty() && lock->reason.empty()) {
    if (!wantsToTakeOver(client, year, *lock)) return false;
    context_.environment.yearLocks()->takeOver(client, year.second);
  } else if (refusedAsLocked(context_, client, year)) {
    return false;
  }
  deletion_.hold.take(context_.environment.yearLocks(), client, year.second, "");
  return true;
}

bool YearRemoval::wantsToTakeOver(const std::string& client, const YearKeys& year,
                                  const YearLock& lock) {
  const std::string name = clientName(*context_.host, client);
  return context_.MsgBox(takeOverText(subjectOf(name, client, year.first, year.second), lock),
                         Buttons::YesNo, Icon::question, Answer::No) == Answer::Yes;
}

void YearRemoval::open(const RegisteredYear& year, Removed removed) {
  form_.status("");
  // Lost while a person was asked.
  if (deletion_.hold.lost() && refusedAsLocked(context_, year.client, year.keys)) return leave();
  if (!deletion_.INITDATA(form_.mode(), year, form_.clientName())) {
    leave();
    form_.status("The trial balance of " + year.keys.text() + " could not be looked into.");
    return;
  }
  runs_ = true;
  deletion_.showModal([this, year, removed = std::move(removed)] {
    runs_ = false;
    const HoldUntilEnd holding{deletion_.hold};
    if (!deletion_.touched()) return;
    takeOutOfWork(year);
    removed(deletion_);
  });
}

void YearRemoval::takeOutOfWork(const RegisteredYear& year) {
  closeEditorOf(context_, year.client, year.table);
  const bool inWork = context_.clientCode == year.client && context_.table == year.table;
  if (inWork && (form_.mode() == "delete" || deletion_.registryRowDeleted())) {
    context_.forgetYear();
  }
}

}  // namespace quillet
