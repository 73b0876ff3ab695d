// The group master's merge page: several groups become one in every trial balance.
#include "data/sql.h"
#include "host/busy.h"
#include "host/posting.h"
#include "masters/frmgrpmas.h"

namespace quillet {
namespace {

// The progress bar and one statement for each table that there is.
void replaceGroups(Context& context, long target, const IdList& ids) {
  const Busy busy(context, "Merging Groups....");
  const long tables = context.host->GetTbCount();
  context.host->objProgress().Max(tables);
  for (long i = 1; i <= tables; ++i) {
    const std::string suffix = context.host->GETTBNAME(i);
    if (!suffix.empty()) {
      context.host->ConQuery("Update " + sqlName("tab_" + suffix) + " set ALLID=" +
                             sqlNumber(target) + " where ALLID in (" + ids.sql() + ")");
    }
    context.host->objProgress().update_pg();
  }
}

}  // namespace

void frmgrpmas::showPage(Frame& page) {
  for (Frame* each : {&famMain, &famMerge}) each->setVisible(each == &page);
}

void frmgrpmas::cmdMerge_Click() {
  trap("cmdMerge_Click", [&] {
    LoadMergeGrid();
    showPage(famMerge);
    focus(vsM);
  });
}

void frmgrpmas::LoadMergeGrid() {
  trap("LOADMERGEGRID", [&] {
    const auto rows = context_.query("Select * From Mast_AllGrp order by ALLGRP");
    for (Grid* grid : {&vsM, &vsMW}) {
      grid->clearRows();
      grid->clearSort();
    }
    for (; !rows->EOF_(); rows->MoveNext()) {
      const auto cells = cellsOf(*rows);
      vsMW.addRow(cells);
      // A predefined group can be merged into, never away.
      if (cells[userColumn] == "Y") vsM.addRow(cells);
    }
  });
}

void frmgrpmas::cmdMergeBack_Click() {
  trap("CMDMERGEBACK_CLICK", [&] {
    showPage(famMain);
    focus(vsf);
  });
}

std::optional<IdList> frmgrpmas::tickedGroups(const std::string& target) const {
  IdList ids;
  for (int row = 1; row <= vsM.rows(); ++row) {
    if (!vsM.ticked(row)) continue;
    if (vsM.cell(row, idColumn) == target) return std::nullopt;
    ids.add(std::stol(vsM.cell(row, idColumn)));
  }
  return ids;
}

void frmgrpmas::cmdMergeGroup_Click() {
  // Logged under the name by which error logs have always known it.
  trap("CMDMODIFY_CLICK", [&] {
    const std::string target =
        vsMW.current() == 0 ? std::string() : vsMW.cell(vsMW.current(), idColumn);
    const std::optional<IdList> ids = tickedGroups(target);
    if (!ids) {
      tell("Merge with grouop should be different.");
    } else if (ids->empty()) {
      tell("Please select at least one group to merge.");
    } else if (target.empty()) {
      tell("Please select merge with group.");
    } else if (context_.MsgBox("Are you sure to merge selected group(s)?\r\n"
                               "This process can not be undone in any circuminstances.",
                               Buttons::YesNo, Icon::none, Answer::No, caption()) == Answer::Yes) {
      mergeInto(std::stol(target), *ids);
    }
  });
}

void frmgrpmas::mergeInto(long target, const IdList& ids) {
  settlePostings(context_);
  noteChange();
  replaceGroups(context_, target, ids);
  context_.host->ConQuery("Delete from Mast_AllGrp where ALLID in (" + ids.sql() + ")");
  tell("Merge Successfully.");
  LOADGRID(0);
  LoadMergeGrid();
}

}  // namespace quillet
