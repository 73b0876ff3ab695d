// The binding page: the items of the client's year.
#include <algorithm>
#include <initializer_list>

#include "masters/frmgrpRM.h"

namespace quillet {

void frmgrpRM::attachBinding() {
  vsfM.RowColChange = [this] {
    // While the grid is read anew the entry keeps what was chosen.
    if (!editing()) LOADDATAM();
  };
  vsfM.DblClick = [this] {
    if (cmdmodifyM.enabled()) CMDMODIFYM_CLICK();
  };
  cbohead.KeyPress = [this](Key& key) { enterIsTab(key); };
  for (auto& box : cbogroup) box->KeyPress = [this](Key& key) { enterIsTab(key); };
  cmdaddM.Click = [this] { CMDADDM_CLICK(); };
  cmdmodifyM.Click = [this] { CMDMODIFYM_CLICK(); };
  cmddeleteM.Click = [this] {
    CMDDELETEM_CLICK();
    focus(vsfM);
  };
  cmdupdateM.Click = [this] { CMDUPDATEM_CLICK(); };
  cmdcancelM.Click = [this] { CMDCANCELM_CLICK(); };
  cmdsortorder.Click = [this] { CMDSORTORDER_CLICK(); };
  cmdup.Click = [this] { CMDUP_CLICK(); };
  cmddown.Click = [this] { CMDDOWN_CLICK(); };
  cmdgrpM.Click = [this] { CMDGRPM_CLICK(); };
  cmdbackM.Click = [this] { CMDBACKM_CLICK(); };
}

// --- loading and showing ------------------------------------------------------------------------

MasterForm::ListedRow frmgrpRM::listed(const BoundItem& item) {
  items_[item.srNo] = item;
  ListedRow row{item.srNo, {nameIn(cbohead, item.head)}};
  for (int i = 0; const long group : item.groups) {
    row.cells.push_back(nameIn(cbogroup[i++], group));
  }
  return row;
}

bool frmgrpRM::LOADGRIDM(long srNo) {
  return showRows("LOADGRIDM", vsfM, srNo, [&](long id) {
    // The tables of a year that is gone may be another one's.
    const auto items = lock.gone() ? std::vector<BoundItem>() : binding_.items(id);
    if (id == 0) {
      // The order is the one that a person gave them.
      vsfM.clearSort();
      items_.clear();
    }
    std::vector<ListedRow> rows;
    for (const BoundItem& item : items) rows.push_back(listed(item));
    return rows;
  });
}

void frmgrpRM::LOADDATAM() {
  logErrors("LOADDATAM", [&] {
    if (vsfM.current() == 0) {
      CLEARDATAM();
      return;
    }
    const BoundItem& item = items_.at(vsfM.currentId());
    cbohead.setChosen(cbohead.findData(item.head));
    for (int i = 0; const long group : item.groups) {
      ComboBox& box = cbogroup[i++];
      box.setChosen(box.findData(group));
    }
  });
}

void frmgrpRM::CLEARDATAM() {
  logErrors("CLEARDATAM", [&] {
    cbohead.setChosen(0);
    for (auto& box : cbogroup) box->setChosen(box->findData(0));
  });
}

void frmgrpRM::setStateM(State state) {
  state_ = state;
  SETBUTTONSM();
}

void frmgrpRM::SETBUTTONSM() {
  logErrors("SETBUTTONSM", [&] {
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
    if (lock.refuses() || !listsThere()) return;
    addedId_ = 0;
    CLEARDATAM();
    setStateM(State::adding);
    focus(cbohead);
  });
}

void frmgrpRM::CMDMODIFYM_CLICK() {
  command("CMDMODIFYM_CLICK", [&] {
    if (!itemSelected(vsfM) || lock.refuses() || !listsThere()) return;
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
  showPage(famG);
  LOADGRIDG(0);
  CLEARDATAG();
  setStateG(State::browsing);
  focus(vsfG);
}

void frmgrpRM::CMDBACKM_CLICK() { close(); }

// --- saving and deleting ------------------------------------------------------------------------

void frmgrpRM::CMDUPDATEM_CLICK() {
  command("CMDUPDATEM_CLICK", [&] {
    if (lock.refuses()) return;
    if (state_ == State::sorting) {
      UPDATESORTNOS();
      return;
    }
    if (!asSeen()) return;
    BoundItem item = chosenItem();
    if (!choicesHold() || !groupsFree(item)) return;
    if (state_ == State::adding) {
      addedId_ = item.srNo = binding_.insert(item);
      flush();
    } else {
      binding_.update(item);
    }
    setStateM(State::browsing);
    // A group that was released need not be on offer any more.
    LOADLIST();
    LOADGRIDM(item.srNo);
    focus(vsfM);
  });
}

BoundItem frmgrpRM::chosenItem() const {
  BoundItem item;
  if (state_ == State::modifying) item.srNo = vsfM.currentId();
  item.head = cbohead.chosenData();
  for (int i = 0; long& group : item.groups) group = cbogroup[i++].chosenData();
  return item;
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

bool frmgrpRM::groupsFree(const BoundItem& item) {
  for (int i = 0; i < cbogroup.size(); ++i) {
    const long group = item.groups[i];
    if (group == 0 || !binding_.isBound(i, group, item.srNo)) continue;
    tell(lblgrp[i].caption() + " already used!!");
    focus(cbogroup[i]);
    return false;
  }
  return true;
}

void frmgrpRM::CMDDELETEM_CLICK() {
  command("CMDDELETEM_CLICK", [&] {
    if (!itemSelected(vsfM) || lock.refuses() ||
        !ask("Do you want to delele the Selected Item ?", "Delete Confirmation")) {
      return;
    }
    const int row = vsfM.current();
    binding_.remove(items_.at(vsfM.currentId()));
    LOADLIST();
    LOADGRIDM(0);
    makeCurrent(vsfM, std::min(row, vsfM.rows()));
  });
}

}  // namespace quillet
