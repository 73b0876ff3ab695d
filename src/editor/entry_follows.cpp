// What other stations have done meanwhile to the line and the names that stand in the entry fields.
#include <algorithm>

#include "editor/entry_fields.h"
#include "editor/frmcrtb.h"

namespace quillet {

std::string EntryFields::lossOfAltered() const {
  if (!altered_) return {};
  const std::vector<Line>& lines = books_.years.lines(altered_->year);
  const auto found = std::find_if(lines.begin(), lines.end(),
                                  [&](const Line& line) { return isSame(line, altered_->line); });
  if (found == lines.end()) return "The line that was being altered is no longer there.";
  if (*found == altered_->line) return {};
  return "The line that was being altered was changed meanwhile. Not stored: " +
         form_.txtamount.text() + ' ' + form_.txtdrcr.text() + '.';
}

void EntryFields::followNames() {
  if (untouched()) return;
  say("");
  followGroup();
  followLedger();
}

void EntryFields::followLedger() {
  const std::string before = form_.txtpart.text();
  const long id = lookUp_.found(before);
  if (id == 0) return;
  const NameList::Entry* known = ledgers_.names().findId(id);
  const std::string now = known ? known->name : books_.host().GetPart_MastPartId(id);
  if (now == before) return;
  form_.txtpart.setText(now);
  lookUp_.know(now, id);
  // It would come back as a new one.
  if (now.empty()) {
    lookUp_.forget();
    return say("The ledger \"" + before +
               "\" was deleted or merged at another station meanwhile. Please choose one.");
  }
  say("The ledger \"" + before + "\" is called \"" + now + "\" now.");
}

// A line that is altered keeps its side in a group that is only called otherwise.
void EntryFields::followGroup() {
  if (!altered_ || !books_.groups.contains(altered_->line.allId)) return;
  const std::string now = books_.groups.name(altered_->line.allId);
  if (form_.txtgroup.text() == alteredGroup_) form_.txtgroup.setText(now);
  alteredGroup_ = now;
}

}  // namespace quillet
