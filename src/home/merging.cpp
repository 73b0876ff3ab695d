// The home form merges trial balances: the other clients that have the year are listed, ticked, and
// their lines summed up into the client's own year.
#include <algorithm>

#include "data/sql.h"
#include "home/third.h"
#include "home/year_merge.h"
#include "host/busy.h"
#include "host/clients.h"

namespace quillet {
namespace {

enum SourceColumn { tickColumn, codeColumn, nameColumn, tableColumn };

}  // namespace

void third::listSources() {
  const auto years = context_.query("select *  from master where f_yr ='" +
                                    context_.host->escaped(newYear_.firstKey) + "' and s_yr ='" +
                                    context_.host->escaped(newYear_.secondKey) +
                                    "' And code_no <> '" + client() + "' order by code_no");
  if (years->EOF_()) {
    context_.MsgBox("No year of specified date is available.", Buttons::OK, Icon::information);
    return;
  }
  flexgrid2.setColumns({{.heading = "Merge", .align = Align::center, .width = 8, .tick = true},
                        {.heading = "Code", .width = 14},
                        {.heading = "Name", .width = 40, .stretch = true},
                        {.heading = "Table", .hidden = true}});
  for (; !years->EOF_(); years->MoveNext()) {
    const std::string code = years->text("code_no");
    flexgrid2.addRow({"", code, clientName(context_, code), years->text("tbl_nm")});
  }
  flexgrid2.setCurrent(1);
  showSecondStep(famyears, "choose what to merge into " + newYear_.text());
  status("Space ticks a client, Enter merges the ticked ones.");
  focus(flexgrid2);
}

// The ticked rows, the current one when none is ticked.
std::vector<int> third::chosenSources() const {
  std::vector<int> chosen;
  for (int row = 1; row <= flexgrid2.rows(); ++row) {
    if (flexgrid2.ticked(row)) chosen.push_back(row);
  }
  if (chosen.empty() && flexgrid2.current() > 0) chosen.push_back(flexgrid2.current());
  return chosen;
}

bool third::mergeAgreed(const std::vector<int>& sources) {
  std::string text = "Merge into the Trial Balance of '" + clientName_ + "' for F.Y. " +
                     newYear_.text() + " the Trial Balances of";
  for (const int row : sources) {
    text +=
        "\r\n - " + flexgrid2.cell(row, nameColumn) + " (" + flexgrid2.cell(row, codeColumn) + ")";
  }
  return context_.MsgBox(text + "\r\n\r\nConfirm Merge ?", Buttons::YesNo, Icon::question,
                         Answer::No) == Answer::Yes;
}

// A client whose books are kept under a password gives its lines to nobody without it.
bool third::sourcesMayBeRead(const std::vector<int>& sources) {
  return std::all_of(sources.begin(), sources.end(), [&](int row) {
    return context_.host->CheckClpass(flexgrid2.cell(row, codeColumn));
  });
}

// Where the merged lines go: the table of the client's year, which is registered if it is not yet.
bool third::provideTable() {
  const auto existing = GETTABLE1(newYear_.firstKey, newYear_.secondKey);
  if (!existing) return false;
  if (!existing->empty() && !newYear_.registered) {
    // Made by somebody else since the dates were typed: whoever typed it is asked about first.
    beginYear();
    return false;
  }
  if (!existing->empty()) {
    newYear_.table = *existing;
    return true;
  }
  if (!GETTABLE()) return false;
  registerYear();
  return true;
}

void third::mergeSources() {
  const std::vector<int> sources = chosenSources();
  if (sources.empty() || !mergeAgreed(sources)) return;
  if (!sourcesMayBeRead(sources) || !provideTable()) return;
  const Busy busy(context_, "Merging Trial Balances....");
  std::vector<Line> lines;
  for (const int row : sources) {
    const auto rows = context_.query("select * from " + sqlName(flexgrid2.cell(row, tableColumn)) +
                                     " where code_no='" +
                                     context_.host->escaped(flexgrid2.cell(row, codeColumn)) + "'");
    const std::vector<Line> own = readLines(*rows);
    lines.insert(lines.end(), own.begin(), own.end());
  }
  lines = mergedLines(lines);
  const Sql table = sqlName(newYear_.table);
  // A merge that was interrupted is done anew, not added to.
  context_.change("delete from " + table + " where code_no='" + client() + "'");
  Progress& progress = context_.host->objProgress();
  progress.Max(static_cast<long>(lines.size()));
  for (const Line& line : lines) {
    context_.change("insert into " + table + "(srno,code_no,partid,allid,amt,nid) values(" +
                    sqlNumber(line.srno) + ",'" + client() + "'," + sqlNumber(line.partId) + "," +
                    sqlNumber(line.allId) + "," + sqlNumber(line.amount) + "," +
                    sqlNumber(line.nid) + ")");
    progress.update_pg();
  }
  finishYear();
  status(std::to_string(sources.size()) + " merged into " + newYear_.text() + ": " +
         std::to_string(lines.size()) + " lines.");
}

}  // namespace quillet
