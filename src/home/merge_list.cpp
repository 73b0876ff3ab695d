#include "home/merge_list.h"

#include <algorithm>

#include "books/clients.h"
#include "books/posting.h"
#include "books/year_merge.h"
#include "home/third.h"
#include "home/year_table.h"
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
  form_.years.offerHistory(!shown);
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
  grid.setEmptyText("No other client has this year. Escape goes back to its dates.");
  sources_.clear();
  setShown(true);
  const auto years = readSources();
  if (!any(years)) return;
  for (const RegisteredYear& year : years) {
    sources_.push_back({year, clientName(*context_.host, year.client)});
  }
  std::vector<YearFigures> figures;
  form_.logErrors("YEARFIGURES", [&] { figures = yearFigures(*context_.host, years); });
  fill(figures);
  grid.setCurrent(1);
  form_.showSecondStep(form_.famyears,
                       "choose what to merge into " + form_.newYear.year().keys.text());
  form_.status((figures.empty() ? "What the years hold could not be read. " : "") +
               std::string("Space ticks a client, Enter merges the ticked ones."));
  form_.focus(grid);
}

// Without figures where they could not be read.
void MergeList::fill(const std::vector<YearFigures>& figures) {
  std::vector<GridColumn> columns{
      {.heading = "Merge", .align = Align::center, .width = 6, .tick = true},
      {.heading = "Code", .width = 8},
      {.heading = "Name", .width = 14, .stretch = true}};
  for (GridColumn& column : figureColumns()) columns.push_back(std::move(column));
  form_.flexgrid2.setColumns(std::move(columns));
  for (std::size_t at = 0; at < sources_.size(); ++at) {
    std::vector<std::string> cells{"", sources_[at].year.client, sources_[at].clientName};
    if (!figures.empty()) {
      for (std::string& cell : figureCells(*context_.host, figures[at])) {
        cells.push_back(std::move(cell));
      }
    }
    form_.flexgrid2.addRow(std::move(cells), static_cast<long>(at) + 1);
  }
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
