#include "home/year_removal.h"

#include <utility>

#include "editor/frmcrtb.h"
#include "home/third.h"
#include "host/year_lock.h"

namespace quillet {

void closeEditorOf(Context& context, const std::string& client, const std::string& table) {
  if (!context.editorForm) return;
  frmcrtb& editor = theEditor(context);
  if (editor.shows(client, table)) editor.close();
}

bool YearRemoval::take(const std::string& client, const YearKeys& year) {
  if (refusedAsLocked(context_, client, year)) return false;
  deletion_.hold.take(context_.environment.yearLocks(), client, year.second, "");
  return true;
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
