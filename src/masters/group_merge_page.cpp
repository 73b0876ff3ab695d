// The group master's merge page: several groups become one in every trial balance.
#include <algorithm>

#include "books/group_merge.h"
#include "books/group_use.h"
#include "masters/frmgrpmas.h"
#include "masters/locked_uses.h"

namespace quillet {

void frmgrpmas::showPage(Frame& page) {
  for (Frame* each : {&famMain, &famMerge, &famMap, &famCols}) each->setVisible(each == &page);
}

void frmgrpmas::cmdMerge_Click() {
  lblstatus.setCaption("");
  for (Grid* grid : {&vsM, &vsMW}) {
    grid->clearRows();
    grid->clearSort();
  }
  LoadMergeGrid();
  showPage(famMerge);
  focus(vsM);
}

void frmgrpmas::LoadMergeGrid() {
  fillGrids("LOADMERGEGRID", {&vsM, &vsMW}, [&] {
    const auto groups = master_.groupsByName();
    const auto fill = [&](Grid& grid, bool predefinedToo) {
      refill(grid, [&] {
        for (const AccountGroup& group : groups) {
          if (!predefinedToo && group.user != "Y") continue;
          auto cells = listed(group).cells;
          cells.resize(2);
          grid.addRow(std::move(cells), group.id);
        }
      });
    };
    // A predefined group can be merged into, never away.
    fill(vsM, false);
    fill(vsMW, true);
  });
}

void frmgrpmas::cmdMergeBack_Click() {
  showPage(famMain);
  focus(vsf);
}

frmgrpmas::Merge frmgrpmas::chosenMerge() const {
  Merge merge;
  for (int row = 1; row <= vsM.rows(); ++row) {
    if (vsM.ticked(row)) merge.ids.push_back(vsM.rowId(row));
  }
  merge.target = vsMW.currentId();
  return merge;
}

void frmgrpmas::cmdMergeGroup_Click() {
  // Logged under the name by which error logs have always known it.
  command("CMDMODIFY_CLICK", [&] {
    const Merge merge = chosenMerge();
    if (mergeHolds(merge) && confirmed(merge) && carriersAgree(merge) &&
        mayMergeGroups(context_, merge.ids)) {
      carryOut(merge);
    }
  });
}

bool frmgrpmas::mergeHolds(const Merge& merge) {
  const char* refusal = nullptr;
  if (std::find(merge.ids.begin(), merge.ids.end(), merge.target) != merge.ids.end()) {
    refusal = "Merge with grouop should be different.";
  } else if (merge.ids.empty()) {
    refusal = "Please select at least one group to merge.";
  } else if (merge.target == 0) {
    refusal = "Please select merge with group.";
  }
  if (refusal) tell(refusal);
  return !refusal;
}

bool frmgrpmas::confirmed(const Merge& merge) {
  if (context_.MsgBox("Are you sure to merge selected group(s)?\r\n"
                      "This process can not be undone in any circuminstances.",
                      Buttons::YesNo, Icon::none, Answer::No, caption()) != Answer::Yes) {
    return false;
  }
  // Lines must not go into a group that somebody has deleted since it was listed.
  std::vector<long> all = merge.ids;
  all.push_back(merge.target);
  if (master_.hasAll(all)) return true;
  tell("The groups have been changed meanwhile. Please choose again.");
  LoadMergeGrid();
  return false;
}

// Journals and closing stocks keep the groups under which they were passed, which a person should
// know before.
bool frmgrpmas::carriersAgree(const Merge& merge) {
  TableNames missing;
  const auto carriers = carriersOf(*context_.host, merge.ids, missing);
  tellMissing(missing);
  if (carriers.empty()) return true;
  std::string question =
      "Adjustment entries or closing stocks carry the selected group(s) and will keep "
      "them:\r\n\r\n";
  for (const std::string& line : carriers) question += line + "\r\n";
  return ask(question +
             "\r\nAn entry that is altered or deleted after the merge counts in the group merged "
             "with.\r\n\r\nMerge all the same ?");
}

void frmgrpmas::carryOut(const Merge& merge) {
  TableNames missing;
  noteChange();
  mergeGroups(*context_.host, context_.unposted, merge.ids, merge.target, missing);
  tellMissing(missing);
  tell("Merge Successfully.");
  LOADGRID(0);
  LoadMergeGrid();
}

}  // namespace quillet
