// The heads page: the raw-material heads that all clients bind their groups to.
#include <algorithm>
#include <utility>

#include "data/names.h"
#include "host/meant_name.h"
#include "masters/frmgrpRM.h"

namespace quillet {
namespace {

enum Column { headColumn, typeColumn };

}  // namespace

void frmgrpRM::attachHeads() {
  for (const char* type : {"RAW MATERIAL", "FINISHED GOODS", "WORK-IN-PROGRESS", "OTHERS"}) {
    cbotype.addItem(type, cbotype.size() + 1);
  }
  txthead.setMaxLength(nameLength);
  txthead.Overflow = [this] { lblhint.setCaption("A heading holds at most 100 characters."); };
  txthead.Change = [this] { lblhint.setCaption(""); };
  txthead.KeyPress = [this](Key& key) { enterIsTab(key); };
  cbotype.KeyPress = [this](Key& key) { enterIsTab(key); };
  lblhint.setQuiet(true);
  vsfG.RowColChange = [this] {
    if (!editing()) LOADDATAG();
  };
  vsfG.DblClick = [this] {
    if (cmdmodifyG.enabled()) CMDMODIFYG_CLICK();
  };
  cmdaddG.Click = [this] { CMDADDG_CLICK(); };
  cmdmodifyG.Click = [this] { CMDMODIFYG_CLICK(); };
  cmddeleteG.Click = [this] {
    CMDDELETEG_CLICK();
    focus(vsfG);
  };
  cmdupdateG.Click = [this] { CMDUPDATEG_CLICK(); };
  cmdcancelG.Click = [this] { CMDCANCELG_CLICK(); };
  cmdbackG.Click = [this] { CMDBACKG_CLICK(); };
}

// --- loading and showing ------------------------------------------------------------------------

MasterForm::ListedRow frmgrpRM::listed(const RawMaterialHead& head) const {
  return {head.id, {head.name, nameIn(cbotype, head.type)}};
}

void frmgrpRM::LOADGRIDG(long grpId) {
  showRows("LOADGRIDG", vsfG, grpId, [&](long id) {
    std::vector<ListedRow> rows;
    for (const RawMaterialHead& head : heads_.heads(id)) rows.push_back(listed(head));
    return rows;
  });
}

void frmgrpRM::LOADDATAG() {
  logErrors("LOADDATAG", [&] {
    const int row = vsfG.current();
    if (row == 0) {
      CLEARDATAG();
      return;
    }
    txthead.setText(vsfG.cell(row, headColumn));
    cbotype.setChosen(cbotype.find(vsfG.cell(row, typeColumn)));
  });
}

void frmgrpRM::CLEARDATAG() {
  logErrors("CLEARDATAG", [&] {
    txthead.setText("");
    cbotype.setChosen(0);
  });
}

void frmgrpRM::setStateG(State state) {
  state_ = state;
  SETBUTTONG();
}

void frmgrpRM::SETBUTTONG() {
  logErrors("SETBUTTONG", [&] {
    for (Button* command : {&cmdaddG, &cmdmodifyG, &cmddeleteG, &cmdbackG}) {
      command->setEnabled(!editing());
    }
    cmdupdateG.setEnabled(editing());
    cmdcancelG.setEnabled(editing());
    cbotype.setEnabled(editing());
    vsfG.setEnabled(!editing());
    txthead.setLocked(!editing());
    txthead.tabStop = editing();
    lblhint.setCaption("");
  });
}

void frmgrpRM::CMDADDG_CLICK() {
  command("CMDADDG_CLICK", [&] {
    addedId_ = 0;
    CLEARDATAG();
    setStateG(State::adding);
    focus(txthead);
  });
}

void frmgrpRM::CMDMODIFYG_CLICK() {
  command("CMDMODIFYG_CLICK", [&] {
    if (!itemSelected(vsfG)) return;
    LOADDATAG();
    setStateG(State::modifying);
    focus(txthead);
    txthead.selectAll();
  });
}

void frmgrpRM::CMDCANCELG_CLICK() {
  command("CMDCANCELG_CLICK", [&] {
    setStateG(State::browsing);
    LOADDATAG();
    focus(vsfG);
  });
}

void frmgrpRM::CMDBACKG_CLICK() {
  showPage(famM);
  LOADLIST();
  LOADGRIDM(0);
  CLEARDATAM();
  setStateM(State::browsing);
  focus(vsfM);
}

// --- saving and deleting ------------------------------------------------------------------------

void frmgrpRM::CMDUPDATEG_CLICK() {
  // Logged under the name by which error logs have always known it.
  command("CMDUDPATEG_CLICK", [&] {
    if (!asSeen()) return;
    RawMaterialHead head{state_ == State::modifying ? vsfG.currentId() : 0,
                         cleanedName(txthead.text()), cbotype.chosenData()};
    if (!headHolds(head)) return;
    if (state_ == State::adding) {
      addedId_ = head.id = heads_.insert(head);
    } else {
      heads_.update(head);
    }
    flush();
    setStateG(State::browsing);
    LOADGRIDG(head.id);
    focus(vsfG);
  });
}

bool frmgrpRM::headHolds(const RawMaterialHead& head) {
  if (head.name.empty()) {
    tell("Please Specify 'Heading'.");
    focus(txthead);
    return false;
  }
  if (cbotype.chosen() == 0) {
    tell("Please Select 'Type'.");
    focus(cbotype);
    return false;
  }
  auto sameName = alike(vsfG, headColumn, head.name, head.id);
  std::erase_if(sameName,
                [&](long id) { return vsfG.cell(vsfG.findId(id), typeColumn) != cbotype.text(); });
  const auto existing = heads_.taken(head, sameName);
  if (!existing) return true;
  tell("Duplicate Raw Material Group!!" + whyTaken(head.name, existing->name));
  focus(txthead);
  return false;
}

std::optional<bool> frmgrpRM::CHECKEXISTS(long grpId) {
  std::optional<bool> bound;
  logErrors("CHECKEXISTS", [&] {
    TableNames missing;
    bound = heads_.bound(grpId, missing);
    tellMissing(missing);
  });
  return bound;
}

void frmgrpRM::CMDDELETEG_CLICK() {
  command("CMDDELETEG_CLICK", [&] {
    if (!itemSelected(vsfG)) return;
    const int row = vsfG.current();
    const long id = vsfG.currentId();
    // What could not be searched to its end may be bound.
    const std::optional<bool> bound = CHECKEXISTS(id);
    if (!bound) {
      status(unsearched);
      return;
    }
    if (*bound) {
      tell("Raw Material Group already in use. You can not delete this Group.");
      return;
    }
    if (!ask("Do you want to delele the Raw Material Group [" + vsfG.cell(row, headColumn) + "] ?",
             "Delete Confirmation")) {
      return;
    }
    heads_.remove(id);
    vsfG.removeRow(row);
    makeCurrent(vsfG, std::min(row, vsfG.rows()));
    flush();
  });
}

}  // namespace quillet
