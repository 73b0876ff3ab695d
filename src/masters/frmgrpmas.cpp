#include "masters/frmgrpmas.h"

#include <algorithm>

#include "data/sql.h"
#include "data/table_names.h"
#include "data/text.h"
#include "masters/year_tables.h"

namespace quillet {
namespace {

enum Column { idColumn, nameColumn, underColumn, userColumn, underIdColumn };
constexpr const char* predefinedMark = "N";

std::vector<GridColumn> groupColumns() {
  return {{.heading = "Id", .hidden = true},
          {.heading = "Group", .width = 36, .stretch = true},
          {.heading = "Under Group", .width = 30},
          {.heading = "User Group", .align = Align::center, .width = 10},
          {.heading = "Under Id", .hidden = true}};
}

}  // namespace

frmgrpmas::frmgrpmas(Context& context) : MasterForm(context, "frmgrpmas") {
  setCaption("Group Master");
  for (Grid* grid : {&vsf, &vsM, &vsMW}) {
    auto columns = groupColumns();
    if (grid == &vsM) {
      columns[userColumn].hidden = true;
      columns.push_back({.heading = "Merge", .width = 8, .tick = true});
    }
    grid->setColumns(std::move(columns));
    grid->KeyPress = [grid](Key& key) { searchByTyping(*grid, nameColumn, key); };
    grid->zebra = true;
  }
  Text1.maxLength = nameLength;
  Text1.Overflow = [this] { lblhint.setCaption("A group name holds at most 100 characters."); };
  Text1.Change = [this] { lblhint.setCaption(""); };
  for (Control* field : {static_cast<Control*>(&Text1), static_cast<Control*>(&Combo1)}) {
    field->KeyPress = [this](Key& key) { enterIsTab(key); };
  }
  lblhint.quiet = true;

  KeyPress = [this](Key& key) { FORM_KEYPRESS(key); };
  vsf.RowColChange = [this] { LOADDATA(); };
  vsf.DblClick = [this] { CMDMODIFY_CLICK(); };
  cmdadd.Click = [this] { CMDADD_CLICK(); };
  cmdmodify.Click = [this] { CMDMODIFY_CLICK(); };
  cmdupdate.Click = [this] { CMDUPDATE_CLICK(); };
  cmddelete.Click = [this] { CMDDELETE_CLICK(); };
  cmdcancel.Click = [this] { CMDCANCEL_CLICK(); };
  cmdback.Click = [this] { CMDBACK_CLICK(); };
  cmdMerge.Click = [this] { cmdMerge_Click(); };
  cmdMergeGroup.Click = [this] { cmdMergeGroup_Click(); };
  cmdMergeBack.Click = [this] { cmdMergeBack_Click(); };
}

Node frmgrpmas::layout() {
  const Node fields = row({field("Group &Name", Text1, 40, 3), field("U&nder Group", Combo1, 30, 2),
                           item(cmdupdate), item(cmdcancel)});
  const Node commands =
      row({item(cmdadd), item(cmdmodify), item(cmddelete), item(cmdMerge), gap(), item(cmdback)});
  const Node merge = row(
      {column({item(lblmerge), item(vsM, 1)}, 1), column({item(lblmergewith), item(vsMW, 1)}, 1)},
      1);
  return column({stack(
      {framed(famMain, {item(vsf, 1), fields, item(lblhint), commands}, 1),
       framed(famMerge, {merge, row({gap(), item(cmdMergeGroup), item(cmdMergeBack)})}, 1)})});
}

// --- loading ------------------------------------------------------------------------------------

void frmgrpmas::FORM_LOAD() {
  trap("FORM_LOAD", [&] {
    context_.host->resize_for_resolution(*this);
    groupsChanged_ = false;
    newGroup_.clear();
    showPage(famMain);
    LOADGROUPS();
    LOADGRID(0);
    CLEARDATA();
    SETBUTTON(false);
  });
}

void frmgrpmas::LOADGROUPS() {
  trap("LOADGROUPS", [&] {
    const auto rows = context_.query("Select * From Mast_Gunder Order by Gunder");
    Combo1.clearItems();
    for (; !rows->EOF_(); rows->MoveNext()) {
      Combo1.addItem(rows->text("Gunder"), rows->integer("GId"));
    }
  });
}

// The grids show a primary group by its name, as the combo box lists it.
std::vector<std::string> frmgrpmas::cellsOf(const Recordset& group) const {
  const int under = Combo1.findData(group.integer("GId"));
  return {group.text("AllId"), group.text("ALLGRP"),
          under > 0 ? Combo1.items()[static_cast<std::size_t>(under - 1)] : group.text("GId"),
          group.text("UserGrp"), sqlNumber(group.integer("GId"))};
}

void frmgrpmas::LOADGRID(long groupId) {
  trap("LOADGRID", [&] {
    std::string sql = "Select * From Mast_AllGrp";
    if (groupId > 0) sql += " Where AllId=" + sqlNumber(groupId);
    const auto rows = context_.query(sql);
    if (groupId == 0) {
      vsf.clearRows();
      vsf.clearSort();
      for (; !rows->EOF_(); rows->MoveNext()) vsf.addRow(cellsOf(*rows));
      vsf.sortBy(nameColumn);
    } else if (!rows->EOF_()) {
      int row = vsf.find(idColumn, sqlNumber(groupId));
      if (row == 0) row = vsf.addRow({});
      const auto cells = cellsOf(*rows);
      for (int c = 0; c < vsf.cols(); ++c) vsf.setCell(row, c, cells[static_cast<std::size_t>(c)]);
      makeCurrent(vsf, row);
    }
  });
}

void frmgrpmas::LOADDATA() {
  trap("LOADDATA", [&] {
    if (vsf.current() == 0) {
      CLEARDATA();
      return;
    }
    Text1.setText(vsf.cell(vsf.current(), nameColumn));
    Combo1.setChosen(Combo1.findData(std::stol(vsf.cell(vsf.current(), underIdColumn))));
  });
}

void frmgrpmas::CLEARDATA() {
  trap("CLEARDATA", [&] {
    Text1.setText("");
    Combo1.setChosen(0);
  });
}

void frmgrpmas::SETBUTTON(bool edit) {
  trap("SETBUTTON", [&] {
    editing_ = edit;
    for (Control* browse : std::initializer_list<Control*>{&vsf, &cmdadd, &cmdmodify, &cmddelete,
                                                           &cmdMerge, &cmdback}) {
      browse->setEnabled(!edit);
    }
    for (Control* entry : std::initializer_list<Control*>{&Combo1, &cmdupdate, &cmdcancel}) {
      entry->setEnabled(edit);
    }
    Text1.setLocked(!edit);
    Text1.tabStop = edit;
    lblhint.setCaption("");
  });
}

void frmgrpmas::FORM_KEYPRESS(Key& key) {
  trap("FORM_KEYPRESS", [&] {
    if (key != keys::Escape) return;
    key = keys::none;
    if (famMerge.visible()) {
      cmdMergeBack_Click();
    } else if (editing_ && ask("Do you want to Cancel this Entry?")) {
      CMDCANCEL_CLICK();
    }
  });
}

// --- adding and changing ------------------------------------------------------------------------

bool frmgrpmas::rowSelected() {
  if (vsf.current() > 0) return true;
  tell("Please Select a Group.");
  focus(vsf);
  return false;
}

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
    if (!rowSelected()) return;
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
    const std::string name(trimmed(Text1.text()));
    if (!nameHolds(name)) return;
    const long id = adding_ ? insertGroup(name) : selectedId();
    if (!adding_) updateGroup(id, name);
    groupsChanged_ = true;
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
  std::string sql = "Select * from Mast_AllGrp Where ALLGRP=" + quoted(name);
  if (!adding_) sql += " and ALLID<>" + sqlNumber(selectedId());
  if (context_.query(sql)->EOF_()) return true;
  tell("Duplicate Group!!");
  focus(Text1);
  return false;
}

long frmgrpmas::insertGroup(const std::string& name) {
  const long id = context_.query("Select Max(AllId) from Mast_AllGrp")->integer(0) + 1;
  change("Insert Into Mast_AllGrp Values (" + sqlNumber(id) + "," + sqlNumber(Combo1.chosenData()) +
         "," + quoted(name) + ",'Y')");
  newGroup_ = name;
  return id;
}

void frmgrpmas::updateGroup(long id, const std::string& name) {
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

void frmgrpmas::CMDBACK_CLICK() {
  trap("CMDBACK_CLICK", [&] { close(); });
}

// --- deleting -----------------------------------------------------------------------------------

std::optional<bool> frmgrpmas::CHECKEXISTS(long groupId) {
  std::optional<bool> used;
  trap("CHECKEXISTS", [&] {
    const auto uses = [&](const std::string& table) {
      const auto rows =
          context_.query("Select * from " + table + " Where AllId=" + sqlNumber(groupId));
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
    if (!rowSelected()) return;
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
    change("Delete from Mast_AllGrp Where ALLID=" + sqlNumber(selectedId()));
    groupsChanged_ = true;
    if (newGroup_ == vsf.cell(row, nameColumn)) newGroup_.clear();
    vsf.removeRow(row);
    makeCurrent(vsf, std::min(row, vsf.rows()));
  });
}

}  // namespace quillet
