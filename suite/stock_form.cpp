#include "suite/stock_form.h"

#include <algorithm>

#include "books/account_groups.h"
#include "books/amount.h"
#include "books/client_years.h"
#include "books/clients.h"
#include "books/locked_years.h"
#include "controls/open_forms.h"
#include "data/names.h"
#include "data/sql.h"
#include "data/table_names.h"
#include "data/text.h"
#include "host/meant_name.h"
#include "host/saved_text.h"
#include "suite/schema.h"

namespace quillet::suite {
namespace {

constexpr int amountLength = 20;
constexpr const char* changedElsewhere =
    "Somebody else has changed this line meanwhile, or deleted it. The list shows what is stored.";

std::string trialBalanceOf(const std::string& stock) {
  return trialBalanceTable(replacedAll(upperCase(stock), stockTable("TAB_"), ""));
}

}  // namespace

frmTrade::frmTrade(OpenForms& openForms, Dialogs& dialogs, const Clock& clock, YearLocks* locks,
                   LossNote::Tell notice)
    : Form(openForms, "frmTrade"),
      dialogs_(dialogs),
      clock_(clock),
      locks_(locks),
      notice_(std::move(notice)) {
  setCaption("Closing Stock");
  size = {0.6, 0.6, 1.0};
  vsf.setColumns({{.heading = "Particulars", .width = 32, .stretch = true},
                  {.heading = "Group", .width = 32},
                  {.heading = "Amount", .align = Align::right, .width = 18, .numeric = true}});
  vsf.setEmptyText("Type a particular, its group and the amount of its closing stock below.");
  vsf.DblClick = [this] { alterLine(); };
  vsf.RowColChange = [this] { cmddelete.setEnabled(vsf.current() > 0); };
  vsf.KeyDown = [this](Key& key) {
    if (key != keys::Delete) return;
    key = keys::none;
    click(cmddelete);
  };
  cmddelete.Click = [this] {
    deleteLine();
    focus(vsf);
  };
  cmddelete.causesValidation = false;
  cmdclose.Click = [this] { close(); };
  cmdclose.causesValidation = false;
  KeyPress = [this](Key& key) { formKey(key); };
  txttotal.makeFigure();
  for (Label* label : {&lblhint, &lblsubject}) label->setQuiet(true);
  attachEntry();
}

void frmTrade::attachEntry() {
  for (TextBox* name : {&txtpart, &txtgroup}) name->setMaxLength(ledgerNameLength);
  ledgers_.attach(txtpart);
  groups_.attach(txtgroup);
  txtgroup.LostFocus = [this] {
    groups_.hide();
    if (const auto* group = typedGroup()) txtgroup.setText(group->name);
  };
  txtamount.setMaxLength(amountLength);
  txtamount.setRightAligned(true);
  txtamount.GotFocus = [this] { txtamount.selectAll(); };
  txtamount.KeyPress = [this](Key& key) {
    if (key != keys::Enter) return;
    key = keys::none;
    saveLine();
  };
}

// Escape gives up an entry, then closes; Enter on a line alters it.
void frmTrade::formKey(Key& key) {
  if (key == keys::Escape) {
    key = keys::none;
    if (!entering()) {
      close();
      return;
    }
    clearEntry();
    focus(vsf);
  } else if (key == keys::Enter && active() == &vsf) {
    key = keys::none;
    alterLine();
  }
}

bool frmTrade::entering() const {
  return !(txtpart.text() + txtgroup.text() + txtamount.text()).empty() || altered_;
}

void frmTrade::LoadData(ServiceObject& host, const std::string& client, const std::string& table) {
  host_ = &host;
  books_ = {table, client};
  stock_.emplace(host, books_);
}

void frmTrade::Show(int modal, std::function<void()> closed) {
  if (modal == 1) {
    showModal(std::move(closed));
  } else {
    show();
  }
}

void frmTrade::load() {
  host_->resize_for_resolution(*this);
  loss_.forget();
  showSubject();
  showLock();
  groups_.fill(stockGroups(*host_));
  ledgers_.fill(stockLedgers(*host_));
  showLines();
  clearEntry();
  focus(vsf.rows() > 0 || lock_ ? static_cast<Control&>(vsf) : txtpart);
}

void frmTrade::showSubject() {
  const std::string& client = books_.client;
  keys_ = {};
  subject_ = client;
  logErrors("SUBJECT", [&] {
    ClientYears names(*host_);
    const YearKeys& year = names.year(client, trialBalanceOf(books_.table));
    if (year.first.empty()) return;
    keys_ = year;
    subject_ = subjectOf(names.client(client), client, year.first, year.second);
  });
  lblsubject.setCaption(subject_);
}

// Whoever is typing when the year is lost goes on in the list.
void frmTrade::showLock() {
  lock_ = hold_.enter(
      locks_, dialogs_, [this] { return subject_; }, books_.client, keys_.second,
      trialBalanceOf(books_.table));
  lbllock.setCaption(lock_ ? lockCaption(*lock_) : "");
  lbllock.setVisible(lock_.has_value());
  for (TextBox* box : {&txtpart, &txtgroup, &txtamount}) {
    if (lock_ && active() == box) focus(vsf);
    box->setEnabled(!lock_);
  }
  loss_.see(
      lock_, locks_, *this, entering(), [this] { return subject_; }, notice_);
}

bool frmTrade::refusesChange() {
  const auto lock = locks_ ? locks_->find(books_.client, keys_.second) : std::nullopt;
  if (lock) ask(lockedText(subject_, *lock));
  return lock.has_value();
}

void frmTrade::showLines() {
  const int selected = vsf.current();
  vsf.clearRows();
  txttotal.setText("");
  // The tables of a year that is gone may be another one's.
  lines_ = lock_ && lock_->gone ? std::vector<ClosingStock::Line>() : stock_->lines();
  double total = 0;
  for (int at = 0; at < std::ssize(lines_); ++at) {
    const ClosingStock::Line& line = lines_[at];
    total += line.amount;
    vsf.addRow(
        {host_->GetPart_MastPartId(line.pair.partId), line.group, plainAmount(*host_, line.amount)},
        at + 1);
  }
  txttotal.setText(groupedAmount(*host_, total));
  vsf.setCurrent(std::min(selected, vsf.rows()));
  cmddelete.setEnabled(vsf.current() > 0);
}

// --- entering -----------------------------------------------------------------------------------

void frmTrade::clearEntry() {
  for (TextBox* box : {&txtpart, &txtgroup, &txtamount}) box->setText("");
  altered_.reset();
  lblhint.setCaption("");
}

void frmTrade::alterLine() {
  if (vsf.current() == 0 || refusesChange()) return;
  const ClosingStock::Line& line = lines_[vsf.currentId() - 1];
  altered_ = line.pair;
  alteredAmount_ = line.amount;
  alteredName_ = vsf.cell(vsf.current(), 0);
  txtpart.setText(vsf.cell(vsf.current(), 0));
  txtgroup.setText(line.group);
  txtamount.setText(plainAmount(*host_, line.amount));
  focus(txtpart);
  lblhint.setCaption("Altering the selected line. Esc leaves it as it was.");
}

void frmTrade::deleteLine() {
  if (vsf.current() == 0 || refusesChange()) return;
  const LedgerGroup pair = lines_[vsf.currentId() - 1].pair;
  const Answer answer =
      ask("Do you want to delete the selected record?", Buttons::YesNo, Icon::none);
  if (answer == Answer::Yes) change([&] { stock_->remove(pair); });
}

const NameList::Entry* frmTrade::typedGroup() const {
  const NameList::Entry* named = groups_.names().find(txtgroup.text());
  return named ? named : groups_.names().beginning(txtgroup.text());
}

void frmTrade::saveLine() {
  const bool altering = altered_.has_value();
  begins("SAVELINE");
  if (refusesChange()) return;
  if (altering && !altered_) {
    ask(changedElsewhere);
    return;
  }
  const std::string name = cleanedName(txtpart.text());
  const auto amount = typedAmount(txtamount.text());
  if (name.empty() || trimmed(txtgroup.text()).empty() || !amount || *amount <= Money()) {
    ask("Cannot save the entry due to invalid data.", Buttons::OK, Icon::none);
    return;
  }
  const NameList::Entry* group = typedGroup();
  const std::vector<long> ids = group ? groupIds(*host_, group->name) : std::vector<long>();
  if (ids.empty()) {
    ask("Group does not exist.");
    return;
  }
  const bool listed = ledgers_.names().find(name) != nullptr;
  const LedgerGroup pair{host_->GetMax_MastPartId(name), ids.front()};
  if (pair.partId == 0) {
    ask("Failed to Create Master [" + name + "].");
    return;
  }
  if (!ledgerMeant(*host_, dialogs_, name, pair.partId, caption())) {
    focus(txtpart);
    lblhint.setCaption(chooseAnotherName);
    return;
  }
  lastSave_ = {openForms().acts.number(), txtpart.text(), txtgroup.text(),
               txtamount.text(),          altered_,       listed};
  change([&] { stock_->save(pair, *amount, altered_); });
  const NameList::Entry* known = ledgers_.names().find(name);
  if (!known || known->name != name) ledgers_.fill(stockLedgers(*host_));
  focus(txtpart);
  lblhint.setCaption(savedText(clock_));
}

// An entry that failed is still in its fields and may be saved again. Either way the list shows
// what is stored.
void frmTrade::change(const std::function<void()>& statements) {
  changedRow_ = vsf.current();
  try {
    statements();
  } catch (...) {
    showLines();
    throw;
  }
  clearEntry();
  showLines();
  host_->ConQuery(flushTables);
}

// What was typed is shown again, to be saved once more.
void frmTrade::takenBack() {
  logErrors("TAKENBACK", [&] { showLock(); });
  const bool saved = lastSave_.act == openForms().acts.number();
  if (saved) restoreEntry();
  logErrors("TAKENBACK", [&] {
    // A ledger that the save had made is gone with it and will be made again.
    if (saved && !lastSave_.listed) ledgers_.fill(stockLedgers(*host_));
    followLedger();
    showLines();
  });
  vsf.setCurrent(std::min(changedRow_, vsf.rows()));
  leaveMovedLine();
}

void frmTrade::restoreEntry() {
  if (!lock_) focus(txtamount);
  txtpart.setText(lastSave_.ledger);
  txtgroup.setText(lastSave_.group);
  txtamount.setText(lastSave_.amount);
  altered_ = lastSave_.altered;
  lblhint.setCaption(lock_ ? "The line was not saved. It stays here to be read."
                           : "The line was not saved. Enter tries again.");
}

void frmTrade::booksMoved(bool masters) {
  logErrors("BOOKSMOVED", [&] {
    if (masters) followLedger();
    showLock();
    showLines();
  });
  leaveMovedLine();
}

// A line goes on with a ledger that another station has renamed. The list knows names alone: in a
// new line one that is gone is chosen again, or it would become a second ledger.
void frmTrade::followLedger() {
  const std::string typed = txtpart.text();
  const bool wasKnown = ledgers_.names().find(typed) != nullptr;
  ledgers_.fill(stockLedgers(*host_));
  if (!wasKnown || ledgers_.names().find(typed)) return;
  const bool own = altered_ && typed == alteredName_;
  alteredName_ = own ? host_->GetPart_MastPartId(altered_->partId) : std::string();
  txtpart.setText(alteredName_);
  lblhint.setCaption("The ledger \"" + typed + "\" was renamed or deleted meanwhile" +
                     (alteredName_.empty() ? ". Please choose it again."
                                           : ": it is \"" + alteredName_ + "\" now."));
}

std::string frmTrade::entry() const {
  return txtpart.text() + ", " + txtgroup.text() + ", " + txtamount.text();
}

// Nothing is altered that is not stored as it was when a person chose it. While nothing can be
// stored it stays to be read.
void frmTrade::leaveMovedLine() {
  if (!altered_ || lock_) return;
  const bool stands = std::ranges::any_of(lines_, [&](const ClosingStock::Line& line) {
    return line.pair == *altered_ && line.amount == alteredAmount_;
  });
  if (stands) return;
  const std::string typed = entry();
  clearEntry();
  lblhint.setCaption(std::string(changedElsewhere) + " Not stored: " + typed + '.');
}

Answer frmTrade::ask(const std::string& text, Buttons buttons, Icon icon) {
  return dialogs_.MsgBox(
      {text, "Closing Stock", buttons, icon, buttons == Buttons::OK ? Answer::OK : Answer::No});
}

LayoutItem frmTrade::layout() {
  return column({item(lblsubject), item(lbllock), named("Closing stock", item(vsf, 1)),
                 row({field("&Particulars", txtpart, 32, 1), field("&Group", txtgroup, 28, 1),
                      field("A&mount", txtamount, 18), named("Ledgers that match", item(vsfp)),
                      named("Groups that match", item(vsfg))}),
                 item(lblhint),
                 row({item(cmddelete), item(cmdclose), gap(), field("Total", txttotal, 18)})});
}

}  // namespace quillet::suite
