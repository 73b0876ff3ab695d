#include "masters/frmgrpmas.h"

#include <initializer_list>

#include "data/sql.h"

namespace quillet {
frmgrpmas::frmgrpmas(Context& context) : MasterForm(context, "frmgrpmas") {
  setCaption("Group Master");
  setColumns();
  for (Grid* grid : {&vsf, &vsM, &vsMW}) {
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
  vsf.RowColChange = [this] {
    // While the grid is read anew the entry keeps what was typed.
    if (!editing_) LOADDATA();
  };
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

void frmgrpmas::setColumns() {
  for (Grid* grid : {&vsf, &vsM, &vsMW}) {
    // Two grids share the merge page's width.
    const bool wide = grid == &vsf;
    grid->setColumns(
        {{.heading = "Id", .hidden = true},
         {.heading = "Group", .width = wide ? 36 : 24, .stretch = true},
         {.heading = "Under Group", .width = wide ? 30 : 16},
         {.heading = "User Group", .align = Align::center, .hidden = !wide, .width = 10},
         {.heading = "Under Id", .hidden = true},
         {.heading = "Merge",
          .align = Align::center,
          .hidden = grid != &vsM,
          .width = 7,
          .tick = grid == &vsM}});
  }
}

Node frmgrpmas::layout() {
  const Node fields = row({field("Group &Name", Text1, 40, 3), field("Under Gr&oup", Combo1, 30, 2),
                           item(cmdupdate), item(cmdcancel)});
  const Node commands =
      row({item(cmdadd), item(cmdmodify), item(cmddelete), item(cmdMerge), gap(), item(cmdback)});
  const Node merge = row(
      {column({item(lblmerge), item(vsM, 1)}, 1), column({item(lblmergewith), item(vsMW, 1)}, 1)},
      1);
  return column(
      {stack({framed(famMain, {item(vsf, 1), fields, item(lblhint), commands}, 1),
              framed(famMerge, {merge, row({gap(), item(cmdMergeGroup), item(cmdMergeBack)})}, 1)}),
       item(lblstatus)});
}

// --- loading ------------------------------------------------------------------------------------

void frmgrpmas::FORM_LOAD() {
  trap("FORM_LOAD", [&] {
    context_.host->resize_for_resolution(*this);
    groupsChanged_ = linesTouched_ = false;
    newGroupId_ = 0;
    lblstatus.setCaption("");
    SETBUTTON(false);
    vsf.clearRows();
    vsf.clearSort();
    CLEARDATA();
    showPage(famMain);
    LOADGROUPS();
    LOADGRID(0);
  });
}

bool frmgrpmas::LOADGROUPS() {
  Combo1.clearItems();
  primaryGroupsRead_ = attempt("LOADGROUPS", [&] {
    const auto rows = context_.query("Select * From Mast_Gunder Order by Gunder");
    for (; !rows->EOF_(); rows->MoveNext()) {
      Combo1.addItem(rows->text("Gunder"), rows->integer("GId"));
    }
  });
  if (!primaryGroupsRead_) {
    status("The primary groups could not be read; the error log says why.");
  }
  return primaryGroupsRead_;
}

// Those that could not be read are asked for once more; the grid shows their names then.
bool frmgrpmas::primaryGroupsThere() {
  if (!primaryGroupsRead_ && LOADGROUPS()) LOADGRID(0);
  return primaryGroupsRead_;
}

// The grids show a primary group by its name, as the combo box lists it.
std::vector<std::string> frmgrpmas::cellsOf(const Recordset& group) const {
  const int under = Combo1.findData(group.integer("GId"));
  return {group.text("AllId"), group.text("ALLGRP"),
          under > 0 ? Combo1.items()[static_cast<std::size_t>(under - 1)] : group.text("GId"),
          group.text("UserGrp"), std::to_string(group.integer("GId"))};
}

void frmgrpmas::LOADGRID(long groupId) {
  const Sql all = "Select * From Mast_AllGrp";
  const auto readOne = [&] {
    showFound(vsf, groupId, *context_.query(all + " Where AllId=" + sqlNumber(groupId)),
              [&](const Recordset& row) { return cellsOf(row); });
  };
  if (groupId > 0 && wasRead(vsf) && attempt("LOADGRID", readOne)) return;
  fillGrids("LOADGRID", {&vsf}, [&] {
    const auto rows = context_.query(all);
    refill(vsf, [&] {
      for (; !rows->EOF_(); rows->MoveNext()) vsf.addRow(cellsOf(*rows));
    });
    if (vsf.sortColumn() < 0) vsf.sortBy(nameColumn);
    if (groupId > 0) vsf.setCurrent(vsf.find(idColumn, std::to_string(groupId)));
  });
}

void frmgrpmas::reread() {
  LOADGRID(0);
  if (famMerge.visible()) LoadMergeGrid();
  if (!editing_ || entryStands(vsf, adding_)) return;
  SETBUTTON(false);
  LOADDATA();
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

void frmgrpmas::CMDBACK_CLICK() {
  trap("CMDBACK_CLICK", [&] { close(); });
}

}  // namespace quillet
