// Moving all lines of a group to another one.
#include "data/sql.h"
#include "editor/frmcrtb.h"

namespace quillet {

// Whatever its side, a line of the group moves.
void frmcrtb::listForTransfer() {
  vsf3.clearRows();
  for (const Line& line : lines_[yearInView()]) {
    if (line.allId != cbogroup.chosenData()) continue;
    vsf3.addRow({context_.host->GetPart_MastPartId(line.partId),
                 context_.host->formatgen(line.amount, "###0.00"), line.isCredit() ? "CR" : "DR",
                 std::to_string(line.srno)});
  }
}

void frmcrtb::CMDUPDATE_CLICK() {
  trap("CMDUPDATE_CLICK", [&] {
    const long target = cbotgroup.chosenData();
    if (target == 0 || target == cbogroup.chosenData()) {
      context_.MsgBox("Please select a different Group.", Buttons::OK, Icon::information);
      return;
    }
    const Answer answer =
        context_.MsgBox("Are you sure you want to Transfer all the Particulars of " +
                            cbogroup.text() + " to " + cbotgroup.text(),
                        Buttons::YesNo, Icon::question, Answer::No);
    if (answer == Answer::Yes) transfer(target);
  });
}

void frmcrtb::transfer(long target) {
  const int serial = vsf3.columnNamed("SrNo");
  for (int row = 1; row <= vsf3.rows(); ++row) {
    context_.change("Update " + tableOf(yearInView()) + " set allid=" + sqlNumber(target) +
                        " where code_no='" + client_ +
                        "' and srno=" + sqlNumber(std::stol(vsf3.cell(row, serial))),
                    "Flush Tables");
  }
  reload();
  chooseGroup(target);
}

}  // namespace quillet
