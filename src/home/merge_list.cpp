#include "home/merge_list.h"

#include <algorithm>

#include "books/clients.h"
#include "books/posting.h"
#include "books/year_merge.h"
#include "home/third.h"
#include "ports/busy.h"

namespace quillet {

MergeList::MergeList(third& form, Context& context) : form_(form), context_(context) {
  form.cmdmerge.Click = [this] {
    form_.focus(form_.flexgrid2);
    merge();
  };
  setShown(false);
}

void MergeList::setShown(bool shown) {
  shown_ = shown;
  form_.cmdmerge.setVisible(shown);
}

std::vector<RegisteredYear> MergeList::readSources() {
  const RegisteredYear& year = form_.newYear.year();
  return Registry(*context_.host).others(year.client, year.keys);
}

bool MergeList::any(const std::vector<RegisteredYear>& years) {
  if (!years.empty()) return true;
  context_.MsgBox("No year of specified date is available.", Buttons::OK, Icon::information);
  return false;
}

bool MergeList::anySource() { return any(readSources()); }

void MergeList::show() {
  Grid& grid = form_.flexgrid2;
  grid.clearRows();
  sources_.clear();
  setShown(true);
  const auto years = readSources();
  if (!any(years)) return;
  grid.setColumns({{.heading = "Merge", .align = Align::center, .width = 8, .tick = true},
                   {.heading = "Code", .width = 14},
                   {.heading = "Name", .width = 40, .stretch = true}});
  long id = 0;
  for (const RegisteredYear& year : years) {
    sources_.push_back({year, clientName(*context_.host, year.client)});
    grid.addRow({"", year.client, sources_.back().clientName}, ++id);
  }
  grid.setCurrent(1);
  form_.showSecondStep(form_.famyears,
                       "choose what to merge into " + form_.newYear.year().keys.text());
  form_.status("Space ticks a client, Enter merges the ticked ones.");
  form_.focus(grid);
}

MergeList::Sources MergeList::chosen() const {
  const Grid& grid = form_.flexgrid2;
  Sources chosen;
  for (int row = 1; row <= grid.rows(); ++row) {
    if (grid.ticked(row)) chosen.push_back(sources_[grid.rowId(row) - 1]);
  }
  if (chosen.empty() && grid.current() > 0) chosen.push_back(sources_[grid.currentId() - 1]);
  return chosen;
}

bool MergeList::agreed(const Sources& sources) {
  std::string text = "Merge into the Trial Balance of '" + form_.clientName() + "' for F.Y. " +
                     form_.newYear.year().keys.text() + " the Trial Balances of";
  for (const Source& source : sources) {
    text += "\r\n - " + source.clientName + " (" + source.year.client + ")";
  }
  return context_.MsgBox(text + "\r\n\r\nConfirm Merge ?", Buttons::YesNo, Icon::question,
                         Answer::No) == Answer::Yes;
}

// Books under a client's password are read only when it is given.
bool MergeList::mayBeRead(const Sources& sources) {
  return std::all_of(sources.begin(), sources.end(), [&](const Source& source) {
    return context_.host->CheckClpass(source.year.client);
  });
}

// Somebody may have deleted one since they were listed, and its table may hold another year now.
bool MergeList::areThere(const Sources& sources) {
  const auto there = readSources();
  for (const Source& source : sources) {
    const bool stands = std::any_of(there.begin(), there.end(), [&](const RegisteredYear& year) {
      return year.client == source.year.client && year.table == source.year.table;
    });
    if (stands) continue;
    form_.tellYearIsGone(source.clientName, source.year.keys);
    show();
    return false;
  }
  return true;
}

void MergeList::merge() {
  const Sources sources = chosen();
  if (sources.empty() || !agreed(sources)) return;
  if (!mayBeRead(sources) || !areThere(sources) || !form_.newYear.provideTable()) return;
  const RegisteredYear year = form_.newYear.year();
  YearMerge merge(*context_.host);
  form_.statusOnFailure(
      "The merge into " + year.keys.text() + " was not completed. Enter begins it again.", [&] {
        const Busy busy(*context_.host, "Merging Trial Balances....");
        postAllMissing(*context_.host, context_.unposted);
        for (const Source& source : sources) merge.add({source.year.table, source.year.client});
        merge.write({year.table, year.client});
      });
  form_.newYear.finish();
  form_.statusFirst(std::to_string(sources.size()) + " merged into " + year.keys.text() + ": " +
                    std::to_string(merge.lines()) + " lines, " +
                    std::to_string(merge.stockLines()) + " of closing stock.");
}

}  // namespace quillet
