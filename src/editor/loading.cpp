// The editor's loading: settings, ledger and group lists, the lines of one or both years, totals.
#include <algorithm>
#include <unordered_set>

#include "books/clients.h"
#include "books/posting.h"
#include "data/names.h"
#include "data/sql.h"
#include "data/table_names.h"
#include "data/text.h"
#include "data/year.h"
#include "editor/frmcrtb.h"
#include "ports/busy.h"

namespace quillet {
namespace {

constexpr const char* settings = "Settings";
constexpr const char* amountFormat = "###0.00";
constexpr const char* totalFormat = "#,##0.00";
constexpr const char* absent = "-";
constexpr const char* entryColumn = "Entry";  // hidden: the position of the row's entry
constexpr int amountWidth = 18;

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

void emptyList(Grid& list, std::vector<std::string>& keys) {
  list.clearRows();
  keys.clear();
}

}  // namespace

void frmcrtb::FORM_LOAD() {
  // While the books are as the failed save left them.
  putBack();
  // What a voucher left half posted is not to be seen as the year's figures.
  trap("FORM_LOAD", [&] { settlePostings(*context_.host, context_.unposted); });
  trap("FORM_LOAD", [&] {
    context_.host->resize_for_resolution(*this);
    takeContext();
    emptyYear();
    readSettings();
    reload();
    if (!hasTable()) refuseWithoutTable();
  });
}

void frmcrtb::takeContext() {
  client_ = context_.host->escaped(context_.clientCode);
  if (namedCode_ != context_.clientCode) clientName_.clear();
  namedCode_ = context_.clientCode;
  firstDate_ = context_.firstDate;
  secondDate_ = context_.secondDate;
  tables_[current] = context_.table;
  tables_[previous].clear();
}

// Whatever statement fails while a year is opened, nothing of the year before is left.
void frmcrtb::emptyYear() {
  // First: what it tells of has groups of the lists that go.
  clearEntry();
  setCaption("Trial Balance");
  emptyLines();
  emptyGroups();
  emptyFigures();
  groupsShown_ = 1;
  ledgersRead_ = groupsRead_ = false;
  emptyList(vsfp, ledgerKeys_);
  emptyList(vsfg, groupKeys_);
  groupNames_.clear();
  mnuyropts.setEnabled(false);
  setView(View::current);
  showPage(famLines);
  SETBUTTON();
}

void frmcrtb::emptyLines() {
  vsfm.clearRows();
  entries_.clear();
  for (std::vector<Line>& lines : lines_) lines.clear();
  linesRead_ = false;
  for (auto* totals : {&txttotdeb, &txttotcr}) {
    for (auto& total : *totals) total->setText("");
  }
  for (TextBox* box : {&txtdiff, &txtdifft}) box->setText("");
}

void frmcrtb::refuseWithoutTable() {
  GETBALANCE();
  context_.MsgBox("Year not selected");
}

void frmcrtb::readSettings() {
  chooseLedgers(context_.host->GetSettingINI(settings, "ShLed", "1"));
  chooseSort(context_.host->GetSettingINI(settings, "TBSort", "1"));
}

void frmcrtb::chooseLedgers(const std::string& setting) {
  mnuall.setChecked(setting == "0");
  mnuclonly.setChecked(setting != "0");
}

void frmcrtb::chooseSort(const std::string& setting) {
  const int option = setting.size() == 1 && setting >= "1" && setting <= "4" ? setting[0] - '0' : 1;
  sort_ = static_cast<SortOption>(option);
  for (auto& entry : mnusortopt) entry->setChecked(entry->index() == option - 1);
}

// What the registers say of client and year.
void frmcrtb::readRegisters() {
  if (!tables_[previous].empty()) return;
  if (clientName_.empty()) clientName_ = clientName(*context_.host, namedCode_);
  findPreviousYear();
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
    emptyFields();
    // Not to be read again: a year that was deleted would offer its import.
    if (!takenOut_.lines.empty()) writeBack();
    if (!takenOut_.lines.empty()) {
      tellTakenOut("It could not be written back. Opening the editor tries again.");
    }
    vsfp.setVisible(false);
    vsfg.setVisible(false);
  });
}

// --- ledgers and groups ---------------------------------------------------------------------

void frmcrtb::LOADPARTICULARS() {
  trap("LOADPARTICULARS", [&] {
    ledgersRead_ = false;
    emptyList(vsfp, ledgerKeys_);
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
    ledgersRead_ = true;
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
    groupsRead_ = false;
    emptyList(vsfg, groupKeys_);
    groupNames_.clear();
    const auto rows = context_.query("select * from mast_allgrp order by allgrp");
    std::vector<std::pair<std::string, long>> names;
    for (; !rows->EOF_(); rows->MoveNext()) {
      names.emplace_back(rows->text("ALLGRP"), rows->integer("AllId"));
    }
    for (const auto& [name, id] : names) groupNames_.emplace(id, name);
    groupKeys_ = fillList(vsfg, std::move(names));
    groupsRead_ = true;
  });
}

// --- the lines ----------------------------------------------------------------------------------

void frmcrtb::LOADTRIALBAL() {
  bool read = false;
  trap("LOADTRIALBAL", [&] {
    showCaption();
    SETBUTTONS();
    std::vector<Line> lines[2];
    readYears(lines);
    std::vector<Entry> entries = pairLines(lines[current], lines[previous]);
    fillNames(entries);
    sortEntries(entries, sort_);
    std::move(std::begin(lines), std::end(lines), std::begin(lines_));
    showEntries(std::move(entries));
    GETBALANCE();
    read = linesRead_ = true;
  });
  if (!read) {
    hint(unread);
  } else if (lblhint.caption() == unread) {
    hint("");
  }
  if (read) followAltered();
}

void frmcrtb::readYears(std::vector<Line> (&lines)[2]) {
  if (inView(current)) {
    lines[current] = selectLines(current);
    if (lines[current].empty() && hasYear(previous) && takenOut_.lines.empty()) {
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
  trap("LOADTRIALBAL", [&] {
    context_.change("Insert into " + tableOf(current) + " select * from " + tableOf(previous) +
                        " where code_no='" + client_ + "'",
                    "Flush Tables");
  });
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
  const auto selected = selectedLine();
  setGridColumns();
  entries_ = std::move(entries);
  vsfm.setRows(static_cast<int>(entries_.size()),
               [this](int row) { return cellsOf(static_cast<std::size_t>(row - 1)); });
  if (selected) selectLine(*selected);
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
  for (const char* id : {"SrNo", "PartId", "AllId", entryColumn}) {
    columns.push_back({.heading = id, .hidden = true});
  }
  vsfm.setColumns(std::move(columns));
}

std::vector<std::string> frmcrtb::cellsOf(std::size_t index) const {
  const Entry& entry = entries_[index];
  std::vector<std::string> cells;
  cells.reserve(static_cast<std::size_t>(vsfm.cols()));
  cells.push_back(entry.particular);
  cells.push_back(entry.group);
  for (const Year year : {current, previous}) {
    if (!inView(year)) continue;
    const auto& line = entry.line[year];
    cells.push_back(line ? context_.host->formatgen(line->amount, amountFormat) : absent);
    cells.emplace_back(!line ? absent : line->isCredit() ? "CR" : "DR");
  }
  for (const long id : {entry.any().srno, entry.any().partId, entry.any().allId}) {
    cells.push_back(std::to_string(id));
  }
  cells.push_back(std::to_string(index));
  return cells;
}

// A person may have sorted the rows.
const Entry* frmcrtb::selectedEntry() const {
  const int row = vsfm.current();
  if (row == 0) return nullptr;
  return &entries_[std::stoul(vsfm.cell(row, vsfm.columnNamed(entryColumn)))];
}

std::optional<frmcrtb::YearLine> frmcrtb::selectedLine() const {
  const Entry* entry = selectedEntry();
  if (!entry) return std::nullopt;
  return YearLine{entry->line[current] ? current : previous, entry->any()};
}

// Of lines that were just shown: their rows stand in the order of the entries.
void frmcrtb::selectLine(const YearLine& wanted) {
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return entry.line[wanted.year] && isSame(*entry.line[wanted.year], wanted.line);
  });
  if (found == entries_.end()) return;
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
    reloadPage();
  });
}

void frmcrtb::showStored() { showStored(view_); }

// After a change: what stood before is not to be taken for what is stored when reading fails.
void frmcrtb::showStored(View view) {
  const auto selected = selectedLine();
  emptyLines();
  setView(view);
  REFRESHTB();
  if (selected) selectLine(*selected);
}

// What stands beside the lines is drawn from them.
void frmcrtb::reloadPage() {
  if (famGroups.visible()) LOADGROUPSEXISTS();
  if (famSummary.visible()) LOADFIGS();
}

// Reads the lines, and what an attempt before this one could not read.
void frmcrtb::reload() {
  const Busy busy(*context_.host);
  if (hasTable() && !linesRead_) hint(unread);
  readRegisters();
  if (!ledgersRead_) LOADPARTICULARS();
  if (!groupsRead_) LOADGROUPS();
  if (hasTable()) LOADTRIALBAL();
  SETBUTTON();
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
    showStored(static_cast<View>(index));
  });
}

// Whoever cannot keep a choice for the next time has it for this one.
void frmcrtb::MNUSORTOPT_CLICK(int index) {
  const std::string setting = std::to_string(index + 1);
  trap("MNUSORTOPT_CLICK", [&] { context_.host->SaveSettingINI(settings, "TBSort", setting); });
  trap("MNUSORTOPT_CLICK", [&] {
    chooseSort(setting);
    reload();
    reloadPage();
  });
}

void frmcrtb::MNUALL_CLICK() { loadLedgerList("MNUALL_CLICK", "0"); }

void frmcrtb::MNUCLONLY_CLICK() { loadLedgerList("MNUCLONLY_CLICK", "1"); }

void frmcrtb::loadLedgerList(const char* procedure, const std::string& setting) {
  trap(procedure, [&] { context_.host->SaveSettingINI(settings, "ShLed", setting); });
  trap(procedure, [&] {
    chooseLedgers(setting);
    const Busy busy(*context_.host);
    LOADPARTICULARS();
  });
}

// --- buttons and the grid's own events ----------------------------------------------------------

void frmcrtb::SETBUTTON() {
  trap("SETBUTTON", [&] {
    const bool lines = hasTable() && famLines.visible();
    const bool selected = lines && vsfm.current() > 0;
    const bool read = hasTable() && linesRead_ && groupsRead_;
    mnuinsert.setEnabled(lines);
    mnualter.setEnabled(selected);
    mnudelete.setEnabled(selected);
    mnugroup.setEnabled(hasTable());
    mnushsumm.setEnabled(hasTable());
    mnuPreview.setEnabled(read);
    mnuprnsumm.setEnabled(hasTable());
    mnuexport.setEnabled(read);
    cmdexport.setEnabled(read);
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
