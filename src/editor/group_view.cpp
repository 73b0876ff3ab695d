// The editor's group view: the lines of one group, debits beside credits.
#include "data/text.h"
#include "editor/frmcrtb.h"
#include "host/busy.h"

namespace quillet {

void frmcrtb::MNUGROUP_CLICK() {
  trap("MNUGROUP_CLICK", [&] {
    const bool show = !famGroups.visible();
    leaveEntry();
    mnugroup.setChecked(show);
    famLines.setVisible(!show);
    famGroups.setVisible(show);
    if (show) LOADGROUPSEXISTS();
    focus(show ? static_cast<Control&>(cbogroup) : vsfm);
    SETBUTTON();
  });
}

void frmcrtb::LOADGROUPSEXISTS() {
  trap("LOADGROUPSEXISTS", [&] {
    const std::string& table = tables_[inView(current) ? current : previous];
    const long chosen = cbogroup.chosenData();
    const auto rows =
        context_.query("Select distinct mast_allgrp.allid, mast_allgrp.allgrp from " + table +
                       " INNER JOIN mast_allgrp on " + table + ".allid=mast_allgrp.allid and " +
                       table + ".code_no = '" + client_ + "' order by allgrp");
    cbogroup.clearItems();
    for (; !rows->EOF_(); rows->MoveNext()) cbogroup.addItem(rows->text(1), rows->integer(0));
    const int again = cbogroup.findData(chosen);
    cbogroup.setChosen(again > 0 ? again : 1);
    LOADGRIDS();
  });
}

void frmcrtb::LOADGRIDS() {
  trap("LOADGRIDS", [&] {
    const Busy busy(context_);
    const long group = cbogroup.chosenData();
    LOADGRID1(vsf1, group, debit);
    LOADGRID1(vsf2, group, credit);
  });
}

void frmcrtb::LOADGRID1(Grid& grid, long groupId, long side) {
  trap("LOADGRID1", [&] {
    const std::string& table = tables_[inView(current) ? current : previous];
    const auto rows =
        context_.query("Select " + table + ".* from " + table + " LEFT JOIN mast_allgrp on " +
                       table + ".allid=mast_allgrp.allid where " + table + ".code_no='" + client_ +
                       "' and mast_allgrp.allid=" + std::to_string(groupId) + " and " + table +
                       ".nid=" + std::to_string(side));
    grid.clearRows();
    for (const Line& line : readLines(*rows)) {
      grid.addRow({context_.host->GetPart_MastPartId(line.partId),
                   context_.host->formatgen(line.amount, "###0.00"),
                   line.isCredit() ? "CR" : "DR"});
    }
  });
}

}  // namespace quillet
