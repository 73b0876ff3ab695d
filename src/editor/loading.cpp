// The editor's loading: lists of names, the lines of one or both years, totals, the settings.
#include <cmath>
#include <initializer_list>

#include "books/amount.h"
#include "books/ledger_list.h"
#include "books/posting.h"
#include "books/trial_balance.h"
#include "data/year.h"
#include "editor/frmcrtb.h"
#include "ports/busy.h"

namespace quillet {
namespace {

using enum TwoYears::Year;
using View = TwoYears::View;

constexpr const char* settings = "Settings";

}  // namespace

// --- opening and closing ------------------------------------------------------------------------

void frmcrtb::FORM_LOAD() {
  // While the books are as the failed save left them.
  saver_.putBack();
  Context& context = books_.context;
  // What a voucher left half posted is not to be seen as the year's figures.
  logErrors("FORM_LOAD", [&] { postAllMissing(books_.host(), context.unposted); });
  books_.host().resize_for_resolution(*this);
  books_.years.open({context.table, context.clientCode}, {context.firstDate, context.secondDate});
  emptyYear();
  findBar.reset();
  chooseLedgers(books_.host().GetSettingINI(settings, "ShLed", "1"));
  chooseSort(books_.host().GetSettingINI(settings, "TBSort", "1"));
  reload();
  beginAtLines();
  if (books_.years.hasTable()) return;
  GETBALANCE();
  context.MsgBox("Year not selected");
}

// A year that was just opened: an empty one is to be entered, of a filled one a line can be chosen.
void frmcrtb::beginAtLines() {
  if (vsfm.rows() > 0) {
    if (vsfm.current() == 0) vsfm.setCurrent(1);
  } else if (books_.years.linesRead()) {
    focus(txtpart);
  }
}

// Whatever statement fails while a year is opened, nothing of the year before is left.
void frmcrtb::emptyYear() {
  // First: a message about a line that was taken out names its group.
  entry_.empty();
  saver_.putBack();
  setCaption("Trial Balance");
  lblsaved.setCaption("");
  importFailed_ = false;
  emptyLines();
  groupPage_.reset();
  summaryPage_.clear();
  ledgersRead_ = groupsRead_ = false;
  entry_.offerLedgers({});
  entry_.offerGroups({});
  books_.groups.clear();
  books_.forgetLocks();
  mnuyropts.setEnabled(false);
  setView(View::current);
  showPage(famLines);
  SETBUTTON();
}

void frmcrtb::emptyLines() {
  lines_.clear();
  books_.years.forgetLines();
  for (auto* totals : {&txttotdeb, &txttotcr}) {
    for (auto& total : *totals) total->setText("");
  }
  for (TextBox* box : {&txtdiff, &txtdifft}) box->setText("");
  lblagrees.setCaption("");
}

void frmcrtb::FORM_UNLOAD() {
  entry_.empty();
  saver_.close();
  entry_.hideLists();
  books_.leave();
}

void frmcrtb::readRegisters() {
  books_.years.readRegisters();
  mnuyropts.setEnabled(books_.years.hasTable() && books_.years.has(previous));
  books_.readLocks(lbllock);
}

// The home form or another station may have locked a year or unlocked it.
void frmcrtb::activated() {
  const ScopedFlag asking(asksNothing_);
  logErrors("FORM_ACTIVATE", [&] { books_.lookAtLocks(lbllock); });
  SETBUTTON();
  if (books_.mustBeReadAnew()) showStored();
}

// --- ledgers and groups -------------------------------------------------------------------------

void frmcrtb::LOADPARTICULARS() {
  logErrors("LOADPARTICULARS", [&] {
    ledgersRead_ = false;
    entry_.offerLedgers({});
    ServiceObject& host = books_.host();
    host.objProgress().Text1("Loading Ledger List....");
    entry_.offerLedgers(mnuclonly.checked() ? ledgersOf(host, books_.years.client())
                                            : allLedgers(host));
    ledgersRead_ = true;
  });
}

void frmcrtb::LOADGROUPS() {
  logErrors("LOADGROUPS", [&] {
    groupsRead_ = false;
    entry_.offerGroups({});
    books_.groups.load(books_.host());
    entry_.offerGroups(books_.groups.names());
    groupsRead_ = true;
  });
}

// --- the lines ----------------------------------------------------------------------------------

void frmcrtb::LOADTRIALBAL() {
  TwoYears& years = books_.years;
  bool read = false;
  importFailed_ = false;
  logErrors("LOADTRIALBAL", [&] {
    const char* ofYears = years.view() == View::previous ? " (Previous Year)"
                          : years.view() == View::both   ? " (with Previous Year)"
                                                         : "";
    setCaption("Trial Balance of " + years.clientName() + " for the Period " +
               shownDate(years.keys(current).first) + " - " +
               shownDate(years.keys(current).second) + ofYears);
    SETBUTTONS();
    std::function<bool()> offerImport;
    const bool mayImport = saver_.complete() && !asksNothing_ && !books_.locked(current);
    if (mayImport) offerImport = [this] { return importPreviousYear(); };
    TwoYears::Lines lines = years.read(offerImport);
    std::vector<Entry> entries = pairLines(lines[current], lines[previous]);
    fillNames(entries, books_.host(), books_.groups);
    sortEntries(entries, sort_);
    years.keep(std::move(lines));
    importFailed_ = importFailed_ && years.lines(current).empty();
    lines_.show(std::move(entries), years);
    GETBALANCE();
    read = true;
  });
  const std::string hinted = lblhint.caption();
  if (!read || importFailed_ || hinted == unread || hinted == notImported) hint(read ? "" : unread);
  if (!read || !saver_.complete()) return;
  const std::string loss = entry_.lossOfAltered();
  if (loss.empty()) return;
  // What was typed over it can be read for as long as nothing can be stored.
  if (books_.locked(entry_.year())) return;
  leaveEntry();
  hint(loss);
}

bool frmcrtb::importPreviousYear() {
  const Answer answer =
      books_.context.MsgBox("Do you want to Import \"Trail Balance\" from Previous F.Y. ?",
                            Buttons::YesNo, Icon::question, Answer::No);
  if (answer != Answer::Yes) return false;
  importFailed_ = true;
  logErrors("LOADTRIALBAL", [&] {
    const TwoYears& years = books_.years;
    TrialBalance(books_.host(), years.books(current))
        .copyFrom(TrialBalance(books_.host(), years.books(previous)));
    importFailed_ = false;
  });
  return true;
}

void frmcrtb::GETBALANCE() {
  logErrors("GETBALANCE", [&] {
    const auto shown = [&](double amount) { return groupedAmount(books_.host(), amount); };
    for (const TwoYears::Year year : {current, previous}) {
      const Totals totals = totalsOf(books_.years.lines(year));
      txttotdeb[year].setText(shown(totals.debit));
      txttotcr[year].setText(shown(totals.credit));
      if (year == previous) continue;
      // The two sums are compared as they are, without rounding.
      const double difference = totals.debit - totals.credit;
      txtdiff.setText(difference == 0 ? "" : shown(std::fabs(difference)));
      txtdifft.setText(difference == 0 ? "" : difference > 0 ? "Debit" : "Credit");
      const bool agrees = Money::rounded(difference).isZero() && !books_.years.lines(year).empty();
      lblagrees.setCaption(agrees ? "Agrees" : "");
    }
  });
}

void frmcrtb::REFRESHTB() {
  logErrors("REFRESHTB", [&] {
    reload();
    reloadPage();
  });
}

// Reads the lines, and what an attempt before this one could not read.
void frmcrtb::reload() {
  const Busy busy(books_.host());
  const bool table = books_.years.hasTable();
  // A question comes before they are read.
  if (table && !books_.years.linesRead()) lblhint.setCaption("");
  readRegisters();
  if (!ledgersRead_) LOADPARTICULARS();
  if (!groupsRead_) LOADGROUPS();
  if (table) LOADTRIALBAL();
  SETBUTTON();
}

// What stands beside the lines is drawn from them.
void frmcrtb::reloadPage() {
  if (famGroups.visible()) groupPage_.LOADGROUPSEXISTS();
  if (famSummary.visible()) LOADFIGS();
}

void frmcrtb::readStored() {
  emptyLines();
  reload();
}

void frmcrtb::showStored(View view) {
  const auto selected = lines_.selectedLine();
  emptyLines();
  setView(view);
  REFRESHTB();
  if (selected) lines_.select(*selected);
}

// Whatever was remembered of ledgers, groups and lines may have been taken back with the act.
void frmcrtb::takenBack() {
  const ScopedFlag asking(asksNothing_);
  const auto saved = saver_.takenBack();
  ledgersRead_ = groupsRead_ = false;
  if (!visible()) return;
  lblsaved.setCaption("");
  showStored();
  if (!saved) return logErrors("TAKENBACK", [&] { entry_.followNames(); });
  const auto year = saved->altered ? saved->altered->year : books_.years.yearInView();
  if (!books_.locked(year)) {
    const ScopedFlag leaving = entry_.leaving();
    focus(txtdrcr);
  }
  entry_.restore(*saved);
  logErrors("TAKENBACK", [&] { entry_.followNames(); });
  hint(books_.locked(year) ? "The line was not saved. It stays here to be read."
                           : "The line was not saved. Enter tries again.");
}

// Whoever works in another form is not asked about this one.
void frmcrtb::booksMoved(bool masters) {
  const ScopedFlag asking(asksNothing_);
  if (masters) ledgersRead_ = groupsRead_ = false;
  if (!visible()) return;
  if (masters) {
    LOADPARTICULARS();
    LOADGROUPS();
  }
  Control* const typed = entry_.contains(active()) ? active() : nullptr;
  logErrors("BOOKSMOVED", [&] { books_.lookAtLocks(lbllock); });
  SETBUTTON();
  // Where nobody else may change the lines, only their names can have changed.
  if (books_.mustBeReadAnew()) {
    showStored();
  } else if (masters || books_.anyLocked()) {
    refreshShownLines();
  }
  if (masters) logErrors("BOOKSMOVED", [&] { entry_.followNames(); });
  // A year that was lost may be had again by this: whoever was typing goes on.
  if (typed != nullptr && typed != active() && typed->enabled()) entry_.goOnIn(*typed);
}

// --- views and settings -------------------------------------------------------------------------

void frmcrtb::setView(View view) {
  TwoYears& years = books_.years;
  years.setView(view);
  for (auto& entry : mnuyrs) entry->setChecked(entry->index() == static_cast<int>(view));
  for (const TwoYears::Year year : {current, previous}) {
    for (Control* control :
         std::initializer_list<Control*>{&lblyear[year], &txttotdeb[year], &txttotcr[year]}) {
      control->setVisible(years.inView(year));
    }
  }
  txtdiff.setVisible(years.inView(current));
  txtdifft.setVisible(years.inView(current));
  lblagrees.setVisible(years.inView(current));
  SETBUTTONS();
}

void frmcrtb::MNUYRS_CLICK(int index) {
  leaveEntry();
  showStored(static_cast<View>(index));
  beginAtLines();
}

void frmcrtb::chooseLedgers(const std::string& setting) {
  mnuall.setChecked(setting == "0");
  mnuclonly.setChecked(setting != "0");
}

void frmcrtb::chooseSort(const std::string& setting) {
  const int option = setting.size() == 1 && setting >= "1" && setting <= "4" ? setting[0] - '0' : 1;
  sort_ = static_cast<SortOption>(option);
  vsfm.clearSort();
  for (auto& entry : mnusortopt) entry->setChecked(entry->index() == option - 1);
}

// Whoever cannot keep a choice for the next time has it for this one.
void frmcrtb::MNUSORTOPT_CLICK(int index) {
  const std::string setting = std::to_string(index + 1);
  logErrors("MNUSORTOPT_CLICK", [&] { books_.host().SaveSettingINI(settings, "TBSort", setting); });
  chooseSort(setting);
  reload();
  reloadPage();
}

void frmcrtb::MNUALL_CLICK() { loadLedgerList("MNUALL_CLICK", "0"); }

void frmcrtb::MNUCLONLY_CLICK() { loadLedgerList("MNUCLONLY_CLICK", "1"); }

void frmcrtb::loadLedgerList(const char* procedure, const std::string& setting) {
  logErrors(procedure, [&] { books_.host().SaveSettingINI(settings, "ShLed", setting); });
  chooseLedgers(setting);
  const Busy busy(books_.host());
  LOADPARTICULARS();
}

}  // namespace quillet
