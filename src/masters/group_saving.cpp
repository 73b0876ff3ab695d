// The group master's changes of single groups: adding, renaming, moving, deleting.
#include <algorithm>

#include "data/sql.h"
#include "data/table_names.h"
#include "data/text.h"
#include "host/meant_name.h"
#include "masters/frmgrpmas.h"
#include "masters/year_tables.h"

namespace quillet {
namespace {

constexpr const char* predefinedMark = "N";
constexpr const char* noGroup = "Please Select a Group.";

}  // namespace

bool frmgrpmas::predefined() const { return vsf.cell(vsf.current(), userColumn) == predefinedMark; }

long frmgrpmas::selectedId() const { return std::stol(vsf.cell(vsf.current(), idColumn)); }

void frmgrpmas::CMDADD_CLICK() {
  trap("CMDADD_CLICK", [&] {
    adding_ = true;
    CLEARDATA();
    SETBUTTON(true);
    focus(Text1);
  });
}

void frmgrpmas::CMDMODIFY_CLICK() {
  trap("CMDMODIFY_CLICK", [&] {
    if (!rowSelected(vsf, noGroup)) return;
    if (predefined()) {
      tell("You Can not Modify Predefined Group.");
      return;
    }
    adding_ = false;
    LOADDATA();
    SETBUTTON(true);
    focus(Text1);
    Text1.selectAll();
  });
}

void frmgrpmas::CMDUPDATE_CLICK() {
  trap("CMDUPDATE_CLICK", [&] {
    const std::string name = cleanedName(Text1.text());
    if (!nameHolds(name)) return;
    const long id = adding_ ? insertGroup(name) : selectedId();
    if (!adding_) updateGroup(id, name);
    SETBUTTON(false);
    LOADGRID(id);
    focus(vsf);
  });
}

bool frmgrpmas::nameHolds(const std::string& name) {
  if (name.empty()) {
    tell("Please Specify 'Group' Name.");
    focus(Text1);
    return false;
  }
  if (Combo1.chosen() == 0) {
    tell("Please Select 'Under Group'.");
    focus(Combo1);
    return false;
  }
  Sql sql = "Select * from Mast_AllGrp Where ALLGRP=" + quoted(name);
  if (!adding_) sql += " and ALLID<>" + sqlNumber(selectedId());
  const auto rows = context_.query(sql);
  const auto existing = taken(name, bestMatch(*rows, "ALLID", "ALLGRP", name), vsf, nameColumn,
                              adding_ ? 0 : selectedId());
  if (!existing) return true;
  tell("Duplicate Group!!" + whyTaken(name, existing->name));
  focus(Text1);
  return false;
}

long frmgrpmas::insertGroup(const std::string& name) {
  const long id = context_.query("Select Max(AllId) from Mast_AllGrp")->integer(0) + 1;
  groupsChanged_ = true;
  change("Insert Into Mast_AllGrp Values (" + sqlNumber(id) + "," + sqlNumber(Combo1.chosenData()) +
         "," + quoted(name) + ",'Y')");
  newGroupId_ = id;
  return id;
}

std::string frmgrpmas::newGroup() const {
  const int row = newGroupId_ == 0 ? 0 : vsf.find(idColumn, std::to_string(newGroupId_));
  return row == 0 ? std::string() : vsf.cell(row, nameColumn);
}

void frmgrpmas::updateGroup(long id, const std::string& name) {
  noteChange();
  change("Update Mast_AllGrp Set ALLGRP=" + quoted(name) +
         ", GID=" + sqlNumber(Combo1.chosenData()) + " Where AllId=" + sqlNumber(id));
}

void frmgrpmas::CMDCANCEL_CLICK() {
  trap("CMDCANCEL_CLICK", [&] {
    SETBUTTON(false);
    LOADDATA();
    focus(vsf);
  });
}

// --- deleting -----------------------------------------------------------------------------------

std::optional<bool> frmgrpmas::CHECKEXISTS(long groupId) {
  std::optional<bool> used;
  trap("CHECKEXISTS", [&] {
    const auto uses = [&](const std::string& table) {
      const auto rows =
          context_.query("Select * from " + sqlName(table) + " Where AllId=" + sqlNumber(groupId));
      return !rows->EOF_();
    };
    used = walkYearTables(context_, "Searching for the Group....", [&](const std::string& table) {
      return uses(table) || uses(siblingTable(table, "JRNL_")) ||
             uses(siblingTable(table, "TRADE_"));
    });
  });
  return used;
}

void frmgrpmas::CMDDELETE_CLICK() {
  trap("CMDDELETE_CLICK", [&] {
    if (!rowSelected(vsf, noGroup)) return;
    if (predefined()) {
      tell("You Can not Delete Predefined Group.");
      return;
    }
    // What could not be searched to its end may be in use.
    const std::optional<bool> used = CHECKEXISTS(selectedId());
    if (!used) return;
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
    change("Delete from Mast_AllGrp Where ALLID=" + sqlNumber(selectedId()));
    vsf.removeRow(row);
    makeCurrent(vsf, std::min(row, vsf.rows()));
  });
}

}  // namespace quillet
