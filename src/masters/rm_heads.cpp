// The heads page: the raw-material heads that all clients bind their groups to.
#include <algorithm>
#include <utility>

#include "data/sql.h"
#include "data/text.h"
#include "host/meant_name.h"
#include "masters/frmgrpRM.h"

namespace quillet {
namespace {

enum Column { idColumn, headColumn, typeColumn, typeName };

}  // namespace

void frmgrpRM::attachHeads() {
  for (const char* type : {"RAW MATERIAL", "FINISHED GOODS", "WORK-IN-PROGRESS", "OTHERS"}) {
    cbotype.addItem(type, cbotype.size() + 1);
  }
  txthead.maxLength = nameLength;
  txthead.Overflow = [this] { lblhint.setCaption("A heading holds at most 100 characters."); };
  txthead.Change = [this] { lblhint.setCaption(""); };
  txthead.KeyPress = [this](Key& key) { enterIsTab(key); };
  cbotype.KeyPress = [this](Key& key) { enterIsTab(key); };
  lblhint.quiet = true;
  vsfG.RowColChange = [this] {
    if (!editing()) LOADDATAG();
  };
  vsfG.DblClick = [this] {
    if (cmdmodifyG.enabled()) CMDMODIFYG_CLICK();
  };
  vsfG.KeyPress = [this](Key& key) { searchByTyping(vsfG, headColumn, key); };
  cmdaddG.Click = [this] { CMDADDG_CLICK(); };
  cmdmodifyG.Click = [this] { CMDMODIFYG_CLICK(); };
  cmddeleteG.Click = [this] { CMDDELETEG_CLICK(); };
  cmdupdateG.Click = [this] { CMDUPDATEG_CLICK(); };
  cmdcancelG.Click = [this] { CMDCANCELG_CLICK(); };
  cmdbackG.Click = [this] { CMDBACKG_CLICK(); };
}

// --- loading and showing ------------------------------------------------------------------------

std::vector<std::string> frmgrpRM::headCells(const Recordset& head) const {
  const int type = cbotype.findData(head.integer("GrpType"));
  return {head.text("GrpId"), head.text("GrpHead"), std::to_string(head.integer("GrpType")),
          type > 0 ? cbotype.items()[static_cast<std::size_t>(type - 1)] : head.text("GrpType")};
}

void frmgrpRM::LOADGRIDG(long grpId) {
  const Sql all = "Select * from RawMatGrpM";
  const auto readOne = [&] {
    showFound(vsfG, grpId, *context_.query(all + " Where GrpId=" + sqlNumber(grpId)),
              [&](const Recordset& row) { return headCells(row); });
  };
  if (grpId > 0 && wasRead(vsfG) && attempt("LOADGRIDG", readOne)) return;
  fillGrids("LOADGRIDG", {&vsfG}, [&] {
    const auto heads = context_.query(all);
    refill(vsfG, [&] {
      for (; !heads->EOF_(); heads->MoveNext()) vsfG.addRow(headCells(*heads));
    });
    if (grpId > 0) vsfG.setCurrent(vsfG.find(idColumn, std::to_string(grpId)));
  });
}

void frmgrpRM::LOADDATAG() {
  trap("LOADDATAG", [&] {
    const int row = vsfG.current();
    if (row == 0) {
      CLEARDATAG();
      return;
    }
    txthead.setText(vsfG.cell(row, headColumn));
    cbotype.setChosen(cbotype.findData(idAt(vsfG, row, typeColumn)));
  });
}

void frmgrpRM::CLEARDATAG() {
  trap("CLEARDATAG", [&] {
    txthead.setText("");
    cbotype.setChosen(0);
  });
}

void frmgrpRM::setStateG(State state) {
  state_ = state;
  SETBUTTONG();
}

void frmgrpRM::SETBUTTONG() {
  trap("SETBUTTONG", [&] {
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
  trap("CMDBACKG_CLICK", [&] {
    showPage(famM);
    LOADLIST();
    LOADGRIDM(0);
    CLEARDATAM();
    setStateM(State::browsing);
    focus(vsfM);
  });
}

// --- saving and deleting ------------------------------------------------------------------------

void frmgrpRM::CMDUPDATEG_CLICK() {
  // Logged under the name by which error logs have always known it.
  command("CMDUDPATEG_CLICK", [&] {
    const std::string head = cleanedName(txthead.text());
    if (!headHolds(head)) return;
    const Sql type = sqlNumber(cbotype.chosenData());
    long id = 0;
    if (state_ == State::adding) {
      id = context_.query("Select Max(GrpId) from RawMatGrpM")->integer(0) + 1;
      context_.host->ConQuery("Insert Into RawMatGrpM Values (" + sqlNumber(id) + "," +
                              quoted(head) + "," + type + ")");
      addedId_ = id;
      flush();
    } else {
      id = idAt(vsfG, vsfG.current(), idColumn);
      change("Update RawMatGrpM Set GrpHead=" + quoted(head) + ",GrpType=" + type +
             " Where GrpId=" + sqlNumber(id));
    }
    setStateG(State::browsing);
    LOADGRIDG(id);
    focus(vsfG);
  });
}

bool frmgrpRM::headHolds(const std::string& head) {
  if (head.empty()) {
    tell("Please Specify 'Heading'.");
    focus(txthead);
    return false;
  }
  if (cbotype.chosen() == 0) {
    tell("Please Select 'Type'.");
    focus(cbotype);
    return false;
  }
  const long type = cbotype.chosenData();
  const long own = state_ == State::modifying ? idAt(vsfG, vsfG.current(), idColumn) : 0;
  Sql sql =
      "Select * from RawMatGrpM Where GrpHead=" + quoted(head) + " and GrpType=" + sqlNumber(type);
  if (own != 0) sql += " and GrpId<>" + sqlNumber(own);
  const auto existing =
      taken(head, sql,
            {vsfG, headColumn, "Select * from RawMatGrpM Where GrpId=", "GrpId", "GrpHead",
             [&](int row) { return idAt(vsfG, row, typeColumn) == type; }},
            own);
  if (!existing) return true;
  tell("Duplicate Raw Material Group!!" + whyTaken(head, existing->name));
  focus(txthead);
  return false;
}

std::optional<bool> frmgrpRM::CHECKEXISTS(long grpId) {
  std::optional<bool> bound;
  trap("CHECKEXISTS", [&] {
    bound =
        walk("Searching for the Raw Material Group....", {"RMGRP_"}, [&](const YearTable& table) {
          const auto rows =
              context_.query("Select * from " + table.sql() + " Where GrpSr=" + sqlNumber(grpId));
          return !rows->EOF_();
        });
  });
  return bound;
}

void frmgrpRM::CMDDELETEG_CLICK() {
  command("CMDDELETEG_CLICK", [&] {
    if (!itemSelected(vsfG)) return;
    const int row = vsfG.current();
    const long id = idAt(vsfG, row, idColumn);
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
    context_.host->ConQuery("Delete from RawMatGrpM Where GrpId=" + sqlNumber(id));
    vsfG.removeRow(row);
    makeCurrent(vsfG, std::min(row, vsfG.rows()));
    flush();
  });
}

}  // namespace quillet
