#include "suite/history/changes_form.h"

#include <algorithm>
#include <utility>

#include "books/clients.h"
#include "data/year.h"
#include "host/report_table.h"
#include "ports/busy.h"
#include "suite/history/change_texts.h"
#include "suite/history/changes_output.h"
#include "suite/schema.h"

namespace quillet::suite {
namespace {

constexpr long many = 5'000;

std::string counted(std::size_t number, const std::string& one) {
  return std::to_string(number) + ' ' + one + (number == 1 ? "" : "s");
}

// A month before that day.
Date monthBefore(Date day) {
  if (--day.month == 0) day = {day.year - 1, 12, day.day};
  while (!exists(day)) --day.day;
  return day;
}

}  // namespace

frmchanges::frmchanges(Context& context, UnitOfWork& unit, ShowAsOf showAsOf)
    : Form(context.openForms, "frmchanges"),
      context_(context),
      unit_(unit),
      showAsOf_(std::move(showAsOf)) {
  setCaption("Changes");
  size = {0.9, 0.85, 1.0};
  vsf.setColumns({{.heading = "When", .width = 19, .dated = true},
                  {.heading = "What", .width = 8},
                  {.heading = "Of", .width = 16},
                  {.heading = "Ledger", .width = 24, .stretch = true},
                  {.heading = "Group", .width = 24},
                  {.heading = "Old", .align = Align::right, .width = 15, .numeric = true},
                  {.heading = "New", .align = Align::right, .width = 15, .numeric = true},
                  {.heading = "Person", .width = 10},
                  {.heading = "Command", .width = 16},
                  {.heading = "Form", .width = 20},
                  {.heading = "Station", .width = 12},
                  {.heading = "Remark", .width = 30}});
  vsf.setZebra(true);
  for (Label* label : {&lblsubject, &lblact, &lblcount}) label->setQuiet(true);
  attach();
}

void frmchanges::attach() {
  txtledger.setMaxLength(ledgerNameLength);
  ledgers_.attach(txtledger);
  for (Control* box : {static_cast<Control*>(&mskfrom), static_cast<Control*>(&msktill),
                       static_cast<Control*>(&txtledger)}) {
    box->KeyPress = [this](Key& key) {
      if (key != keys::Enter) return;
      key = keys::none;
      click(cmdshow);
    };
  }
  cboyear.Click = [this] {
    showSubject();
    showChanges();
  };
  cmdshow.Click = [this] {
    showChanges();
    if (vsf.rows() > 0) focus(vsf);
  };
  vsf.RowColChange = [this] { tellAct(); };
  on(vsf.DblClick, "SHOWASOF", [this] { showAsItStood(); });
  on(cmdasof.Click, "SHOWASOF", [this] { showAsItStood(); });
  on(cmdprint.Click, "PRINTCHANGES", [this] {
    focus(vsf);
    if (agreed("print")) printChanges(context_, *changes_, lblcount.caption());
  });
  on(cmdexport.Click, "EXPORTCHANGES", [this] {
    focus(vsf);
    if (agreed("export")) exportChanges(context_, *changes_, fileSubject());
  });
  cmdclose.Click = [this] { close(); };
  cmdclose.causesValidation = false;
  KeyPress = [this](Key& key) { formKey(key); };
}

// Escape closes; Enter on a change shows the trial balance as it stood after it.
void frmchanges::formKey(Key& key) {
  if (key == keys::Escape) {
    key = keys::none;
    close();
  } else if (key == keys::Enter && active() == &vsf) {
    key = keys::none;
    click(cmdasof);
  }
}

void frmchanges::showYear(const YearOfClient& year) {
  if (!close()) return;
  opened_ = year;
  showModal();
}

void frmchanges::load() {
  context_.host->resize_for_resolution(*this);
  txtledger.setText("");
  fillYears();
  fillLedgers();
  // The clock may have been set back since.
  const YearOfClient year = yearInView();
  const Instant now = std::max(instantNow(), lastChange(unit_, {year.client, year.secondDate}));
  msktill.setText(localDay(now));
  const Date month = monthBefore(*readDate(localDay(now)));
  mskfrom.setText(localDay(localInstant(month)));
  showSubject();
  showChanges();
  focus(vsf.rows() > 0 ? static_cast<Control&>(vsf) : mskfrom);
}

// Nothing of one client is there when the next one's cannot be read.
void frmchanges::unload(bool& /*cancel*/) {
  vsf.clearRows();
  changes_.reset();
  ledgers_.clear();
}

void frmchanges::takenBack() {
  logErrors("TAKENBACK", [&] { showChanges(); });
}

void frmchanges::fillYears() {
  cboyear.clearItems();
  years_ = yearsEver(unit_, opened_.client);
  int chosen = static_cast<int>(years_.size());
  for (int at = 0; at < std::ssize(years_); ++at) {
    const YearEver& year = years_[at];
    cboyear.addItem(yearText(year.firstDate, year.secondDate) + (year.isThere ? "" : " (deleted)"));
    if (year.secondDate == opened_.secondDate) chosen = at + 1;
  }
  cboyear.addItem(allClients);
  cboyear.setChosen(std::max(chosen, 1));
}

// Those that are gone, too.
void frmchanges::fillLedgers() {
  const RecordsetPtr rows =
      unit_.query("select distinct PartId,Particular from Mast_Part for system_time all");
  NameList names;
  for (; !rows->EOF_(); rows->MoveNext()) names.append(rows->text(1), rows->integer(0));
  names.sort();
  ledgers_.fill(std::move(names));
}

// --- what is asked ------------------------------------------------------------------------------

YearOfClient frmchanges::yearInView() const {
  if (showsMasters()) return {};
  const YearEver& year = years_[cboyear.chosen() - 1];
  return {opened_.client, opened_.clientName, year.firstDate, year.secondDate};
}

std::string frmchanges::subject() const {
  const YearOfClient year = yearInView();
  if (year.client.empty()) return allClients;
  return subjectOf(year.clientName, year.client, year.firstDate, year.secondDate);
}

std::string frmchanges::fileSubject() const {
  const YearOfClient year = yearInView();
  if (year.client.empty()) return "All Clients";
  return fileSubjectOf(year.clientName, year.client, year.firstDate);
}

void frmchanges::showSubject() {
  lblsubject.setCaption(subject());
  setCaption("Changes - " + subject());
}

std::optional<Period> frmchanges::period() {
  for (MaskBox* box : {&mskfrom, &msktill}) {
    if (isDate(box->text())) continue;
    vsf.setEmptyText("There is no day " + box->text() + ". Please correct the period.");
    focus(*box);
    return std::nullopt;
  }
  const Date from = *readDate(mskfrom.text());
  const Date till = *readDate(msktill.text());
  return Period{localInstant(from), dayAfter(till)};
}

std::optional<long> frmchanges::ledgerAsked() {
  const std::string name(txtledger.text());
  if (name.empty()) return 0;
  const NameList::Entry* found = ledgers_.names().find(name);
  if (!found) found = ledgers_.names().beginning(name);
  if (found) {
    txtledger.setText(found->name);
    ledgers_.hide();
    return found->id;
  }
  vsf.setEmptyText("There is and was no ledger \"" + name + "\".");
  focus(txtledger);
  return std::nullopt;
}

// --- what is shown ------------------------------------------------------------------------------

void frmchanges::showChanges() {
  vsf.clearRows();
  vsf.clearSort();
  changes_.reset();
  vsf.setEmptyText("The changes could not be read.");
  lblcount.setCaption("");
  tellAct();
  const auto asked = period();
  const auto ledger = asked ? ledgerAsked() : std::nullopt;
  if (ledger) {
    const Busy busy(*context_.host);
    const YearOfClient year = yearInView();
    changes_.emplace(showsMasters()
                         ? changesOfMasters(unit_, *asked, *ledger)
                         : changesOfYear(unit_, {year.client, year.secondDate}, *asked, *ledger));
    vsf.setRows(static_cast<int>(changes_->list.size()), [this](int id) {
      const ChangeTexts texts = textsOf(*context_.host, *changes_, changes_->list[id - 1]);
      return std::vector<std::string>{texts.when,     texts.what,   texts.of,      texts.ledger,
                                      texts.groups(), texts.before, texts.after,   texts.person,
                                      texts.command,  texts.form,   texts.station, texts.remark};
    });
    vsf.setCurrent(std::min(1, vsf.rows()));
    tellCount(*asked);
  }
  for (Button* command : {&cmdprint, &cmdexport}) command->setEnabled(vsf.rows() > 0);
  cmdasof.setEnabled(vsf.rows() > 0 && !showsMasters());
  tellAct();
}

void frmchanges::tellCount(const Period& period) {
  if (changes_->list.empty()) {
    vsf.setEmptyText(whyEmpty(period));
    return;
  }
  lblcount.setCaption(counted(changes_->list.size(), "change") + " in " +
                      counted(changes_->actCount, "act") + ", from " + mskfrom.text() + " to " +
                      msktill.text());
}

std::string frmchanges::whyEmpty(const Period& period) {
  if (period.from >= period.till) return "The period ends before it begins.";
  const Instant begins = historyBegins(unit_);
  if (period.till <= begins) return "There is no history before " + localTime(begins) + '.';
  const std::string nothing =
      "Nothing was changed from " + mskfrom.text() + " to " + msktill.text() + '.';
  if (showsMasters() || !txtledger.text().empty()) return nothing;
  const YearOfClient year = yearInView();
  const Instant last = lastChange(unit_, {year.client, year.secondDate});
  return nothing + (last == 0 ? " The history began on " + localTime(begins) + '.'
                              : " The last change was made on " + localTime(last) + '.');
}

void frmchanges::tellAct() {
  std::string text;
  if (changes_ && vsf.current() > 0) {
    const ChangeTexts texts =
        textsOf(*context_.host, *changes_, changes_->list[vsf.currentId() - 1]);
    text = texts.person.empty() ? texts.when
                                : texts.person + " at " + texts.station + ", " + texts.when;
    for (const std::string& part : {texts.command, texts.form, texts.remark}) {
      if (!part.empty()) text += ", " + part;
    }
  }
  lblact.setCaption(text);
}

void frmchanges::showAsItStood() {
  if (!changes_ || vsf.current() == 0 || showsMasters()) return;
  focus(vsf);
  showAsOf_(yearInView(), changes_->list[vsf.currentId() - 1].at);
}

bool frmchanges::agreed(const char* toWhat) {
  if (!changes_ || changes_->list.empty()) return false;
  if (std::ssize(changes_->list) <= many) return true;
  return context_.MsgBox("Do you want to " + std::string(toWhat) + " all " +
                             std::to_string(changes_->list.size()) +
                             " changes? A shorter period, or one ledger, has fewer.",
                         Buttons::YesNo, Icon::question, Answer::No, "Changes") == Answer::Yes;
}

LayoutItem frmchanges::layout() {
  return column({item(lblsubject),
                 row({field("&Year", cboyear, 22), field("&From", mskfrom, 12),
                      field("&To", msktill, 12), field("&Ledger", txtledger, 28, 1),
                      named("Ledgers that match", item(vsfp)), item(cmdshow)}),
                 named("Changes", item(vsf, 1)), item(lblact), item(lblcount),
                 row({item(cmdasof), item(cmdprint), item(cmdexport), gap(), item(cmdclose)})});
}

}  // namespace quillet::suite
