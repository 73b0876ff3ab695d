// Saving a line: the statements that merge it with what stands on its particular and group, and the
// way back for the next deed when a save failed between its deletes and its insert.
#include <algorithm>
#include <cmath>

#include "data/sql.h"
#include "editor/frmcrtb.h"

namespace quillet {
namespace {

constexpr const char* notSaved = "The line was not saved. Enter tries again.";
constexpr const char* notReplaced =
    "The line was not saved. What it replaces is taken out: Enter tries again, Esc puts it back.";
constexpr const char* notPutBack =
    "What a save that failed has taken out could not be put back. The next save tries again.";

}  // namespace

// --- saving -------------------------------------------------------------------------------------

void frmcrtb::saveLine() {
  const auto typed = checkedEntry();
  if (!typed) return;
  const long partId = particularId(typed->particular);
  if (partId == 0) return;
  const long allId = groupId(typed->group);
  if (allId == 0) return;
  if (!putBack()) return;

  const Year year = altered_ ? altered_->year : yearInView();
  Line line{.partId = partId, .allId = allId};
  bool stored = false;
  trap("TXTDRCR_KEYPRESS", [&] {
    takenOut_ = {tableOf(year), client_, {}, lines_[year]};
    // Both amounts are whole paise: what adding them in binary left over is no part of the sum.
    const double balance = std::round((typed->amount + takeOutReplaced(year, line)) * 100) / 100;
    line.amount = std::fabs(balance);
    line.nid = balance < 0 ? credit : debit;
    if (balance != 0) {
      line.srno = nextSerial(year);
      insertRow(tableOf(year), client_, line);
    }
    takenOut_.lines.clear();
    stored = true;
    if (balance != 0) context_.host->ConQuery(flushTables);
  });
  if (stored) {
    showSaved({year, line});
  } else {
    showFailure(year);
  }
}

void frmcrtb::showSaved(const YearLine& saved) {
  const bool altering = altered_.has_value();
  altered_.reset();
  showStored();
  selectLine(saved);
  if (altering) {
    leaveEntry();
  } else {
    MNUINSERT_CLICK();
  }
}

// What was typed stays for another attempt.
void frmcrtb::showFailure(Year year) {
  showStored();
  if (linesRead_) takenOut_.standing = lines_[year];
  hint(takenOut_.lines.empty() ? notSaved : notReplaced);
}

// Takes out the line that is altered and those of the new line's particular and group; returns the
// balance of the latter.
double frmcrtb::takeOutReplaced(Year year, const Line& line) {
  if (altered_) takeOut(year, altered_->line);
  const auto rows = context_.query("select * from " + tableOf(year) + " where code_no='" + client_ +
                                   "' and partid = " + sqlNumber(line.partId) +
                                   " and allid = " + sqlNumber(line.allId));
  double balance = 0;
  for (const Line& existing : readLines(*rows)) {
    takeOut(year, existing);
    balance += existing.balance();
  }
  return balance;
}

void frmcrtb::takeOut(Year year, const Line& line) {
  context_.host->ConQuery("Delete from " + tableOf(year) + " where code_no='" + client_ + "' and " +
                          rowOf(year, line));
  takenOut_.lines.push_back(line);
  takenOut_.named = takenOut_.named && groupNames_.contains(line.allId) &&
                    !context_.host->GetPart_MastPartId(line.partId).empty();
  std::vector<Line>& standing = takenOut_.standing;
  const auto found = std::find(standing.begin(), standing.end(), line);
  if (found != standing.end()) standing.erase(found);
  context_.host->ConQuery(flushTables);
}

long frmcrtb::nextSerial(Year year) {
  return context_
             .query("select max(srno) as maxsr from " + tableOf(year) + " where code_no = '" +
                    client_ + "'")
             ->integer("maxsr") +
         1;
}

// The flush is left to the caller: the line counts as stored from the moment its row stands.
void frmcrtb::insertRow(const Sql& table, const Sql& client, const Line& line) {
  context_.host->ConQuery("insert into " + table + " values(" + sqlNumber(line.srno) + ",'" +
                          client + "'," + sqlNumber(line.partId) + "," + sqlNumber(line.allId) +
                          "," + sqlNumber(line.amount) + "," + sqlNumber(line.nid) + ")");
}

// What picks the line's row out of the client's: its serial number, and all that it holds where it
// has none, shares it, or may share it since it was not among the lines read last.
Sql frmcrtb::rowOf(Year year, const Line& line) const {
  const auto sharing = std::count_if(lines_[year].begin(), lines_[year].end(),
                                     [&](const Line& other) { return other.srno == line.srno; });
  if (line.srno != 0 && sharing == 1) return "srno=" + sqlNumber(line.srno);
  return "ifnull(srno,0)=" + sqlNumber(line.srno) +
         " and ifnull(partid,0)=" + sqlNumber(line.partId) +
         " and ifnull(allid,0)=" + sqlNumber(line.allId) +
         " and ifnull(amt,0)=" + sqlNumber(line.amount) +
         " and ifnull(nid,0)=" + sqlNumber(line.nid) + " limit 1";
}

// --- after a failure ----------------------------------------------------------------------------

// Puts back what a failed save has taken out, so that the next deed begins with the books as they
// were before it. Returns whether they are so.
bool frmcrtb::putBack() {
  if (takenOut_.lines.empty()) return true;
  const bool possible = writeBack();
  if (visible()) showStored();
  if (!takenOut_.lines.empty()) hint(notPutBack);
  return possible && takenOut_.lines.empty();
}

bool frmcrtb::writeBack() {
  bool possible = false;
  trap("PUTBACK", [&] {
    possible = canPutBack();
    if (!possible) takenOut_.lines.clear();
    while (!takenOut_.lines.empty()) {
      insertRow(takenOut_.table, takenOut_.client, takenOut_.lines.back());
      takenOut_.standing.push_back(takenOut_.lines.back());
      takenOut_.lines.pop_back();
      context_.host->ConQuery(flushTables);
    }
  });
  return possible;
}

// For deeds that change the lines in another way: after them the line could not be put back.
bool frmcrtb::nothingTakenOut() {
  if (takenOut_.lines.empty()) return true;
  tellTakenOut("It could not be written back. Please try again.");
  return false;
}

// Books that have changed otherwise since may hold the lines by now, or have no place for them.
bool frmcrtb::canPutBack() {
  const Sql of = " where code_no='" + takenOut_.client + "'";
  const auto registered =
      context_.query("select tbl_nm from master" + of + " and tbl_nm='" + takenOut_.table + "'");
  // Its year is gone, and the lines with it.
  if (registered->EOF_()) return false;
  const auto rows = context_.query("Select * From " + takenOut_.table + of);
  const std::vector<Line> lines = readLines(*rows);
  bool same = std::is_permutation(lines.begin(), lines.end(), takenOut_.standing.begin(),
                                  takenOut_.standing.end());
  for (const Line& line : takenOut_.lines) {
    if (!takenOut_.named) break;
    const auto group =
        context_.query("select allid from mast_allgrp where allid=" + sqlNumber(line.allId));
    same = same && !group->EOF_() && !context_.host->GetPart_MastPartId(line.partId).empty();
  }
  if (!same) tellTakenOut("The books have changed since. Please enter it again if it is missing.");
  return same;
}

void frmcrtb::tellTakenOut(const std::string& outcome) {
  std::string text;
  for (const Line& line : takenOut_.lines) {
    const auto group = groupNames_.find(line.allId);
    text += context_.host->GetPart_MastPartId(line.partId) + ", " +
            (group == groupNames_.end() ? "" : group->second) + ", " +
            context_.host->formatgen(line.amount, "#,##0.00") +
            (line.isCredit() ? " CR\r\n" : " DR\r\n");
  }
  context_.MsgBox(text + "was taken out by a save that failed. " + outcome, Buttons::OK,
                  Icon::information);
}

}  // namespace quillet
