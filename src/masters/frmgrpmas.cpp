#include "masters/frmgrpmas.h"

#include <initializer_list>
#include <utility>

namespace quillet {

frmgrpmas::frmgrpmas(Context& context) : MasterForm(context, "frmgrpmas") {
  setCaption("Group Master");
  setColumns();
  vsf.setEmptyText("\"Add Group\" makes a group.");
  vsM.setEmptyText("Only groups that were added can be merged into others.");
  for (Grid* grid : {&vsf, &vsM, &vsMW}) grid->setZebra(true);
  Text1.setMaxLength(nameLength);
  Text1.Overflow = [this] { lblhint.setCaption("A group name holds at most 100 characters."); };
  Text1.Change = [this] { lblhint.setCaption(""); };
  for (Control* field : {static_cast<Control*>(&Text1), static_cast<Control*>(&Combo1)}) {
    field->KeyPress = [this](Key& key) { enterIsTab(key); };
  }
  lblhint.setQuiet(true);

  KeyPress = [this](Key& key) { FORM_KEYPRESS(key); };
  vsf.RowColChange = [this] {
    // While the grid is read anew the entry keeps what was typed.
    if (!editing_) LOADDATA();
  };
  vsf.DblClick = [this] { CMDMODIFY_CLICK(); };
  cmdadd.Click = [this] { CMDADD_CLICK(); };
  cmdmodify.Click = [this] { CMDMODIFY_CLICK(); };
  cmdupdate.Click = [this] { CMDUPDATE_CLICK(); };
  cmddelete.Click = [this] {
    CMDDELETE_CLICK();
    focus(vsf);
  };
  cmdcancel.Click = [this] { CMDCANCEL_CLICK(); };
  cmdback.Click = [this] { CMDBACK_CLICK(); };
  attachMappingPage();
  cmdShow.Click = [this] { CMDSHOW_CLICK(); };
  vsCols.AfterEdit = [this](int row, int) { VSCOLS_AFTEREDIT(row); };
  cmdShowBack.Click = [this] { CMDSHOWBACK_CLICK(); };
  // Where the host has no heads, there is nothing to map to and nothing of it to show.
  for (Button* page : {&cmdMap, &cmdShow}) page->setVisible(heads_ != nullptr);
  on(cmdMerge.Click, "cmdMerge_Click", [this] { cmdMerge_Click(); });
  cmdMergeGroup.Click = [this] { cmdMergeGroup_Click(); };
  cmdMergeBack.Click = [this] { cmdMergeBack_Click(); };
}

void frmgrpmas::setColumns() {
  columns_.setColumns();
  // The two grids of the merge page share its width.
  const std::vector<GridColumn> narrow = {{.heading = "Group", .width = 20, .stretch = true},
                                          {.heading = "Under Group", .width = 16, .stretch = true}};
  vsMW.setColumns(narrow);
  auto withTicks = narrow;
  withTicks.push_back({.heading = "Merge", .align = Align::center, .width = 7, .tick = true});
  vsM.setColumns(withTicks);
}

LayoutItem frmgrpmas::layout() {
  const LayoutItem fields =
      row({field("Group &Name", Text1, 40, 3), field("Under Gr&oup", Combo1, 30, 2),
           item(cmdupdate), item(cmdcancel)});
  const LayoutItem commands = row({item(cmdadd), item(cmdmodify), item(cmddelete), item(cmdMerge),
                                   item(cmdMap), item(cmdShow), gap(), item(cmdback)});
  const LayoutItem merge =
      row({column({item(lblmerge), named("Groups to merge", item(vsM, 1))}, 1),
           column({item(lblmergewith), named("Group to merge with", item(vsMW, 1))}, 1)},
          1);
  return column(
      {stack({framed(famMain, {named("Groups", item(vsf, 1)), fields, item(lblhint), commands}, 1),
              framed(famMerge, {merge, row({gap(), item(cmdMergeGroup), item(cmdMergeBack)})}, 1),
              mappingPage(),
              framed(famCols,
                     {item(lblCols), named("Columns of the group master", item(vsCols, 1)),
                      row({gap(), item(cmdShowBack)})},
                     1)}),
       item(lblstatus)});
}

// --- loading ------------------------------------------------------------------------------------

void frmgrpmas::FORM_LOAD() {
  context_.host->resize_for_resolution(*this);
  groupsChanged_ = linesTouched_ = false;
  newGroupId_ = 0;
  lblstatus.setCaption("");
  SETBUTTON(false);
  vsf.clearRows();
  vsf.clearSort();
  vsf.sortBy(nameColumn);
  CLEARDATA();
  mapper_.setClient(givenClient_.value_or(context_.clientCode));
  mapped_.clear();
  showPage(famMain);
  LOADSETUP();
  LOADGROUPS();
  LOADGRID(0);
}

bool frmgrpmas::LOADGROUPS() {
  Combo1.clearItems();
  primaryGroupsRead_ = attempt("LOADGROUPS", [&] {
    for (const NamedId& group : master_.primaryGroups()) Combo1.addItem(group.name, group.id);
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
MasterForm::ListedRow frmgrpmas::listed(const AccountGroup& group) {
  primaryGroups_[group.id] = group.primaryGroup;
  std::vector<std::string> cells{group.name, nameIn(Combo1, group.primaryGroup), group.user};
  if (const auto found = shownMappings_.find(group.id); found != shownMappings_.end()) {
    for (std::string& cell : mappingCells(headList_, found->second)) {
      cells.push_back(std::move(cell));
    }
  }
  return {group.id, std::move(cells)};
}

void frmgrpmas::LOADGRID(long groupId) {
  showRows("LOADGRID", vsf, groupId, [&](long id) {
    std::vector<ListedRow> rows;
    shownMappings_ = columns_.showMapping() ? mapper_.effective() : GroupMappings();
    for (const AccountGroup& group : master_.groups(id)) rows.push_back(listed(group));
    return rows;
  });
}

void frmgrpmas::reread() {
  LOADGRID(0);
  if (famMerge.visible()) LoadMergeGrid();
  if (famMap.visible()) LOADMAPGRID();
  if (!editing_ || entryStands(vsf, adding_)) return;
  SETBUTTON(false);
  LOADDATA();
}

std::vector<std::string> frmgrpmas::atStake() const {
  if (!famMap.visible()) return cellsOf(vsf, adding_ ? 0 : vsf.currentId(), userColumn);
  std::vector<std::string> chosen{optMap[1].checked() ? "own" : "common"};
  for (const long group : mapped_.chosen()) {
    for (std::string& cell : cellsOf(vsMap, group, MappedGroups::tickColumn)) {
      chosen.push_back(std::move(cell));
    }
  }
  return chosen;
}

void frmgrpmas::takenBack() {
  if (choiceAct_ == openForms().acts.number()) choiceMade_ = false;
  MasterForm::takenBack();
}

void frmgrpmas::LOADDATA() {
  logErrors("LOADDATA", [&] {
    if (vsf.current() == 0) {
      CLEARDATA();
      return;
    }
    Text1.setText(vsf.cell(vsf.current(), nameColumn));
    Combo1.setChosen(Combo1.findData(primaryGroups_.at(vsf.currentId())));
  });
}

void frmgrpmas::CLEARDATA() {
  logErrors("CLEARDATA", [&] {
    Text1.setText("");
    Combo1.setChosen(0);
  });
}

void frmgrpmas::SETBUTTON(bool edit) {
  logErrors("SETBUTTON", [&] {
    editing_ = edit;
    for (Control* browse : std::initializer_list<Control*>{
             &vsf, &cmdadd, &cmdmodify, &cmddelete, &cmdMerge, &cmdMap, &cmdShow, &cmdback}) {
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
  if (key != keys::Escape) return;
  key = keys::none;
  if (famMerge.visible()) {
    cmdMergeBack_Click();
  } else if (famMap.visible()) {
    CMDMAPBACK_CLICK();
  } else if (famCols.visible()) {
    CMDSHOWBACK_CLICK();
  } else if (!editing_) {
    CMDBACK_CLICK();
  } else if (ask("Do you want to Cancel this Entry?")) {
    CMDCANCEL_CLICK();
  }
}

void frmgrpmas::CMDBACK_CLICK() { close(); }

}  // namespace quillet
