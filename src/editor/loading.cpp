// The editor's loading: settings, ledger and group lists, the lines of one or both years, totals.
#include <algorithm>
#include <unordered_set>

#include "data/names.h"
#include "data/sql.h"
#include "data/table_names.h"
#include "data/text.h"
#include "data/year.h"
#include "editor/frmcrtb.h"
#include "host/busy.h"
#include "host/clients.h"
#include "host/posting.h"

namespace quillet {
namespace {

constexpr const char* settings = "Settings";
constexpr const char* amountFormat = "###0.00";
constexpr const char* totalFormat = "#,##0.00";
constexpr const char* absent = "-";
constexpr int amountWidth = 18;

// The grid's hidden columns, counted from the last shown one.
enum Hidden { serialColumn = 0, partIdColumn = 1, allIdColumn = 2, previousSerialColumn = 3 };

// Fills a drop-down list, ordered as a person reads names; returns the keys it is searched by.
std::vector<std::string> fillList(Grid& list, std::vector<std::pair<std::string, long>> names) {
  std::vector<std::string> unordered;
  unordered.reserve(names.size());
  for (const auto& name : names) unordered.push_back(nameKey(name.first));
  std::vector<std::size_t> order = orderOf(unordered);
  std::vector<std::string> keys;
  keys.reserve(order.size());
  for (const std::size_t index : order) keys.push_back(std::move(unordered[index]));
  const int rows = static_cast<int>(order.size());
  list.setRows(rows, [order = std::move(order), names = std::move(names)](int row) {
    const auto& [name, id] = names[order[static_cast<std::size_t>(row - 1)]];
    return std::vector<std::string>{name, std::to_string(id)};
  });
  return keys;
}

}  // namespace

void frmcrtb::FORM_LOAD() {
  // What a voucher left half posted is not to be seen as the year's figures.
  trap("FORM_LOAD", [&] { settlePostings(context_); });
  trap("FORM_LOAD", [&] {
    context_.host->resize_for_resolution(*this);
    client_ = context_.host->escaped(context_.clientCode);
    if (namedCode_ != context_.clientCode || clientName_.empty()) {
      namedCode_ = context_.clientCode;
      clientName_ = clientName(context_, context_.clientCode);
    }
    firstDate_ = context_.firstDate;
    secondDate_ = context_.secondDate;
    tables_[current] = context_.table;
    for (std::vector<Line>& lines : lines_) lines.clear();
    vsfm.clearRows();
    clearEntry();
    readSettings();
    findPreviousYear();
    setView(View::current);
    showPage(famLines);
    groupsShown_ = 1;
    {
      const Busy busy(context_);
      LOADPARTICULARS();
      LOADGROUPS();
      if (hasTable()) LOADTRIALBAL();
    }
    SETBUTTON();
    if (!hasTable()) refuseWithoutTable();
  });
}

void frmcrtb::refuseWithoutTable() {
  vsfm.clearRows();
  GETBALANCE();
  context_.MsgBox("Year not selected");
}

void frmcrtb::readSettings() {
  const bool clientOnly = context_.host->GetSettingINI(settings, "ShLed", "1") != "0";
  mnuall.setChecked(!clientOnly);
  mnuclonly.setChecked(clientOnly);
  const std::string stored = context_.host->GetSettingINI(settings, "TBSort", "1");
  const int option = stored.size() == 1 && stored >= "1" && stored <= "4" ? stored[0] - '0' : 1;
  sort_ = static_cast<SortOption>(option);
  for (auto& entry : mnusortopt) entry->setChecked(entry->index() == option - 1);
}

void frmcrtb::findPreviousYear() {
  const auto row =
      context_.query("select * from master where code_no= '" + client_ +
                     "' and f_yr=" + context_.host->quoted(firstDateKey(yearOf(firstDate_) - 1)) +
                     " and s_yr=" + context_.host->quoted(secondDateKey(yearOf(secondDate_) - 1)));
  tables_[previous] = std::string(trialBalancePrefix);
  if (!row->EOF_()) {
    tables_[previous] = trialBalanceTable(context_.host->GETTBNAME(row->integer("Count")));
  }
  mnuyropts.setEnabled(hasTable() && tables_[previous] != trialBalancePrefix);
}

void frmcrtb::FORM_ACTIVE() {
  trap("FORM_ACTIVE", [&] { SETBUTTON(); });
}

void frmcrtb::FORM_UNLOAD() {
  trap("FORM_UNLOAD", [&] {
    clearEntry();
    vsfp.setVisible(false);
    vsfg.setVisible(false);
  });
}

// --- ledgers and groups ---------------------------------------------------------------------

void frmcrtb::LOADPARTICULARS() {
  trap("LOADPARTICULARS", [&] {
    context_.host->objProgress().Text1("Loading Ledger List....");
    Sql sql = "Select Distinct Particular From Mast_Part";
    bool any = true;
    if (mnuclonly.checked()) {
      const IdList ids = ledgerIdsOfClient();
      any = !ids.empty();
      sql += " Where PartId In (" + ids.sql() + ")";
    }
    std::vector<std::pair<std::string, long>> names;
    if (any) {
      const auto rows = context_.query(sql);
      names.reserve(static_cast<std::size_t>(rows->RecordCount()));
      for (; !rows->EOF_(); rows->MoveNext()) names.emplace_back(rows->text(0), 0);
    }
    ledgerKeys_ = fillList(vsfp, std::move(names));
  });
}

IdList frmcrtb::ledgerIdsOfClient() {
  std::unordered_set<long> known;
  IdList ids;
  const auto tables =
      context_.query("Select distinct tbl_nm from master Where Code_No='" + client_ + "'");
  for (; !tables->EOF_(); tables->MoveNext()) {
    const std::string table = tables->text(0);
    if (table.empty()) continue;
    const auto rows = context_.query("Select Distinct PartId From " + sqlName(table) +
                                     " Where Code_No='" + client_ + "'");
    known.reserve(known.size() + static_cast<std::size_t>(rows->RecordCount()));
    for (; !rows->EOF_(); rows->MoveNext()) {
      if (known.insert(rows->integer(0)).second) ids.add(rows->integer(0));
    }
  }
  return ids;
}

void frmcrtb::LOADGROUPS() {
  trap("LOADGROUPS", [&] {
    const auto rows = context_.query("select * from mast_allgrp order by allgrp");
    std::vector<std::pair<std::string, long>> names;
    for (; !rows->EOF_(); rows->MoveNext()) {
      names.emplace_back(rows->text("ALLGRP"), rows->integer("AllId"));
    }
    groupNames_.clear();
    for (const auto& [name, id] : names) groupNames_.emplace(id, name);
    groupKeys_ = fillList(vsfg, std::move(names));
  });
}

// --- the lines ----------------------------------------------------------------------------------

void frmcrtb::LOADTRIALBAL() {
  trap("LOADTRIALBAL", [&] {
    showCaption();
    SETBUTTONS();
    std::vector<Line> lines[2];
    readYears(lines);
    std::vector<Entry> entries = pairLines(lines[current], lines[previous]);
    if (inView(current)) lines_[current] = std::move(lines[current]);
    if (inView(previous)) lines_[previous] = std::move(lines[previous]);
    fillNames(entries);
    sortEntries(entries, sort_);
    showEntries(std::move(entries));
    GETBALANCE();
  });
}

void frmcrtb::readYears(std::vector<Line> (&lines)[2]) {
  if (inView(current)) {
    lines[current] = selectLines(current);
    if (lines[current].empty() && tables_[previous] != trialBalancePrefix) {
      lines[previous] = selectLines(previous);
      if (!lines[previous].empty() && importPreviousYear()) lines[current] = selectLines(current);
      if (!inView(previous)) lines[previous].clear();
      return;
    }
  }
  if (inView(previous)) lines[previous] = selectLines(previous);
}

std::vector<Line> frmcrtb::selectLines(Year year) {
  const auto rows =
      context_.query("Select * From " + tableOf(year) + " where code_no='" + client_ + "'");
  return readLines(*rows);
}

bool frmcrtb::importPreviousYear() {
  const Answer answer =
      context_.MsgBox("Do you want to Import \"Trail Balance\" from Previous F.Y. ?",
                      Buttons::YesNo, Icon::question, Answer::No);
  if (answer != Answer::Yes) return false;
  context_.change("Insert into " + tableOf(current) + " select * from " + tableOf(previous) +
                      " where code_no='" + client_ + "'",
                  "Flush Tables");
  return true;
}

void frmcrtb::fillNames(std::vector<Entry>& entries) {
  for (Entry& entry : entries) {
    entry.particular = context_.host->GetPart_MastPartId(entry.any().partId);
    const auto group = groupNames_.find(entry.any().allId);
    if (group != groupNames_.end()) entry.group = group->second;
  }
}

void frmcrtb::showEntries(std::vector<Entry> entries) {
  const Year year = inView(current) ? current : previous;
  const long selected = vsfm.current() > 0 ? serialAt(vsfm.current(), year) : 0;
  setGridColumns();
  entries_ = std::move(entries);
  vsfm.setRows(static_cast<int>(entries_.size()),
               [this](int row) { return cellsOf(entries_[static_cast<std::size_t>(row - 1)]); });
  selectSerial(year, selected);
}

void frmcrtb::setGridColumns() {
  std::vector<GridColumn> columns{{.heading = "Particulars", .width = 40, .stretch = true},
                                  {.heading = "Group", .width = 40}};
  const auto addYear = [&](const char* heading) {
    columns.push_back(
        {.heading = heading, .align = Align::right, .width = amountWidth, .numeric = true});
    columns.push_back({.heading = "Dr/Cr", .align = Align::center, .width = 6});
  };
  if (view_ == View::both) {
    addYear("Amount (Curr)");
    addYear("Amount (Prev)");
  } else {
    addYear("Amount");
  }
  for (const char* id : {"SrNo", "PartId", "AllId", "SrNo (Prev)"}) {
    columns.push_back({.heading = id, .hidden = true});
  }
  vsfm.setColumns(std::move(columns));
}

std::vector<std::string> frmcrtb::cellsOf(const Entry& entry) const {
  std::vector<std::string> cells;
  cells.reserve(static_cast<std::size_t>(vsfm.cols()));
  cells.push_back(entry.particular);
  cells.push_back(entry.group);
  for (const Year year : {current, previous}) {
    if (!inView(year)) continue;
    const Line& line = entry.line[year];
    cells.push_back(line.exists() ? context_.host->formatgen(line.amount, amountFormat) : absent);
    cells.emplace_back(!line.exists() ? absent : line.isCredit() ? "CR" : "DR");
  }
  const bool both = view_ == View::both;
  cells.push_back(std::to_string(both ? entry.line[current].srno : entry.any().srno));
  cells.push_back(std::to_string(entry.any().partId));
  cells.push_back(std::to_string(entry.any().allId));
  if (both) cells.push_back(std::to_string(entry.line[previous].srno));
  return cells;
}

long frmcrtb::serialAt(int row, Year year) const {
  if (!inView(year)) return 0;
  const int firstHidden = view_ == View::both ? 6 : 4;
  const bool secondYear = view_ == View::both && year == previous;
  const std::string& text =
      vsfm.cell(row, firstHidden + (secondYear ? previousSerialColumn : serialColumn));
  return text.empty() ? 0 : std::stol(text);
}

// Of lines that were just shown: their rows stand in the order of the entries.
void frmcrtb::selectSerial(Year year, long srno) {
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return entry.line[year].srno == srno;
  });
  if (srno == 0 || found == entries_.end()) return;
  vsfm.setCurrent(static_cast<int>(found - entries_.begin()) + 1);
}

bool frmcrtb::inView(Year year) const {
  return view_ == View::both || (view_ == View::previous) == (year == previous);
}

// --- totals -------------------------------------------------------------------------------------

void frmcrtb::GETBALANCE() {
  trap("GETBALANCE", [&] {
    const auto shown = [&](double amount) { return context_.host->formatgen(amount, totalFormat); };
    Totals totals[2];
    for (const Year year : {current, previous}) {
      totals[year] = totalsOf(lines_[year]);
      txttotdeb[year].setText(shown(totals[year].debit));
      txttotcr[year].setText(shown(totals[year].credit));
    }
    const auto [debits, credits] = totals[current];
    if (debits == credits) {
      txtdiff.setText("");
      txtdifft.setText("");
    } else if (credits > debits) {
      txtdiff.setText(shown(credits - debits));
      txtdifft.setText("Credit");
    } else {
      txtdiff.setText(shown(debits - credits));
      txtdifft.setText("Debit");
    }
  });
}

void frmcrtb::REFRESHTB() {
  trap("REFRESHTB", [&] {
    reload();
    GETBALANCE();
    reloadPage();
    SETBUTTON();
  });
}

// What stands beside the lines is drawn from them.
void frmcrtb::reloadPage() {
  if (famGroups.visible()) LOADGROUPSEXISTS();
  if (famSummary.visible()) LOADFIGS();
}

void frmcrtb::reload() {
  if (!hasTable()) return;
  const Busy busy(context_);
  LOADTRIALBAL();
}

// --- views and settings -------------------------------------------------------------------------

void frmcrtb::showCaption() {
  const char* years = view_ == View::previous ? " (Previous Year)"
                      : view_ == View::both   ? " (with Previous Year)"
                                              : "";
  setCaption("Trial Balance of " + clientName_ + " for the Period " + shownDate(firstDate_) +
             " - " + shownDate(secondDate_) + years);
}

std::string frmcrtb::subject() const {
  const int back = yearInView() == previous ? 1 : 0;
  return subjectOf(clientName_, namedCode_, firstDateKey(yearOf(firstDate_) - back),
                   secondDateKey(yearOf(secondDate_) - back));
}

void frmcrtb::setView(View view) {
  view_ = view;
  for (auto& entry : mnuyrs) entry->setChecked(entry->index() == static_cast<int>(view));
  for (const Year year : {current, previous}) {
    lblyear[year].setVisible(inView(year));
    txttotdeb[year].setVisible(inView(year));
    txttotcr[year].setVisible(inView(year));
  }
  txtdiff.setVisible(inView(current));
  txtdifft.setVisible(inView(current));
  SETBUTTONS();
}

void frmcrtb::MNUYRS_CLICK(int index) {
  trap("MNUYRS_CLICK", [&] {
    leaveEntry();
    setView(static_cast<View>(index));
    vsfm.clearRows();
    reload();
    reloadPage();
    SETBUTTON();
  });
}

void frmcrtb::MNUSORTOPT_CLICK(int index) {
  trap("MNUSORTOPT_CLICK", [&] {
    context_.host->SaveSettingINI(settings, "TBSort", std::to_string(index + 1));
    readSettings();
    reload();
  });
}

void frmcrtb::MNUALL_CLICK() {
  trap("MNUALL_CLICK", [&] { loadLedgerList("0"); });
}

void frmcrtb::MNUCLONLY_CLICK() {
  trap("MNUCLONLY_CLICK", [&] { loadLedgerList("1"); });
}

void frmcrtb::loadLedgerList(const std::string& setting) {
  context_.host->SaveSettingINI(settings, "ShLed", setting);
  readSettings();
  const Busy busy(context_);
  LOADPARTICULARS();
}

// --- buttons and the grid's own events ----------------------------------------------------------

void frmcrtb::SETBUTTON() {
  trap("SETBUTTON", [&] {
    const bool lines = hasTable() && famLines.visible();
    const bool selected = lines && vsfm.current() > 0;
    mnuinsert.setEnabled(lines);
    mnualter.setEnabled(selected);
    mnudelete.setEnabled(selected);
    mnugroup.setEnabled(hasTable());
    mnushsumm.setEnabled(hasTable());
    mnuPreview.setEnabled(hasTable());
    mnuprnsumm.setEnabled(hasTable());
    mnuexport.setEnabled(hasTable());
    cmdexport.setEnabled(hasTable());
    for (TextBox* box : {&txtpart, &txtgroup, &txtamount, &txtdrcr}) box->setEnabled(hasTable());
    cmdadd.setEnabled(cbogroup.chosen() + groupsShown_ <= cbogroup.size());
    cmdless.setEnabled(groupsShown_ > 1);
    cmdupdate.setEnabled(vsf3.rows() > 0);
    mnujournal.setEnabled(hasTable());
    mnunewgroup.setEnabled(hasTable());
    cmdgrpmanf.setEnabled(hasTable());
  });
}

void frmcrtb::SETBUTTONS() {
  trap("SETBUTTONS", [&] {
    const bool both = view_ == View::both;
    cmdclstock[0].setCaption(both ? "Closing &Stock (Curr)" : "Closing &Stock");
    cmdclstock[1].setVisible(both);
    for (auto& button : cmdclstock) button->setEnabled(hasTable());
  });
}

void frmcrtb::VSFM_AFTERSORT() {
  trap("VSFM_AFTERSORT", [&] { SETBUTTON(); });
}

void frmcrtb::VSFM_ROWCOLCHANGE() {
  trap("VSFM_ROWCOLCHANGE", [&] { SETBUTTON(); });
}

void frmcrtb::VSFM_KEYDOWN(Key& key) {
  trap("VSFM_KEYDOWN", [&] {
    if (key != keys::Enter && key != keys::Delete) return;
    MenuEntry& command = key == keys::Enter ? mnualter : mnudelete;
    key = keys::none;
    click(command);
  });
}

void frmcrtb::MHELP_CLICK() {
  trap("MHELP_CLICK", [&] {
    context_.host->helpid("2-2-1");
    context_.host->ObjHelp().Show();
  });
}

void frmcrtb::MNUEXIT_CLICK() {
  trap("MNUEXIT_CLICK", [&] { close(); });
}

}  // namespace quillet
