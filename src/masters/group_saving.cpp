// The group master's changes of single groups: adding, renaming, moving, deleting.
#include <algorithm>

#include "books/group_mapping.h"
#include "books/group_use.h"
#include "data/names.h"
#include "host/meant_name.h"
#include "masters/frmgrpmas.h"
#include "masters/locked_uses.h"

namespace quillet {
namespace {

constexpr const char* noGroup = "Please Select a Group.";

}  // namespace

bool frmgrpmas::predefined() const { return vsf.cell(vsf.current(), userColumn) == "N"; }

void frmgrpmas::CMDADD_CLICK() {
  command("CMDADD_CLICK", [&] {
    if (!primaryGroupsThere()) return;
    adding_ = true;
    addedId_ = 0;
    CLEARDATA();
    SETBUTTON(true);
    focus(Text1);
  });
}

void frmgrpmas::CMDMODIFY_CLICK() {
  command("CMDMODIFY_CLICK", [&] {
    if (!rowSelected(vsf, noGroup)) return;
    if (predefined()) {
      tell("You Can not Modify Predefined Group.");
      return;
    }
    if (!primaryGroupsThere()) return;
    adding_ = false;
    LOADDATA();
    SETBUTTON(true);
    focus(Text1);
    Text1.selectAll();
  });
}

void frmgrpmas::CMDUPDATE_CLICK() {
  command("CMDUPDATE_CLICK", [&] {
    if (!asSeen()) return;
    AccountGroup group = entered();
    if (!nameHolds(group)) return;
    const bool moves = !adding_ && primaryGroups_.at(group.id) != group.primaryGroup;
    if (moves && !mayMoveGroup(context_, group.id)) return;
    if (adding_) {
      insertGroup(group);
    } else {
      noteChange();
      master_.update(group);
    }
    flush();
    SETBUTTON(false);
    LOADGRID(group.id);
    focus(vsf);
  });
}

AccountGroup frmgrpmas::entered() const {
  return {.id = adding_ ? 0 : vsf.currentId(),
          .primaryGroup = Combo1.chosenData(),
          .name = cleanedName(Text1.text()),
          .user = "Y"};
}

bool frmgrpmas::nameHolds(const AccountGroup& group) {
  if (group.name.empty()) {
    tell("Please Specify 'Group' Name.");
    focus(Text1);
    return false;
  }
  if (Combo1.chosen() == 0) {
    tell("Please Select 'Under Group'.");
    focus(Combo1);
    return false;
  }
  const auto existing = master_.taken(group, alike(vsf, nameColumn, group.name, group.id));
  if (!existing) return true;
  tell("Duplicate Group!!" + whyTaken(group.name, existing->name));
  focus(Text1);
  return false;
}

void frmgrpmas::insertGroup(AccountGroup& group) {
  TableNames missing;
  BooksHistory* const history = context_.environment.history();
  group.id = std::max(master_.nextId(missing), history ? history->highestGroupEver() + 1 : 0);
  tellMissing(missing);
  groupsChanged_ = true;
  master_.insert(group);
  addedId_ = newGroupId_ = group.id;
}

std::string frmgrpmas::newGroup() const {
  const int row = newGroupId_ == 0 ? 0 : vsf.findId(newGroupId_);
  return row == 0 ? std::string() : vsf.cell(row, nameColumn);
}

void frmgrpmas::CMDCANCEL_CLICK() {
  command("CMDCANCEL_CLICK", [&] {
    SETBUTTON(false);
    LOADDATA();
    focus(vsf);
  });
}

// --- deleting -----------------------------------------------------------------------------------

std::optional<bool> frmgrpmas::CHECKEXISTS(long groupId) {
  std::optional<bool> used;
  logErrors("CHECKEXISTS", [&] {
    TableNames missing;
    const std::string table = yearTableWithGroup(*context_.host, groupId, missing);
    if (!table.empty()) status("It stands in " + table + ".");
    tellMissing(missing);
    used = !table.empty();
  });
  return used;
}

void frmgrpmas::CMDDELETE_CLICK() {
  command("CMDDELETE_CLICK", [&] {
    if (!rowSelected(vsf, noGroup)) return;
    if (predefined()) {
      tell("You Can not Delete Predefined Group.");
      return;
    }
    // What could not be searched to its end may be in use.
    const std::optional<bool> used = CHECKEXISTS(vsf.currentId());
    if (!used) {
      status(unsearched);
      return;
    }
    if (*used) {
      tell("Group already in use. You can not delete this Group.");
      return;
    }
    const int row = vsf.current();
    if (!ask("Do you want to delele the Group [" + vsf.cell(row, nameColumn) + "] ?",
             "Delete Confirmation")) {
      return;
    }
    noteChange();
    // First: after a failure it can be done again while the group is there.
    removeMappings(*context_.host, {vsf.currentId()});
    flush();
    master_.remove(vsf.currentId());
    vsf.removeRow(row);
    makeCurrent(vsf, std::min(row, vsf.rows()));
    flush();
  });
}

}  // namespace quillet
