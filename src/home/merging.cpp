// The home form merges trial balances: the other clients that have the year are listed, ticked, and
// their lines summed up into the client's own year.
#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "books/clients.h"
#include "books/posting.h"
#include "books/year_merge.h"
#include "data/sql.h"
#include "data/table_names.h"
#include "home/third.h"
#include "ports/busy.h"

namespace quillet {
namespace {

constexpr const char* stockPrefix = "TRADE_";

enum SourceColumn { tickColumn, codeColumn, nameColumn, tableColumn };

// Rows of a closing stock as lines: stock below zero stands on the credit side.
std::vector<Line> readStock(Recordset& rows) {
  const int partId = rows.column("partid");
  const int allId = rows.column("allid");
  const int amount = rows.column("amt");
  std::vector<Line> lines;
  for (; !rows.EOF_(); rows.MoveNext()) {
    const double value = rows.number(amount);
    lines.push_back({0, rows.integer(partId), rows.integer(allId), std::fabs(value),
                     value < 0 ? credit : debit});
  }
  return lines;
}

void append(std::vector<Line>& lines, const std::vector<Line>& more) {
  lines.insert(lines.end(), more.begin(), more.end());
}

}  // namespace

RecordsetPtr third::selectOthersOfYear() {
  return context_.query("select *  from master where f_yr ='" +
                        context_.host->escaped(newYear_.firstKey) + "' and s_yr ='" +
                        context_.host->escaped(newYear_.secondKey) + "' And code_no <> '" +
                        client() + "' order by code_no");
}

bool third::anyOtherOfYear(const Recordset& years) {
  if (!years.EOF_()) return true;
  context_.MsgBox("No year of specified date is available.", Buttons::OK, Icon::information);
  return false;
}

void third::listSources() {
  flexgrid2.clearRows();
  listsSources_ = true;
  const auto years = selectOthersOfYear();
  if (!anyOtherOfYear(*years)) return;
  flexgrid2.setColumns({{.heading = "Merge", .align = Align::center, .width = 8, .tick = true},
                        {.heading = "Code", .width = 14},
                        {.heading = "Name", .width = 40, .stretch = true},
                        {.heading = "Table", .hidden = true}});
  for (; !years->EOF_(); years->MoveNext()) {
    const std::string code = years->text("code_no");
    flexgrid2.addRow({"", code, clientName(*context_.host, code), years->text("tbl_nm")});
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

// Somebody may have deleted one since they were listed; its table may hold another year by now.
bool third::sourcesAreThere(const std::vector<int>& sources) {
  std::set<std::pair<std::string, std::string>> there;
  const auto years = selectOthersOfYear();
  for (; !years->EOF_(); years->MoveNext()) {
    there.emplace(years->text("code_no"), years->text("tbl_nm"));
  }
  for (const int row : sources) {
    if (there.contains({flexgrid2.cell(row, codeColumn), flexgrid2.cell(row, tableColumn)})) {
      continue;
    }
    tellYearIsGone(flexgrid2.cell(row, nameColumn), newYear_.text());
    listSources();
    return false;
  }
  return true;
}

// Where the merged lines go: the table of the client's year, which is registered if it is not yet.
bool third::provideTable() {
  const auto existing = GETTABLE1(newYear_.firstKey, newYear_.secondKey);
  if (!existing) return false;
  if (existing->empty()) return registerNewYear();
  if (!newYear_.registered) {
    // Made by somebody else since the dates were typed: whoever typed it is asked about first.
    beginYear();
    return false;
  }
  newYear_.table = *existing;
  selectNewYear();
  return true;
}

void third::mergeSources() {
  const std::vector<int> sources = chosenSources();
  if (sources.empty() || !mergeAgreed(sources)) return;
  if (!sourcesMayBeRead(sources) || !sourcesAreThere(sources) || !provideTable()) return;
  std::vector<Line> lines;
  std::vector<Line> stock;
  orSay("The merge into " + newYear_.text() + " was not completed. Enter begins it again.", [&] {
    const Busy busy(*context_.host, "Merging Trial Balances....");
    settlePostings(*context_.host, context_.unposted);
    for (const int row : sources) {
      const std::string& table = flexgrid2.cell(row, tableColumn);
      const Sql where = " where code_no=" + context_.host->quoted(flexgrid2.cell(row, codeColumn));
      append(lines, readLines(*context_.query("select * from " + sqlName(table) + where)));
      append(stock, readStock(*context_.query("select * from " +
                                              sqlName(siblingTable(table, stockPrefix)) + where)));
    }
    lines = mergedLines(lines);
    stock = mergedLines(stock);
    writeMerged(lines, stock);
  });
  finishYear();
  status(std::to_string(sources.size()) + " merged into " + newYear_.text() + ": " +
         std::to_string(lines.size()) + " lines, " + std::to_string(stock.size()) +
         " of closing stock.");
}

void third::writeMerged(const std::vector<Line>& lines, const std::vector<Line>& stock) {
  const Sql table = sqlName(newYear_.table);
  const Sql stockTable = sqlName(siblingTable(newYear_.table, stockPrefix));
  // A merge that was interrupted is done anew, not added to.
  context_.change("delete from " + table + " where code_no='" + client() + "'");
  context_.change("delete from " + stockTable + " where code_no='" + client() + "'");
  Progress& progress = context_.host->objProgress();
  progress.Max(static_cast<long>(lines.size() + stock.size()));
  for (const Line& line : lines) {
    context_.change("insert into " + table + "(srno,code_no,partid,allid,amt,nid) values(" +
                    sqlNumber(line.srno) + ",'" + client() + "'," + sqlNumber(line.partId) + "," +
                    sqlNumber(line.allId) + "," + sqlNumber(line.amount) + "," +
                    sqlNumber(line.nid) + ")");
    progress.update_pg();
  }
  for (const Line& line : stock) {
    context_.change("insert into " + stockTable + "(code_no,partid,allid,amt) values('" + client() +
                    "'," + sqlNumber(line.partId) + "," + sqlNumber(line.allId) + "," +
                    sqlNumber(line.isCredit() ? -line.amount : line.amount) + ")");
    progress.update_pg();
  }
}

}  // namespace quillet
