// The journal's look-ups: ledgers and groups found while their names are typed, ledgers created on
// the fly.
#include <utility>

#include "data/names.h"
#include "data/text.h"
#include "host/meant_name.h"
#include "journal/form_parts.h"
#include "journal/frmjrnl.h"

namespace quillet {

void fillNames(Grid& list, const NameList::Matches& matches) {
  list.clearRows();
  list.reserve(static_cast<int>(matches.entries.size()));
  for (const NameList::Entry* entry : matches.entries) {
    list.addRow({std::to_string(entry->id), entry->name});
  }
}

// --- the drop-down lists ------------------------------------------------------------------------

void frmjrnl::openList(TextBox& box, Grid& list) {
  arriveAt(box.index());
  list.dropOf = &box;
  list.setVisible(false);
  box.selectAll();
}

void frmjrnl::follow(Grid& list, const NameList& names, const std::string& text) {
  const NameList::Matches matches = names.matching(text);
  fillNames(list, matches);
  // Only a name that begins with what was typed is proposed; the others wait to be chosen.
  const bool proposes = matches.beginning > 0 && !trimmed(text).empty();
  list.setCurrent(proposes ? 1 : 0);
  list.setVisible(true);
  const bool asTyped = proposes && sameName(matches.entries.front()->name, text);
  hint(&list == &VSF3 && proposes && !asTyped
           ? "Enter takes \"" + matches.entries.front()->name + "\", Tab keeps what is typed."
           : "");
}

void frmjrnl::moveList(TextBox& box, Grid& list, const NameList& names, Key& key) {
  const bool moves =
      key == keys::Up || key == keys::Down || key == keys::PageUp || key == keys::PageDown;
  if (!moves) return;
  if (!list.visible()) {
    const NameList::Entry* standing = names.find(box.text());
    follow(list, names, "");
    if (standing) list.setCurrent(static_cast<int>(standing - names.entries().data()) + 1);
  }
  list.act(key);
  key = keys::none;
  if (list.current() == 0) return;
  takeRow(box, list);
  box.selectAll();
}

// Takes the list's current row into the box, if it shows one, and closes the list.
void frmjrnl::takeHighlighted(TextBox& box, Grid& list) {
  if (!list.visible() || list.current() == 0) return;
  takeRow(box, list);
  list.setVisible(false);
}

void frmjrnl::takeRow(TextBox& box, Grid& list) {
  {
    const Filling filling(filling_);
    putName(box, std::string(trimmed(list.cell(list.current(), nameColumn))));
    const long id = std::stol(list.cell(list.current(), idColumn));
    if (&list == &VSF3) {
      ledgerTaken(box.index(), id);
    } else {
      groupTaken(box.index(), id);
    }
  }
  GETCURBALS();
}

// --- ledgers ------------------------------------------------------------------------------------

void frmjrnl::TXTLEDGER_CHANGE(int line) {
  if (filling_) return;
  trap("TXTLEDGER_CHANGE", [&] {
    ids_[static_cast<std::size_t>(line)].pair.partId = 0;
    follow(VSF3, ledgers_, txtledger[line].text());
    GETCURBALS();
  });
}

void frmjrnl::TXTLEDGER_LOSTFOCUS(int line) {
  trap("TXTLEDGER_LOSTFOCUS", [&] {
    VSF3.setVisible(false);
    txtledger[line].select(0, 0);
    const bool givenUp = !Frame2.visible() || active() == &cmdcancel || active() == &cmdremove;
    if (!givenUp) takeLedger(line);
  });
}

bool frmjrnl::takeLedger(int line) {
  TextBox& box = txtledger[line];
  VSF3.setVisible(false);
  if (ids_[static_cast<std::size_t>(line)].pair.partId != 0) return true;
  const std::string name = cleanedName(box.text());
  if (name.empty()) return true;
  const NameList::Entry* entry = ledgers_.find(box.text());
  const std::optional<long> id = entry ? entry->id : CHECKLEDGER(name);
  if (!id) return false;
  {
    const Filling filling(filling_);
    // A ledger just made, or made by another workstation, stands in the list by now.
    if (!entry) entry = ledgers_.findId(*id);
    putName(box, *id == 0 ? std::string() : std::string(trimmed(entry ? entry->name : name)));
    if (*id != 0) ledgerTaken(line, *id);
  }
  GETCURBALS();
  return *id != 0;
}

void frmjrnl::ledgerTaken(int line, long id) {
  LineIds& ids = ids_[static_cast<std::size_t>(line)];
  ids.pair.partId = id;
  if (std::exchange(ids.proposedFor, id) == id) return;
  const long group = balances_.firstGroup(id);
  // A ledger without a group does not go into the one that was proposed for another ledger.
  if (group == 0 && ids.groupChosen) return;
  const auto name = groupNames_.find(group);
  ids.pair.allId = group;
  ids.groupChosen = false;
  putName(txtgroup[line], name == groupNames_.end() ? std::string() : name->second);
}

std::optional<long> frmjrnl::CHECKLEDGER(const std::string& name) {
  std::optional<long> id;
  hint("The ledger could not be looked up; the error log says why. Enter tries again.");
  trap("CHECKLEDGER", [&] {
    const auto rows = context_.query("Select * From Mast_Part Where Particular='" +
                                     context_.host->escaped(upperCase(trimmed(name))) + "'");
    const auto found = bestMatch(*rows, "PartId", "Particular", name);
    if (found && !nameMeant(context_.dialogs, name, found->name, caption())) {
      hint(chooseAnotherName);
      return;
    }
    const long known = found ? found->id : newLedger(name);
    if (known != 0) addLedger(found ? found->name : name, known);
    id = known;
    hint("");
  });
  return id;
}

// 0 when a person does not want it, or it cannot be made.
long frmjrnl::newLedger(const std::string& name) {
  if (ask("Do you want to Create New Ledger '" + name + "'?") != Answer::Yes) return 0;
  const long id = context_.host->GetMax_MastPartId(name);
  if (id == 0) tell("Failed to Create Master [" + name + "].");
  return id;
}

void frmjrnl::addLedger(const std::string& name, long id) {
  if (ledgers_.findId(id)) return;
  ledgers_.insert(name, id);
  balances_.set({id, 0}, "", 0);
}

void frmjrnl::VSF3_DBLCLICK() {
  trap("VSF3_DBLCLICK", [&] {
    const int line = VSF3.dropOf->index();
    takeHighlighted(txtledger[line], VSF3);
    focus(txtgroup[line]);
  });
}

// --- groups -------------------------------------------------------------------------------------

void frmjrnl::TXTGROUP_CHANGE(int line) {
  if (filling_) return;
  trap("TXTGROUP_CHANGE", [&] {
    groupTaken(line, 0);
    follow(VSF4, groups_, txtgroup[line].text());
    GETCURBALS();
  });
}

void frmjrnl::TXTGROUP_LOSTFOCUS(int line) {
  trap("TXTGROUP_LOSTFOCUS", [&] {
    VSF4.setVisible(false);
    txtgroup[line].select(0, 0);
    if (Frame2.visible()) takeGroup(line);
  });
}

void frmjrnl::groupTaken(int line, long id) {
  LineIds& ids = ids_[static_cast<std::size_t>(line)];
  ids.pair.allId = id;
  ids.groupChosen = true;
}

// Groups are not created here, so the beginning of a name stands for the name that the list shows.
void frmjrnl::takeGroup(int line) {
  TextBox& box = txtgroup[line];
  long& allId = ids_[static_cast<std::size_t>(line)].pair.allId;
  VSF4.setVisible(false);
  if (allId == 0 && !cleanedName(box.text()).empty()) {
    const NameList::Entry* entry = groups_.find(box.text());
    if (!entry) entry = groups_.beginning(box.text());
    if (entry) {
      const Filling filling(filling_);
      allId = entry->id;
      putName(box, std::string(trimmed(entry->name)));
    } else {
      hint("There is no group \"" + box.text() + "\".");
    }
  }
  GETCURBALS();
}

void frmjrnl::VSF4_DBLCLICK() {
  trap("VSF4_DBLCLICK", [&] {
    const int line = VSF4.dropOf->index();
    takeHighlighted(txtgroup[line], VSF4);
    focus(amountBox(line));
  });
}

}  // namespace quillet
