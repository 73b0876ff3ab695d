#include "masters/frmgrpRM.h"

#include "data/sql.h"
#include "data/table_names.h"
#include "data/year.h"

namespace quillet {
namespace {

constexpr int groupWidth = 28;
constexpr const char* none = "(None)";

}  // namespace

frmgrpRM::frmgrpRM(Context& context) : MasterForm(context, "frmgrpRM") {
  vsfM.setColumns({{.heading = "SrNo", .hidden = true},
                   {.heading = "GrpSr", .hidden = true},
                   {.heading = "OsGrpId", .hidden = true},
                   {.heading = "PurGrpId", .hidden = true},
                   {.heading = "CsGrpId", .hidden = true},
                   {.heading = "GrpOrder", .hidden = true},
                   {.heading = "Raw Material Group", .width = groupWidth, .stretch = true},
                   {.heading = lblgrp[0].caption(), .width = groupWidth},
                   {.heading = lblgrp[1].caption(), .width = groupWidth},
                   {.heading = lblgrp[2].caption(), .width = groupWidth}});
  vsfG.setColumns({{.heading = "GrpId", .hidden = true},
                   {.heading = "Heading", .width = groupWidth, .stretch = true},
                   {.heading = "GrpType", .hidden = true},
                   {.heading = "Type", .width = groupWidth}});
  vsfM.zebra = vsfG.zebra = true;
  KeyPress = [this](Key& key) { FORM_KEYPRESS(key); };
  attachBinding();
  attachHeads();
}

Node frmgrpRM::layout() {
  std::vector<Node> choices{column({item(lblhead), item(cbohead, 0, groupWidth)}, 1)};
  for (int i = 0; i < columns; ++i) {
    choices.push_back(column({item(lblgrp[i]), item(cbogroup[i], 0, groupWidth)}, 1));
  }
  choices.push_back(gap());
  choices.push_back(item(cmdupdateM));
  choices.push_back(item(cmdcancelM));
  const Node commands = row({item(cmdaddM), item(cmdmodifyM), item(cmddeleteM), item(cmdsortorder),
                             item(cmdup), item(cmddown), gap(), item(cmdgrpM), item(cmdbackM)});
  const Node head =
      row({field("&Heading", txthead, groupWidth, 2), field("&Type", cbotype, groupWidth, 1),
           item(cmdupdateG), item(cmdcancelG)});
  const Node headCommands =
      row({item(cmdaddG), item(cmdmodifyG), item(cmddeleteG), gap(), item(cmdbackG)});
  return column({stack({framed(famM, {item(vsfM, 1), row(std::move(choices)), commands}, 1),
                        framed(famG, {item(vsfG, 1), head, item(lblhint), headCommands}, 1)}),
                 item(lblstatus)});
}

void frmgrpRM::INITDATA(const BoundYear& year) {
  trap("INITDATA", [&] {
    year_ = year;
    client_ = context_.host->escaped(year.client);
    table_ = sqlName(siblingTable(year.table, "RMGRP_"));
    setCaption("Group Binding (Manufacturing) of " + year.clientName + " for the Period from " +
               shownDate(year.firstDate) + " to " + shownDate(year.secondDate));
  });
}

void frmgrpRM::FORM_LOAD() {
  trap("FORM_LOAD", [&] {
    context_.host->resize_for_resolution(*this);
    lblstatus.setCaption("");
    setStateM(State::browsing);
    for (Grid* grid : {&vsfM, &vsfG}) grid->clearRows();
    CLEARDATAM();
    showPage(famM);
    LOADLIST();
    const bool read = LOADGRIDM(0);
    // Only a year that has no binding takes the previous one's.
    if (read && vsfM.rows() == 0) IMPORTFROMPREVYR();
  });
}

void frmgrpRM::FORM_KEYPRESS(Key& key) {
  trap("FORM_KEYPRESS", [&] {
    if (key != keys::Escape) return;
    key = keys::none;
    if (state_ == State::sorting) {
      if (ask("Do you want to Cancel Changes in Sorting Order?")) CMDCANCELM_CLICK();
    } else if (editing() && ask("Do you want to Cancel Entry?")) {
      if (famG.visible()) {
        CMDCANCELG_CLICK();
      } else {
        CMDCANCELM_CLICK();
      }
    }
  });
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
  if (!editing()) return;
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

void frmgrpRM::FORM_UNLOAD(bool& cancel) {
  trap("FORM_UNLOAD", [&] { cancel = !ask("Do you want to Exit?"); });
}

void frmgrpRM::showPage(Frame& page) {
  for (Frame* each : {&famM, &famG}) each->setVisible(each == &page);
}

long frmgrpRM::idAt(const Grid& grid, int row, int column) {
  return std::stol(grid.cell(row, column));
}

// --- lists --------------------------------------------------------------------------------------

bool frmgrpRM::LOADLIST() {
  const auto clear = [&] {
    cbohead.clearItems();
    for (auto& box : cbogroup) box->clearItems();
  };
  clear();
  listsRead_ = attempt("LOADLIST", [&] {
    loadHeads();
    loadGroups();
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

void frmgrpRM::loadHeads() {
  const Sql sql = "Select * from RawMatGrpM Order by GrpId";
  auto rows = context_.query(sql);
  if (rows->EOF_()) {
    seedHeads();
    rows = context_.query(sql);
  }
  for (; !rows->EOF_(); rows->MoveNext()) {
    cbohead.addItem(rows->text("GrpHead"), rows->integer("GrpId"));
  }
}

void frmgrpRM::seedHeads() {
  const Sql heads[] = {"1,'RAW MATERIAL',1", "2,'FINISHED GOODS',2", "3,'WORK-IN-PROGRESS',3",
                       "4,'STORES AND SPARES',4", "5,'OTHER CONSUMABLES',4"};
  for (const Sql& head : heads) {
    context_.host->ConQuery("Insert into RawMatGrpM Values (" + head + ")");
  }
  flush();
}

void frmgrpRM::addIds(IdList& list, const Sql& sql) {
  for (const auto rows = context_.query(sql); !rows->EOF_(); rows->MoveNext()) {
    if (rows->field(0)) list.add(rows->integer(0));
  }
}

// The groups of each column that the year's figures use.
std::array<IdList, frmgrpRM::columns> frmgrpRM::groupsInUse() {
  std::array<IdList, columns> lists;
  const Sql table = sqlName(year_.table);
  for (const int i : {0, 1}) {
    addIds(lists[static_cast<std::size_t>(i)],
           "Select Distinct " + table + ".allid from " + table + ",mast_allgrp Where " + table +
               ".allid=mast_allgrp.allid and mast_allgrp.gid=" + sqlNumber(primaryGroups[i]) +
               " and " + table + ".Code_No='" + client_ + "'");
  }
  const Sql stock = sqlName(siblingTable(year_.table, "TRADE_"));
  addIds(lists[2], "Select Distinct " + stock + ".allid from " + stock + ofClient());
  return lists;
}

std::array<std::vector<long>, frmgrpRM::columns> frmgrpRM::boundGroups() {
  std::array<std::vector<long>, columns> lists;
  const auto items = context_.query("Select * from " + table_ + ofClient());
  for (; !items->EOF_(); items->MoveNext()) {
    for (std::size_t i = 0; i < lists.size(); ++i) {
      lists[i].push_back(items->integer(groupFields[i]));
    }
  }
  return lists;
}

// Each column offers what the year uses and what is bound already.
void frmgrpRM::loadGroups() {
  auto lists = groupsInUse();
  const auto bound = boundGroups();
  for (int i = 0; i < columns; ++i) {
    const auto column = static_cast<std::size_t>(i);
    ComboBox& box = cbogroup[i];
    box.addItem(none, 0);
    IdList& ids = lists[column];
    for (const long id : bound[column]) ids.add(id);
    if (ids.empty()) continue;
    const auto rows =
        context_.query("Select * from Mast_AllGrp Where GID=" + sqlNumber(primaryGroups[i]) +
                       " and AllId in (" + ids.sql() + ") Order by AllGrp");
    for (; !rows->EOF_(); rows->MoveNext()) {
      box.addItem(rows->text("ALLGRP"), rows->integer("AllId"));
    }
    // What was bound and has moved under another primary group, or was merged away, stays bound
    // until a person chooses otherwise.
    for (const long id : bound[column]) {
      if (box.findData(id) == 0) box.addItem(std::to_string(id), id);
    }
  }
}

}  // namespace quillet
