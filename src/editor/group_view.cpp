// The editor's group view: the lines of one group, or of several that follow each other, debits
// beside credits.
#include <algorithm>

#include "editor/frmcrtb.h"
#include "ports/busy.h"

namespace quillet {
namespace {

constexpr int amountWidth = 18;
constexpr int sideWidth = 6;

std::vector<GridColumn> lineColumns() {
  return {{.heading = "Particulars", .width = 30, .stretch = true},
          {.heading = "Amount (Rs.)", .align = Align::right, .width = amountWidth, .numeric = true},
          {.heading = "Dr/Cr", .width = sideWidth}};
}

}  // namespace

void frmcrtb::attachGroupView() {
  for (Grid* grid : {&vsf1, &vsf2}) grid->setColumns(lineColumns());
  std::vector<GridColumn> columns = lineColumns();
  for (const char* id : {"SrNo", "Line"}) columns.push_back({.heading = id, .hidden = true});
  vsf3.setColumns(std::move(columns));
  mnugroup.Click = [this] { MNUGROUP_CLICK(); };
  cbogroup.Click = [this] { trap("CBOGROUP_CLICK", [&] { showGroups(1); }); };
  cmdok.Click = [this] { CMDOK_CLICK(); };
  cmdadd.Click = [this] { CMDADD_CLICK(); };
  cmdless.Click = [this] { CMDLESS_CLICK(); };
  cmdupdate.Click = [this] { CMDUPDATE_CLICK(); };
}

Node frmcrtb::groupArrangement() {
  const Node choice = row(
      {field("&Group", cbogroup, 40), item(lblgroup, 1), item(cmdadd), item(cmdless), item(cmdok)});
  const Node move = row(
      {item(vsf3, 1), column({field("T&o Group", cbotgroup, 40), item(cmdupdate), gap()}, 1)}, 1);
  return column({choice, row({item(vsf1, 1), item(vsf2, 1)}, 2), move}, 1);
}

void frmcrtb::MNUGROUP_CLICK() {
  trap("MNUGROUP_CLICK", [&] {
    const bool show = !famGroups.visible();
    leaveEntry();
    showPage(show ? famGroups : famLines);
    if (show) LOADGROUPSEXISTS();
    focus(show ? static_cast<Control&>(cbogroup) : vsfm);
    SETBUTTON();
  });
}

void frmcrtb::LOADGROUPSEXISTS() {
  trap("LOADGROUPSEXISTS", [&] { chooseGroup(cbogroup.chosenData()); });
}

// Lists the groups that the lines use and shows this one, or the first when it has no lines.
void frmcrtb::chooseGroup(long id) {
  const long target = cbotgroup.chosenData();
  emptyGroups();
  const Sql table = tableOf(yearInView());
  const auto rows =
      context_.query("Select distinct mast_allgrp.allid, mast_allgrp.allgrp from " + table +
                     " INNER JOIN mast_allgrp on " + table + ".allid=mast_allgrp.allid and " +
                     table + ".code_no = '" + client_ + "' order by allgrp");
  for (; !rows->EOF_(); rows->MoveNext()) cbogroup.addItem(rows->text(1), rows->integer(0));
  cbogroup.setChosen(std::max(1, cbogroup.findData(id)));
  for (int row = 1; row <= vsfg.rows(); ++row) {
    cbotgroup.addItem(vsfg.cell(row, 0), std::stol(vsfg.cell(row, 1)));
  }
  cbotgroup.setChosen(cbotgroup.findData(target));
  showGroups(groupsShown_);
}

void frmcrtb::emptyGroups() {
  for (ComboBox* groups : {&cbogroup, &cbotgroup}) groups->clearItems();
  for (Grid* grid : {&vsf1, &vsf2, &vsf3}) grid->clearRows();
  transferable_.clear();
  lblgroup.setCaption("");
}

// The chosen group and those that follow it in the list.
void frmcrtb::showGroups(int count) {
  groupsShown_ = std::clamp(count, 1, std::max(1, cbogroup.size() - cbogroup.chosen() + 1));
  LOADGRIDS();
}

void frmcrtb::LOADGRIDS() {
  trap("LOADGRIDS", [&] {
    const Busy busy(*context_.host);
    for (Grid* grid : {&vsf1, &vsf2, &vsf3}) grid->clearRows();
    for (int shown = 0; shown < groupsShown_ && cbogroup.chosen() > 0; ++shown) {
      const int position = cbogroup.chosen() + shown;
      for (Grid* grid : {&vsf1, &vsf2}) {
        if (groupsShown_ == 1) continue;
        const int heading =
            grid->addRow({cbogroup.items()[static_cast<std::size_t>(position - 1)]});
        grid->setRowEmphasised(heading, true);
      }
      LOADGRID1(vsf1, cbogroup.itemData(position), debit);
      LOADGRID1(vsf2, cbogroup.itemData(position), credit);
    }
    lblgroup.setCaption(groupsShown_ == 1 ? "" : std::to_string(groupsShown_) + " groups shown");
    listForTransfer();
    SETBUTTON();
  });
}

void frmcrtb::LOADGRID1(Grid& grid, long groupId, long side) {
  trap("LOADGRID1", [&] {
    const Sql table = tableOf(yearInView());
    const auto rows =
        context_.query("Select " + table + ".* from " + table + " LEFT JOIN mast_allgrp on " +
                       table + ".allid=mast_allgrp.allid where " + table + ".code_no='" + client_ +
                       "' and mast_allgrp.allid=" + sqlNumber(groupId) + " and " + table +
                       ".nid=" + sqlNumber(side));
    for (const Line& line : readLines(*rows)) {
      grid.addRow({context_.host->GetPart_MastPartId(line.partId),
                   context_.host->formatgen(line.amount, "###0.00"),
                   line.isCredit() ? "CR" : "DR"});
    }
  });
}

void frmcrtb::CMDOK_CLICK() {
  trap("CMDOK_CLICK", [&] { REFRESHTB(); });
}

void frmcrtb::CMDADD_CLICK() {
  trap("CMDADD_CLICK", [&] { showGroups(groupsShown_ + 1); });
}

void frmcrtb::CMDLESS_CLICK() {
  trap("CMDLESS_CLICK", [&] { showGroups(groupsShown_ - 1); });
}

}  // namespace quillet
