// The binding page: the items of the client's year.
#include <algorithm>
#include <initializer_list>
#include <utility>

#include "data/sql.h"
#include "masters/frmgrpRM.h"

namespace quillet {
namespace {

// How a combo box lists the id; an id that it does not list is shown bare, "no head" not at all.
std::string nameIn(const ComboBox& box, long id) {
  const int position = box.findData(id);
  if (position > 0) return box.items()[static_cast<std::size_t>(position - 1)];
  return id == 0 ? "" : std::to_string(id);
}

}  // namespace

void frmgrpRM::attachBinding() {
  vsfM.RowColChange = [this] {
    // While the grid is read anew the entry keeps what was chosen.
    if (!editing()) LOADDATAM();
  };
  vsfM.DblClick = [this] {
    if (cmdmodifyM.enabled()) CMDMODIFYM_CLICK();
  };
  vsfM.KeyPress = [this](Key& key) { searchByTyping(vsfM, headName, key); };
  cbohead.KeyPress = [this](Key& key) { enterIsTab(key); };
  for (auto& box : cbogroup) box->KeyPress = [this](Key& key) { enterIsTab(key); };
  cmdaddM.Click = [this] { CMDADDM_CLICK(); };
  cmdmodifyM.Click = [this] { CMDMODIFYM_CLICK(); };
  cmddeleteM.Click = [this] { CMDDELETEM_CLICK(); };
  cmdupdateM.Click = [this] { CMDUPDATEM_CLICK(); };
  cmdcancelM.Click = [this] { CMDCANCELM_CLICK(); };
  cmdsortorder.Click = [this] { CMDSORTORDER_CLICK(); };
  cmdup.Click = [this] { CMDUP_CLICK(); };
  cmddown.Click = [this] { CMDDOWN_CLICK(); };
  cmdgrpM.Click = [this] { CMDGRPM_CLICK(); };
  cmdbackM.Click = [this] { CMDBACKM_CLICK(); };
}

// --- loading and showing ------------------------------------------------------------------------

std::vector<std::string> frmgrpRM::cellsOf(const Recordset& row) const {
  std::vector<std::string> cells{row.text("SrNo"), std::to_string(row.integer("GrpSr"))};
  for (const char* field : groupFields) cells.push_back(std::to_string(row.integer(field)));
  cells.push_back(std::to_string(row.integer("GrpOrder")));
  cells.push_back(nameIn(cbohead, row.integer("GrpSr")));
  for (int i = 0; i < columns; ++i) {
    cells.push_back(nameIn(cbogroup[i], row.integer(groupFields[i])));
  }
  return cells;
}

bool frmgrpRM::LOADGRIDM(long srNo) {
  const Sql all = "Select * from " + table_ + ofClient();
  const auto readOne = [&] {
    showFound(vsfM, srNo, *context_.query(all + " and SrNo=" + sqlNumber(srNo)),
              [&](const Recordset& row) { return cellsOf(row); });
  };
  if (srNo > 0 && wasRead(vsfM) && attempt("LOADGRIDM", readOne)) return true;
  return fillGrids("LOADGRIDM", {&vsfM}, [&] {
    const auto found = context_.query(all);
    std::vector<std::vector<std::string>> items;
    for (; !found->EOF_(); found->MoveNext()) items.push_back(cellsOf(*found));
    std::stable_sort(items.begin(), items.end(), [](const auto& a, const auto& b) {
      return std::stol(a[orderColumn]) < std::stol(b[orderColumn]);
    });
    vsfM.clearSort();
    refill(vsfM, [&] {
      for (auto& cells : items) vsfM.addRow(std::move(cells));
    });
    if (srNo > 0) vsfM.setCurrent(vsfM.find(srNoColumn, std::to_string(srNo)));
  });
}

void frmgrpRM::LOADDATAM() {
  trap("LOADDATAM", [&] {
    const int row = vsfM.current();
    if (row == 0) {
      CLEARDATAM();
      return;
    }
    cbohead.setChosen(cbohead.findData(idAt(vsfM, row, grpSrColumn)));
    for (int i = 0; i < columns; ++i) {
      cbogroup[i].setChosen(cbogroup[i].findData(idAt(vsfM, row, osColumn + i)));
    }
  });
}

void frmgrpRM::CLEARDATAM() {
  trap("CLEARDATAM", [&] {
    cbohead.setChosen(0);
    for (auto& box : cbogroup) box->setChosen(box->findData(0));
  });
}

void frmgrpRM::setStateM(State state) {
  state_ = state;
  SETBUTTONSM();
}

void frmgrpRM::SETBUTTONSM() {
  trap("SETBUTTONSM", [&] {
    const bool browsing = state_ == State::browsing;
    const bool sorting = state_ == State::sorting;
    for (Button* command : {&cmdaddM, &cmdmodifyM, &cmddeleteM, &cmdgrpM, &cmdbackM}) {
      command->setEnabled(browsing);
    }
    cmdsortorder.setEnabled(!editing());
    cmdup.setEnabled(sorting);
    cmddown.setEnabled(sorting);
    cmdupdateM.setEnabled(!browsing);
    cmdcancelM.setEnabled(!browsing);
    vsfM.setEnabled(!editing());
    cbohead.setEnabled(editing());
    for (auto& box : cbogroup) box->setEnabled(editing());
  });
}

void frmgrpRM::CMDADDM_CLICK() {
  command("CMDADDM_CLICK", [&] {
    if (!listsThere()) return;
    addedId_ = 0;
    CLEARDATAM();
    setStateM(State::adding);
    focus(cbohead);
  });
}

void frmgrpRM::CMDMODIFYM_CLICK() {
  command("CMDMODIFYM_CLICK", [&] {
    if (!itemSelected(vsfM) || !listsThere()) return;
    LOADDATAM();
    setStateM(State::modifying);
    focus(cbohead);
  });
}

void frmgrpRM::CMDCANCELM_CLICK() {
  command("CMDCANCELM_CLICK", [&] {
    const bool moved = state_ == State::sorting;
    setStateM(State::browsing);
    if (moved) LOADGRIDM(0);
    LOADDATAM();
    focus(vsfM);
  });
}

void frmgrpRM::CMDGRPM_CLICK() {
  trap("CMDGRPM_CLICK", [&] {
    showPage(famG);
    LOADGRIDG(0);
    CLEARDATAG();
    setStateG(State::browsing);
    focus(vsfG);
  });
}

void frmgrpRM::CMDBACKM_CLICK() {
  trap("CMDBACKM_CLICK", [&] { close(); });
}

// --- saving and deleting ------------------------------------------------------------------------

void frmgrpRM::CMDUPDATEM_CLICK() {
  command("CMDUPDATEM_CLICK", [&] {
    if (state_ == State::sorting) {
      UPDATESORTNOS();
      return;
    }
    if (!choicesHold() || !groupsFree()) return;
    long srNo = 0;
    if (state_ == State::adding) {
      srNo = insertItem();
    } else {
      srNo = idAt(vsfM, vsfM.current(), srNoColumn);
      updateItem(srNo);
    }
    setStateM(State::browsing);
    // A group that was released need not be on offer any more.
    LOADLIST();
    LOADGRIDM(srNo);
    focus(vsfM);
  });
}

bool frmgrpRM::choicesHold() {
  if (cbohead.chosen() == 0) {
    tell("Please Select 'Raw Material Group Type'.");
    focus(cbohead);
    return false;
  }
  for (auto& box : cbogroup) {
    if (box->chosenData() != 0) return true;
  }
  tell("Please Select Group for atleast one Item.");
  focus(cbogroup[0]);
  return false;
}

bool frmgrpRM::groupsFree() {
  for (int i = 0; i < columns; ++i) {
    const long group = cbogroup[i].chosenData();
    if (group == 0) continue;
    Sql sql = "Select * from " + table_ + ofClient() + " and " + sqlName(groupFields[i]) + "=" +
              sqlNumber(group);
    if (state_ == State::modifying) {
      sql += " and SrNo<>" + sqlNumber(idAt(vsfM, vsfM.current(), srNoColumn));
    }
    if (context_.query(sql)->EOF_()) continue;
    tell(lblgrp[i].caption() + " already used!!");
    focus(cbogroup[i]);
    return false;
  }
  return true;
}

long frmgrpRM::insertItem() {
  const auto next = [&](const Sql& column) {
    const auto row = context_.query("Select Max(" + column + ") from " + table_ + ofClient());
    return row->integer(0) + 1;
  };
  const long srNo = next("SrNo");
  const long order = next("GrpOrder");
  context_.host->ConQuery("Insert Into " + table_ + " Values ('" + client_ + "'," +
                          sqlNumber(srNo) + "," + sqlNumber(cbohead.chosenData()) + "," +
                          sqlNumber(cbogroup[0].chosenData()) + "," +
                          sqlNumber(cbogroup[1].chosenData()) + ",0," +
                          sqlNumber(cbogroup[2].chosenData()) + "," + sqlNumber(order) + ")");
  addedId_ = srNo;
  flush();
  return srNo;
}

void frmgrpRM::updateItem(long srNo) {
  change("Update " + table_ + " Set GrpSr=" + sqlNumber(cbohead.chosenData()) + ",OsGrpId=" +
         sqlNumber(cbogroup[0].chosenData()) + ",PurGrpId=" + sqlNumber(cbogroup[1].chosenData()) +
         ",SalGrpId=0,CsGrpId=" + sqlNumber(cbogroup[2].chosenData()) + ofClient() +
         " and SrNo=" + sqlNumber(srNo));
}

void frmgrpRM::CMDDELETEM_CLICK() {
  command("CMDDELETEM_CLICK", [&] {
    if (!itemSelected(vsfM) ||
        !ask("Do you want to delele the Selected Item ?", "Delete Confirmation")) {
      return;
    }
    const int row = vsfM.current();
    const Sql order = sqlNumber(idAt(vsfM, row, orderColumn));
    change("Delete from " + table_ + ofClient() +
           " and SrNo=" + sqlNumber(idAt(vsfM, row, srNoColumn)));
    change("Update " + table_ + " Set GrpOrder=GrpOrder-1" + ofClient() + " and GrpOrder>" + order);
    LOADLIST();
    LOADGRIDM(0);
    makeCurrent(vsfM, std::min(row, vsfM.rows()));
  });
}

}  // namespace quillet
