// Moving all lines of a group to another one.
#include <algorithm>

#include "data/sql.h"
#include "editor/frmcrtb.h"

namespace quillet {

// Whatever its side, a line of the group moves.
void frmcrtb::listForTransfer() {
  vsf3.clearRows();
  transferable_.clear();
  for (const Line& line : lines_[yearInView()]) {
    if (line.allId != cbogroup.chosenData()) continue;
    vsf3.addRow({context_.host->GetPart_MastPartId(line.partId),
                 context_.host->formatgen(line.amount, "###0.00"), line.isCredit() ? "CR" : "DR",
                 std::to_string(line.srno), std::to_string(transferable_.size())});
    transferable_.push_back(line);
  }
}

void frmcrtb::CMDUPDATE_CLICK() {
  trap("CMDUPDATE_CLICK", [&] {
    putBack();
    if (!nothingTakenOut()) return;
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
  const Year year = yearInView();
  const long source = cbogroup.chosenData();
  const int index = vsf3.columnNamed("Line");
  trap("CMDUPDATE_CLICK", [&] {
    for (int row = 1; row <= vsf3.rows(); ++row) {
      const Line& line = transferable_[std::stoul(vsf3.cell(row, index))];
      context_.change("Update " + tableOf(year) + " set allid=" + sqlNumber(target) +
                          " where code_no='" + client_ + "' and " + rowOf(year, line),
                      "Flush Tables");
    }
  });
  emptyLines();
  reload();
  const bool left = std::any_of(lines_[year].begin(), lines_[year].end(),
                                [&](const Line& line) { return line.allId == source; });
  chooseGroup(left ? source : target);
}

}  // namespace quillet
