// The group master's merge page: several groups become one in every trial balance.
#include <algorithm>

#include "books/group_use.h"
#include "books/merged_groups.h"
#include "books/posting.h"
#include "data/sql.h"
#include "masters/frmgrpmas.h"
#include "ports/busy.h"

namespace quillet {
namespace {

IdList listed(const std::vector<long>& ids) {
  IdList list;
  for (const long id : ids) list.add(id);
  return list;
}

// The progress bar and one statement for each table that there is.
void replaceGroups(Context& context, long target, const Sql& ids, TableNames& missing) {
  const Busy busy(*context.host, "Merging Groups....");
  const long tables = context.host->GetTbCount();
  context.host->objProgress().Max(tables);
  for (long i = 1; i <= tables; ++i) {
    const std::string suffix = context.host->GETTBNAME(i);
    const std::string table = "tab_" + suffix;
    if (!suffix.empty()) {
      onTable(*context.host, table, missing, [&] {
        context.host->ConQuery("Update " + sqlName(table) + " set ALLID=" + sqlNumber(target) +
                               " where ALLID in (" + ids + ")");
      });
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
    lblstatus.setCaption("");
    for (Grid* grid : {&vsM, &vsMW}) {
      grid->clearRows();
      grid->clearSort();
    }
    LoadMergeGrid();
    showPage(famMerge);
    focus(vsM);
  });
}

void frmgrpmas::LoadMergeGrid() {
  fillGrids("LOADMERGEGRID", {&vsM, &vsMW}, [&] {
    const auto rows = context_.query("Select * From Mast_AllGrp order by ALLGRP");
    std::vector<std::vector<std::string>> groups;
    for (; !rows->EOF_(); rows->MoveNext()) groups.push_back(cellsOf(*rows));
    const auto fill = [&](Grid& grid, bool predefinedToo) {
      refill(grid, [&] {
        for (const auto& cells : groups) {
          if (predefinedToo || cells[userColumn] == "Y") grid.addRow(cells);
        }
      });
    };
    // A predefined group can be merged into, never away.
    fill(vsM, false);
    fill(vsMW, true);
  });
}

void frmgrpmas::cmdMergeBack_Click() {
  trap("CMDMERGEBACK_CLICK", [&] {
    showPage(famMain);
    focus(vsf);
  });
}

frmgrpmas::Merge frmgrpmas::chosenMerge() const {
  Merge merge;
  for (int row = 1; row <= vsM.rows(); ++row) {
    if (vsM.ticked(row)) merge.ids.push_back(std::stol(vsM.cell(row, idColumn)));
  }
  if (vsMW.current() > 0) merge.target = std::stol(vsMW.cell(vsMW.current(), idColumn));
  return merge;
}

void frmgrpmas::cmdMergeGroup_Click() {
  // Logged under the name by which error logs have always known it.
  command("CMDMODIFY_CLICK", [&] {
    const Merge merge = chosenMerge();
    if (mergeHolds(merge) && confirmed(merge) && carriersAgree(merge)) carryOut(merge);
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
  const auto there = context_.query("Select Distinct AllId from Mast_AllGrp where ALLID in (" +
                                    listed(all).sql() + ")");
  if (there->RecordCount() == static_cast<long>(all.size())) return true;
  tell("The groups have been changed meanwhile. Please choose again.");
  LoadMergeGrid();
  return false;
}

// Journals and closing stocks keep the groups under which they were passed, which a person should
// know before.
bool frmgrpmas::carriersAgree(const Merge& merge) {
  std::vector<long> ids = merge.ids;
  const MergedGroups earlier(*context_.host);
  for (const long id : merge.ids) {
    const auto more = earlier.predecessors(id);
    ids.insert(ids.end(), more.begin(), more.end());
  }
  TableNames missing;
  const auto carriers = carriersOf(*context_.host, listed(ids).sql(), missing);
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
  settlePostings(*context_.host, context_.unposted);
  const Sql ids = listed(merge.ids).sql();
  TableNames missing;
  noteChange();
  // First, so that no journal is left with a group of which nobody knows where it went.
  MergedGroups(*context_.host).keep(merge.ids, merge.target);
  replaceGroups(context_, merge.target, ids, missing);
  context_.host->ConQuery("Delete from Mast_AllGrp where ALLID in (" + ids + ")");
  tellMissing(missing);
  tell("Merge Successfully.");
  LOADGRID(0);
  LoadMergeGrid();
}

}  // namespace quillet
