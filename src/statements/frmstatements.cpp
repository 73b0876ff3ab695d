#include "statements/frmstatements.h"

#include <algorithm>
#include <initializer_list>

#include "books/clients.h"
#include "books/posting.h"
#include "data/year.h"
#include "ports/busy.h"

namespace quillet {
namespace {

using enum TwoYears::Year;

constexpr int amountWidth = 20;
constexpr int noteWidth = 6;

std::vector<GridColumn> columnsOf(const std::string& now, const std::string& before, bool notes) {
  return {{.heading = "Particulars", .width = 40, .stretch = true},
          {.heading = "Note", .align = Align::right, .hidden = !notes, .width = noteWidth},
          {.heading = now, .align = Align::right, .width = amountWidth},
          {.heading = before, .align = Align::right, .width = amountWidth}};
}

}  // namespace

frmstatements::frmstatements(Context& context)
    : Form(context.openForms, "frmstatements"), context_(context), years_(*context.host) {
  for (auto& option : optpage) option->Click = [this] { OPTPAGE_CLICK(); };
  for (Grid* grid : {&vsfh, &vsfl}) grid->sortable = false;
  vsfh.RowColChange = [this] { LOADSCHEDULE(); };
  on(vsfh.DblClick, "LOADSCHEDULE", [this] { focus(vsfl); });
  on(mnurefresh.Click, "LOADSTATEMENTS", [this] { LOADSTATEMENTS(); });
  for (Control* print : std::initializer_list<Control*>{&cmdprint, &mnuPreview}) {
    on(print->Click, "CMDPRINT_CLICK", [this] { CMDPRINT_CLICK(); });
  }
  for (Control* exporting : std::initializer_list<Control*>{&cmdexport, &mnuexport}) {
    on(exporting->Click, "CMDEXPORT_CLICK", [this] { CMDEXPORT_CLICK(); });
  }
  for (Control* back : std::initializer_list<Control*>{&cmdback, &mnuexit}) {
    back->Click = [this] { close(); };
  }
  KeyPress = [this](Key& key) { FORM_KEYPRESS(key); };
  lblstatus.setQuiet(true);
}

LayoutItem frmstatements::layout() {
  return column(
      {row({item(optpage[0]), item(optpage[1]), item(optpage[2]), gap(), item(lblagrees)}),
       named("Heads of the statement", item(vsfh, 2)), item(lblschedule),
       named("Groups and ledgers of the head", item(vsfl, 1)),
       row({item(lblstatus), gap(), item(cmdprint), item(cmdexport), item(cmdback)})});
}

std::string frmstatements::subject() const {
  return subjectOf(clientName_, books_.client, year_.first, year_.second);
}

std::string frmstatements::fileSubject() const {
  return fileSubjectOf(clientName_, books_.client, year_.first);
}

void frmstatements::INITDATA(const ClientTable& books, const std::string& clientName,
                             const YearKeys& year) {
  books_ = books;
  clientName_ = clientName;
  year_ = year;
  setCaption("Statements by Head of " + clientName + " for the Period " + shownDate(year.first) +
             " - " + shownDate(year.second));
}

void frmstatements::FORM_LOAD() {
  context_.host->resize_for_resolution(*this);
  optpage[0].setChecked(true);
  LOADSTATEMENTS();
  focus(vsfh);
}

void frmstatements::takenBack() {
  if (visible()) LOADSTATEMENTS();
}

void frmstatements::empty() {
  pages_ = {};
  for (Grid* grid : {&vsfh, &vsfl}) grid->clearRows();
  for (Label* label : {&lblschedule, &lblagrees}) label->setCaption("");
  lblstatus.setCaption("The statements could not be read. F5 tries again.");
  for (Control* command :
       std::initializer_list<Control*>{&cmdprint, &mnuPreview, &cmdexport, &mnuexport}) {
    command->setEnabled(false);
  }
}

// Everything is read anew: lines, groups, mapping, and the heads themselves.
void frmstatements::LOADSTATEMENTS() {
  const int chosen = vsfh.current();
  empty();
  logErrors("LOADSTATEMENTS", [&] {
    ServiceObject& host = *context_.host;
    const Busy busy(host);
    const auto year = Registry(host).year(books_.client, year_, YearSelect::home);
    if (!year || year->table != books_.table) {
      lblstatus.setCaption("The year is no longer there.");
      return;
    }
    // What a voucher left half posted is not to be seen as the year's figures.
    logErrors("LOADSTATEMENTS", [&] { postAllMissing(host, context_.unposted); });
    years_.setClient(books_.client, clientName_);
    years_.open(books_, year_);
    years_.readRegisters();
    const StatementBooks books = readStatementBooks(host, years_);
    const GroupMappings mappings = GroupMapper(host, books_.client).effective();
    const StatutoryHeadList heads = context_.environment.statutoryHeads()->read();
    const auto made = [&](Scheme scheme) {
      return statementsByHead(books, mappings, heads, scheme);
    };
    const StatementsByHead schedule6 = made(Scheme::schedule6);
    pages_ = {balanceSheet(schedule6), profitAndLoss(schedule6), allHeads(made(Scheme::incomeTax))};
    lblagrees.setCaption(agreementText(host, schedule6));
    lblstatus.setCaption(heads.refused.empty() ? "" : heads.refused.front());
    for (Control* command :
         std::initializer_list<Control*>{&cmdprint, &mnuPreview, &cmdexport, &mnuexport}) {
      command->setEnabled(true);
    }
  });
  showPage();
  if (chosen != 0) vsfh.setCurrent(std::min(chosen, vsfh.rows()));
}

StatementKind frmstatements::kind() const {
  return optpage[1].checked()   ? StatementKind::profitAndLoss
         : optpage[2].checked() ? StatementKind::incomeTax
                                : StatementKind::balanceSheet;
}

void frmstatements::OPTPAGE_CLICK() { showPage(); }

void frmstatements::showPage() {
  const bool notes = kind() != StatementKind::incomeTax;
  vsfh.setColumns(
      columnsOf(amountHeading(years_, current), amountHeading(years_, previous), notes));
  showRows(vsfh, page().rows);
  const auto& rows = page().rows;
  const auto head = std::ranges::find_if(rows, [](const auto& row) { return row.schedule != 0; });
  vsfh.setCurrent(head == rows.end() ? 0 : static_cast<int>(head - rows.begin()) + 1);
  LOADSCHEDULE();
}

void frmstatements::showRows(Grid& grid, const std::vector<StatementRow>& rows) {
  for (const StatementRow& row : rows) {
    grid.setRowEmphasised(grid.addRow(statementCells(*context_.host, row), row.schedule),
                          row.emphasised);
  }
}

void frmstatements::LOADSCHEDULE() {
  const long number = vsfh.currentId();
  vsfl.setColumns(
      columnsOf(amountHeading(years_, current), amountHeading(years_, previous), false));
  lblschedule.setCaption(number == 0 ? "A head's groups and ledgers are listed here."
                                     : page().schedules[number - 1].title);
  if (number != 0) showRows(vsfl, page().schedules[number - 1].rows);
}

// Enter leads to a head's groups, Escape back to the heads and from there to whoever opened the
// form.
void frmstatements::FORM_KEYPRESS(Key& key) {
  if (key == keys::Enter && active() == &vsfh) {
    key = keys::none;
    focus(vsfl);
  } else if (key == keys::Escape) {
    key = keys::none;
    if (active() == &vsfl) return static_cast<void>(focus(vsfh));
    close();
  }
}

void frmstatements::CMDPRINT_CLICK() {
  focusList();
  printStatement(context_, kind(), years_, page());
}

void frmstatements::CMDEXPORT_CLICK() {
  focusList();
  exportStatements(context_, years_, pages_);
}

// From a command's button to where one goes on.
void frmstatements::focusList() {
  if (dynamic_cast<Button*>(active())) focus(vsfh);
}

}  // namespace quillet
