// The group master's changes of single groups: adding, renaming, moving, deleting.
#include <algorithm>

#include "books/group_use.h"
#include "books/merged_groups.h"
#include "data/sql.h"
#include "data/text.h"
#include "host/meant_name.h"
#include "masters/frmgrpmas.h"

namespace quillet {
namespace {

constexpr const char* predefinedMark = "N";
constexpr const char* noGroup = "Please Select a Group.";

}  // namespace

bool frmgrpmas::predefined() const { return vsf.cell(vsf.current(), userColumn) == predefinedMark; }

long frmgrpmas::selectedId() const { return std::stol(vsf.cell(vsf.current(), idColumn)); }

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
  const auto existing = taken(
      name, sql, {vsf, nameColumn, "Select * From Mast_AllGrp Where AllId=", "ALLID", "ALLGRP"},
      adding_ ? 0 : selectedId());
  if (!existing) return true;
  tell("Duplicate Group!!" + whyTaken(name, existing->name));
  focus(Text1);
  return false;
}

// Above the ids of groups that are gone as well: what still carries one of those must not come
// under a group that has nothing to do with it.
long frmgrpmas::newId() {
  const long highest = context_.query("Select Max(AllId) from Mast_AllGrp")->integer(0);
  TableNames missing;
  const long carried = highestGroupInUse(*context_.host, missing);
  tellMissing(missing);
  return std::max(highest, carried) + 1;
}

long frmgrpmas::insertGroup(const std::string& name) {
  const long id = newId();
  groupsChanged_ = true;
  context_.host->ConQuery("Insert Into Mast_AllGrp Values (" + sqlNumber(id) + "," +
                          sqlNumber(Combo1.chosenData()) + "," + quoted(name) + ",'Y')");
  addedId_ = newGroupId_ = id;
  flush();
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
  command("CMDCANCEL_CLICK", [&] {
    SETBUTTON(false);
    LOADDATA();
    focus(vsf);
  });
}

// --- deleting -----------------------------------------------------------------------------------

// What carries a group that was merged into this one comes back to it when it is touched.
Sql frmgrpmas::carrying(long groupId) {
  const auto merged = MergedGroups(*context_.host).predecessors(groupId);
  if (merged.empty()) return "AllId=" + sqlNumber(groupId);
  IdList ids;
  ids.add(groupId);
  for (const long id : merged) ids.add(id);
  return "AllId in (" + ids.sql() + ")";
}

std::optional<bool> frmgrpmas::CHECKEXISTS(long groupId) {
  std::optional<bool> used;
  trap("CHECKEXISTS", [&] {
    const auto standsIn = [&](const std::string& table, const Sql& condition) {
      const Sql sql = "Select * from " + sqlName(table) + " Where " + condition;
      const bool stands = !context_.query(sql)->EOF_();
      if (stands) status("It stands in " + table + ".");
      return stands;
    };
    const Sql carries = carrying(groupId);
    const Sql binds = sqlNumber(groupId) + " in (OsGrpId,PurGrpId,SalGrpId,CsGrpId)";
    used = walk("Searching for the Group....", {"TAB_", "JRNL_", "TRADE_", "RMGRP_"},
                [&](const YearTable& table) {
                  return standsIn(table.name, table.prefix == "RMGRP_" ? binds : carries);
                }) ||
           standsIn("AllGrp_Map", "AllId=" + sqlNumber(groupId));
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
    const std::optional<bool> used = CHECKEXISTS(selectedId());
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
    context_.host->ConQuery("Delete from Mast_AllGrp Where ALLID=" + sqlNumber(selectedId()));
    vsf.removeRow(row);
    makeCurrent(vsf, std::min(row, vsf.rows()));
    flush();
  });
}

}  // namespace quillet
