#include "journal/line_lookups.h"

#include <utility>

#include "books/journal_lists.h"
#include "data/names.h"
#include "data/text.h"
#include "host/meant_name.h"
#include "journal/frmjrnl.h"
#include "journal/messages.h"

namespace quillet {

LineLookups::LineLookups(frmjrnl& form, VoucherLines& lines)
    : form_(form), lines_(lines), ledgers_(form.VSF3), groups_(form.VSF4) {
  ledgers_.serve(form.txtledger[0]);
  groups_.serve(form.txtgroup[0]);
  form.VSF3.DblClick = [this] { VSF3_DBLCLICK(); };
  form.VSF4.DblClick = [this] { VSF4_DBLCLICK(); };
}

void LineLookups::fill(NameList ledgers, NameList groups) {
  ledgers_.fill(std::move(ledgers));
  groups_.fill(std::move(groups));
}

void LineLookups::hide() {
  ledgers_.hide();
  groups_.hide();
}

std::string LineLookups::groupName(long allId) const {
  const NameList::Entry* group = groups_.names().findId(allId);
  return group ? group->name : std::string();
}

void LineLookups::hint(const std::string& text) { form_.lblhint.setCaption(text); }

// --- the drop-down lists ------------------------------------------------------------------------

void LineLookups::attach(int line) {
  TextBox& ledger = form_.txtledger[line];
  attachBox(ledger, ledgers_);
  ledger.Overflow = [this] { hint("A ledger name holds at most 100 characters."); };
  ledger.Change = [this, line] { TXTLEDGER_CHANGE(line); };
  ledger.LostFocus = [this, line] { TXTLEDGER_LOSTFOCUS(line); };
  TextBox& group = form_.txtgroup[line];
  attachBox(group, groups_);
  group.Overflow = [this] { hint("A group name holds at most 100 characters."); };
  group.Change = [this, line] { TXTGROUP_CHANGE(line); };
  group.LostFocus = [this, line] { TXTGROUP_LOSTFOCUS(line); };
}

void LineLookups::attachBox(TextBox& box, LookupList& list) {
  box.GotFocus = [this, &box, &list] { open(box, list); };
  box.KeyDown = [this, &list](Key& key) { move(list, key); };
}

void LineLookups::open(TextBox& box, LookupList& list) {
  lines_.arriveAt(box.index());
  list.serve(box);
  list.hide();
  box.selectAll();
}

void LineLookups::follow(TextBox& box, LookupList& list) {
  list.follow(box.text());
  const NameList::Entry* proposed = list.current();
  const bool told = &list == &ledgers_ && proposed && !sameName(proposed->name, box.text());
  hint(told ? "Enter takes \"" + proposed->name + "\", Tab keeps what is typed." : "");
}

void LineLookups::move(LookupList& list, Key& key) {
  const bool moves =
      key == keys::Up || key == keys::Down || key == keys::PageUp || key == keys::PageDown;
  if (!moves || list.box().locked()) return;
  if (!list.visible()) hint("");
  if (!list.moveBy(key)) return;
  takeCurrent(list);
  list.box().selectAll();
}

// Takes the list's current row into its box, if it shows one, and closes the list.
void LineLookups::takeHighlighted(LookupList& list) {
  if (!list.visible() || !list.current()) return;
  takeCurrent(list);
  list.hide();
}

void LineLookups::takeCurrent(LookupList& list) {
  const NameList::Entry& entry = *list.current();
  // It may have named another one.
  hint("");
  {
    const ScopedFlag ignoring = lines_.ignoreChanges();
    putName(list.box(), std::string(trimmed(entry.name)));
    const int line = list.box().index();
    if (&list == &ledgers_) {
      ledgerTaken(line, entry.id);
    } else {
      groupTaken(line, entry.id);
    }
  }
  form_.GETCURBALS();
}

// --- ledgers ------------------------------------------------------------------------------------

void LineLookups::TXTLEDGER_CHANGE(int line) {
  if (lines_.ignoringChanges()) return;
  lines_.names(line).pair.partId = 0;
  follow(form_.txtledger[line], ledgers_);
  form_.GETCURBALS();
}

void LineLookups::TXTLEDGER_LOSTFOCUS(int line) {
  hint("");
  ledgers_.hide();
  form_.txtledger[line].select(0, 0);
  const Control* const to = form_.active();
  const bool givenUp = !form_.Frame2.visible() || form_.txtledger[line].locked() ||
                       to == &form_.cmdcancel || to == &form_.cmdremove;
  if (!givenUp) takeLedger(line);
}

bool LineLookups::enterLedger(int line) {
  ledgers_.serve(form_.txtledger[line]);
  takeHighlighted(ledgers_);
  return takeLedger(line);
}

bool LineLookups::takeLedger(int line) {
  TextBox& box = form_.txtledger[line];
  ledgers_.hide();
  if (lines_.names(line).pair.partId != 0) return true;
  const std::string name = cleanedName(box.text());
  if (name.empty()) return true;
  const NameList::Entry* entry = ledgers_.names().find(box.text());
  const std::optional<long> id = entry ? entry->id : CHECKLEDGER(name);
  if (!id) return false;
  {
    const ScopedFlag ignoring = lines_.ignoreChanges();
    // A ledger just made, or made by another workstation, stands in the list by now.
    if (!entry) entry = ledgers_.names().findId(*id);
    putName(box, *id == 0 ? std::string() : std::string(trimmed(entry ? entry->name : name)));
    if (*id != 0) ledgerTaken(line, *id);
  }
  form_.GETCURBALS();
  return *id != 0;
}

void LineLookups::ledgerTaken(int line, long id) {
  VoucherLines::Names& names = lines_.names(line);
  names.pair.partId = id;
  if (std::exchange(names.proposedFor, id) == id) return;
  const long group = form_.book().firstGroup(id);
  // A ledger without a group does not go into the one that was proposed for another ledger.
  if (group == 0 && names.groupChosen) return;
  names.pair.allId = group;
  names.groupChosen = false;
  putName(form_.txtgroup[line], groupName(group));
}

std::optional<long> LineLookups::CHECKLEDGER(const std::string& name) {
  std::optional<long> id;
  hint("The ledger could not be looked up; the error log says why. Enter tries again.");
  form_.logErrors("CHECKLEDGER", [&] {
    Context& context = form_.context();
    const auto found = findLedger(*context.host, name);
    if (found && !nameMeant(context.dialogs, name, found->name, form_.caption())) {
      hint(chooseAnotherName);
      return;
    }
    const long known = found ? found->id : newLedger(name);
    if (known != 0 && !ledgers_.names().findId(known)) {
      ledgers_.add(found ? found->name : name, known);
      form_.book().addLedger(known);
    }
    id = known;
    hint("");
  });
  return id;
}

// 0 when a person does not want it, or it cannot be made.
long LineLookups::newLedger(const std::string& name) {
  Context& context = form_.context();
  if (!confirmed(context, "Do you want to Create New Ledger '" + name + "'?")) return 0;
  const long id = context.host->GetMax_MastPartId(name);
  if (id == 0) tell(context, "Failed to Create Master [" + name + "].");
  return id;
}

void LineLookups::VSF3_DBLCLICK() {
  const int line = ledgers_.box().index();
  takeHighlighted(ledgers_);
  form_.focus(form_.txtgroup[line]);
}

// --- groups -------------------------------------------------------------------------------------

void LineLookups::TXTGROUP_CHANGE(int line) {
  if (lines_.ignoringChanges()) return;
  groupTaken(line, 0);
  follow(form_.txtgroup[line], groups_);
  form_.GETCURBALS();
}

void LineLookups::TXTGROUP_LOSTFOCUS(int line) {
  hint("");
  groups_.hide();
  form_.txtgroup[line].select(0, 0);
  if (form_.Frame2.visible() && !form_.txtgroup[line].locked()) takeGroup(line);
}

void LineLookups::groupTaken(int line, long id) {
  lines_.names(line).pair.allId = id;
  lines_.names(line).groupChosen = true;
}

void LineLookups::enterGroup(int line) {
  groups_.serve(form_.txtgroup[line]);
  takeHighlighted(groups_);
  form_.focus(lines_.amountBox(line));
}

// Groups are not created here, so the beginning of a name stands for the name that the list shows.
void LineLookups::takeGroup(int line) {
  TextBox& box = form_.txtgroup[line];
  long& allId = lines_.names(line).pair.allId;
  if (allId == 0 && !cleanedName(box.text()).empty()) {
    const NameList::Entry* entry = groups_.names().find(box.text());
    if (!entry) entry = groups_.names().beginning(box.text());
    if (entry) {
      const ScopedFlag ignoring = lines_.ignoreChanges();
      allId = entry->id;
      putName(box, std::string(trimmed(entry->name)));
    } else {
      hint("There is no group \"" + box.text() + "\".");
    }
  }
  form_.GETCURBALS();
}

void LineLookups::VSF4_DBLCLICK() { enterGroup(groups_.box().index()); }

// --- names that are not there any more ----------------------------------------------------------

void LineLookups::forgetUnknown() {
  for (int line = 0; line < lines_.count(); ++line) {
    LedgerGroup& pair = lines_.names(line).pair;
    if (!ledgers_.names().findId(pair.partId)) pair.partId = 0;
    if (!groups_.names().findId(pair.allId)) pair.allId = 0;
  }
}

// --- names never looked up ----------------------------------------------------------------------

void LineLookups::lookUpNames(int line) {
  LedgerGroup& pair = lines_.names(line).pair;
  const auto look = [](long& id, const NameList& names, const TextBox& box) {
    const NameList::Entry* entry = id == 0 ? names.find(box.text()) : nullptr;
    if (entry) id = entry->id;
  };
  look(pair.partId, ledgers_.names(), form_.txtledger[line]);
  look(pair.allId, groups_.names(), form_.txtgroup[line]);
}

}  // namespace quillet
