#include "masters/frmgrpRM.h"

#include "data/year.h"

namespace quillet {
namespace {

constexpr int groupWidth = 20;  // at least
constexpr const char* none = "(None)";

}  // namespace

frmgrpRM::frmgrpRM(Context& context) : MasterForm(context, "frmgrpRM") {
  lock.typed = [this] { return famM.visible() && state_ != State::browsing; };
  vsfM.setColumns({{.heading = "Raw Material Group", .width = groupWidth, .stretch = true},
                   {.heading = lblgrp[0].caption(), .width = groupWidth, .stretch = true},
                   {.heading = lblgrp[1].caption(), .width = groupWidth, .stretch = true},
                   {.heading = lblgrp[2].caption(), .width = groupWidth, .stretch = true}});
  vsfG.setColumns({{.heading = "Heading", .width = groupWidth, .stretch = true},
                   {.heading = "Type", .width = groupWidth}});
  vsfM.setEmptyText(
      "\"Add Item\" binds groups to a heading, \"Group Heads...\" makes the headings.");
  vsfG.setEmptyText("\"Add Head\" makes a heading.");
  vsfM.setZebra(true);
  vsfM.sortable = false;  // its order is kept by hand, and stored
  vsfG.setZebra(true);
  KeyPress = [this](Key& key) { FORM_KEYPRESS(key); };
  attachBinding();
  attachHeads();
}

LayoutItem frmgrpRM::layout() {
  std::vector<LayoutItem> choices{
      column({item(lblhead), named("Heading of the group", item(cbohead, 1, groupWidth))}, 1)};
  for (int i = 0; i < lblgrp.size(); ++i) {
    choices.push_back(column({item(lblgrp[i]), named("Group of " + lblgrp[i].caption(),
                                                     item(cbogroup[i], 1, groupWidth))},
                             1));
  }
  choices.push_back(gap());
  choices.push_back(item(cmdupdateM));
  choices.push_back(item(cmdcancelM));
  const LayoutItem commands =
      row({item(cmdaddM), item(cmdmodifyM), item(cmddeleteM), item(cmdsortorder), item(cmdup),
           item(cmddown), gap(), item(cmdgrpM), item(cmdbackM)});
  const LayoutItem head =
      row({field("&Heading", txthead, groupWidth, 2), field("&Type", cbotype, groupWidth, 1),
           item(cmdupdateG), item(cmdcancelG)});
  const LayoutItem headCommands =
      row({item(cmdaddG), item(cmdmodifyG), item(cmddeleteG), gap(), item(cmdbackG)});
  return column(
      {item(lbllock),
       stack(
           {framed(famM,
                   {named("Raw material groups", item(vsfM, 1)), row(std::move(choices)), commands},
                   1),
            framed(famG, {named("Headings", item(vsfG, 1)), head, item(lblhint), headCommands},
                   1)}),
       item(lblstatus)});
}

void frmgrpRM::INITDATA(const BoundYear& year) {
  lock.open({year.table, year.client}, {year.firstDate, year.secondDate});
  logErrors("INITDATA", [&] {
    binding_.open(year.client, year.table, {year.firstDate, year.secondDate});
    setCaption("Group Binding (Manufacturing) of " + year.clientName + " for the Period from " +
               shownDate(year.firstDate) + " to " + shownDate(year.secondDate));
  });
}

void frmgrpRM::FORM_LOAD() {
  context_.host->resize_for_resolution(*this);
  lblstatus.setCaption("");
  setStateM(State::browsing);
  for (Grid* grid : {&vsfM, &vsfG}) grid->clearRows();
  CLEARDATAM();
  showPage(famM);
  LOADLIST();
  logErrors("FORM_LOAD", [&] { lock.read(); });
  const bool read = LOADGRIDM(0);
  // Only a year that has no binding takes the previous one's.
  if (read && vsfM.rows() == 0 && !lock.locked()) IMPORTFROMPREVYR();
}

void frmgrpRM::FORM_KEYPRESS(Key& key) {
  if (key != keys::Escape) return;
  key = keys::none;
  if (state_ == State::sorting) {
    if (ask("Do you want to Cancel Changes in Sorting Order?")) CMDCANCELM_CLICK();
  } else if (!editing()) {
    click(famG.visible() ? cmdbackG : cmdbackM);
  } else if (ask("Do you want to Cancel Entry?")) {
    click(famG.visible() ? cmdcancelG : cmdcancelM);
  }
}

void frmgrpRM::reread() {
  const bool heads = famG.visible();
  if (heads) {
    LOADGRIDG(0);
  } else {
    // The lists hold what an entry has chosen.
    if (!editing()) LOADLIST();
    LOADGRIDM(0);
  }
  // An entry of a year that is gone can be read until it is given up.
  if (!editing() || (!heads && lock.gone())) return;
  bool adding = state_ == State::adding;
  if (entryStands(heads ? vsfG : vsfM, adding)) {
    state_ = adding ? State::adding : State::modifying;
  } else if (heads) {
    setStateG(State::browsing);
    LOADDATAG();
  } else {
    setStateM(State::browsing);
    LOADDATAM();
  }
}

// The year may be free by now, or somebody else's.
void frmgrpRM::takenBack() {
  logErrors("TAKENBACK", [&] { lock.read(); });
  reread();
}

void frmgrpRM::booksMoved(bool) {
  std::vector<long> order;
  for (int row = 1; row <= vsfM.rows(); ++row) order.push_back(vsfM.rowId(row));
  logErrors("BOOKSMOVED", [&] { lock.read(); });
  showMoved();
  if (state_ != State::sorting) return;
  // The order that a person is giving them.
  for (int to = 0; const long item : order) {
    if (const int row = vsfM.findId(item); row > 0) vsfM.moveRow(row, ++to);
  }
}

std::vector<std::string> frmgrpRM::atStake() const {
  const Grid& grid = famG.visible() ? vsfG : vsfM;
  const long id = state_ == State::adding ? 0 : grid.currentId();
  return cellsOf(grid, id, static_cast<int>(grid.columns().size()));
}

void frmgrpRM::FORM_UNLOAD(bool& cancel) {
  cancel = !ask("Do you want to Exit?");
  if (!cancel) lock.close();
}

void frmgrpRM::showPage(Frame& page) {
  for (Frame* each : {&famM, &famG}) each->setVisible(each == &page);
}

// --- lists --------------------------------------------------------------------------------------

bool frmgrpRM::LOADLIST() {
  const auto clear = [&] {
    cbohead.clearItems();
    for (auto& box : cbogroup) box->clearItems();
  };
  clear();
  listsRead_ = attempt("LOADLIST", [&] {
    if (lock.gone()) return;
    for (const RawMaterialHead& head : heads_.seeded()) cbohead.addItem(head.name, head.id);
    for (int i = 0; const auto& names : binding_.choices()) {
      ComboBox& box = cbogroup[i++];
      box.addItem(none, 0);
      for (const NamedId& group : names) box.addItem(group.name, group.id);
    }
  });
  if (!listsRead_) {
    clear();
    status("The groups to choose from could not be read; the error log says why.");
  }
  return listsRead_;
}

bool frmgrpRM::listsThere() {
  if (!listsRead_ && LOADLIST()) LOADGRIDM(0);
  return listsRead_;
}

}  // namespace quillet
