#include "suite/history/as_of_form.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "books/amount.h"
#include "books/clients.h"
#include "data/text.h"
#include "host/report_table.h"
#include "ports/busy.h"
#include "suite/history/change_texts.h"

namespace quillet::suite {
namespace {

// Hours, minutes and, where they are told, seconds; nothing when the text is no time of a day.
struct TimeOfDay {
  int hour = 0;
  int minute = 0;
  int second = 0;
};
std::optional<TimeOfDay> readTime(const std::string& text) {
  TimeOfDay time;
  int used = 0;
  const int read = std::sscanf(text.c_str(), "%2d:%2d%n:%2d%n", &time.hour, &time.minute, &used,
                               &time.second, &used);
  const bool whole = read >= 2 && static_cast<std::size_t>(used) == text.size();
  const auto within = [](int value, int limit) { return value >= 0 && value < limit; };
  if (!whole || !within(time.hour, 24) || !within(time.minute, 60) || !within(time.second, 60)) {
    return std::nullopt;
  }
  return time;
}

std::string nameThenAndNow(const std::string& then, const std::string& now) {
  return now.empty() || now == then ? then : then + " (now " + now + ')';
}

}  // namespace

frmasof::frmasof(Context& context, UnitOfWork& unit)
    : Form(context.openForms, "frmasof"), context_(context), unit_(unit) {
  setCaption("As It Stood");
  size = {0.8, 0.8, 1.0};
  vsf.setColumns({{.heading = "Ledger", .width = 34, .stretch = true},
                  {.heading = "Group", .width = 28, .stretch = true},
                  {.heading = "Then", .align = Align::right, .width = 18, .numeric = true},
                  {.heading = "Now", .align = Align::right, .width = 18, .numeric = true},
                  {.heading = "Difference", .width = 16}});
  vsf.setZebra(true);
  for (TextBox* total : {&txtthendr, &txtthencr, &txtnowdr, &txtnowcr}) total->makeFigure();
  for (Label* label : {&lblsubject, &lblstate}) label->setQuiet(true);
  txttime.setMaxLength(8);
  attachCommands();
}

void frmasof::attachCommands() {
  for (Control* box : {static_cast<Control*>(&mskdate), static_cast<Control*>(&txttime)}) {
    box->KeyPress = [this](Key& key) {
      if (key != keys::Enter) return;
      key = keys::none;
      click(cmdshow);
    };
  }
  on(cmdshow.Click, "SHOWASOF", [this] {
    const auto moment = typedMoment();
    if (!moment) return;
    at_ = *moment;
    showBooks();
    if (vsf.rows() > 0) focus(vsf);
  });
  on(cmdearlier.Click, "SHOWASOF", [this] { step(false); });
  on(cmdlater.Click, "SHOWASOF", [this] { step(true); });
  chkdiffers.Click = [this] { showRows(); };
  on(cmdprint.Click, "PRINTASOF", [this] {
    focus(vsf);
    print();
  });
  cmdclose.Click = [this] { close(); };
  cmdclose.causesValidation = false;
  KeyPress = [this](Key& key) { formKey(key); };
}

void frmasof::formKey(Key& key) {
  if (key != keys::Escape) return;
  key = keys::none;
  close();
}

void frmasof::showYear(const YearOfClient& year, Instant at) {
  if (!close()) return;
  year_ = year;
  at_ = at != 0
            ? at
            : std::max(localInstant(*readDate(localDay(instantNow()))) - 1, historyBegins(unit_));
  showModal();
}

void frmasof::load() {
  context_.host->resize_for_resolution(*this);
  setCaption("As It Stood - " + subject());
  lblsubject.setCaption(subject());
  chkdiffers.setChecked(false);
  showMoment();
  showBooks();
  focus(vsf.rows() > 0 ? static_cast<Control&>(vsf) : mskdate);
}

void frmasof::unload(bool& /*cancel*/) { empty(); }

void frmasof::takenBack() {
  logErrors("TAKENBACK", [&] { showBooks(); });
}

std::string frmasof::subject() const {
  return subjectOf(year_.clientName, year_.client, year_.firstDate, year_.secondDate);
}

std::string frmasof::fileSubject() const {
  return fileSubjectOf(year_.clientName, year_.client, year_.firstDate);
}

// --- the moment ---------------------------------------------------------------------------------

// All that happened within the second typed has happened then.
std::optional<Instant> frmasof::typedMoment() {
  const auto refuse = [&](const std::string& text, Control& box) {
    empty();
    vsf.setEmptyText(text);
    focus(box);
    return std::nullopt;
  };
  if (!isDate(mskdate.text())) {
    return refuse("There is no day " + mskdate.text() + ". Please correct the date.", mskdate);
  }
  const Date day = *readDate(mskdate.text());
  const std::string text(trimmed(txttime.text()));
  if (text.empty()) return dayAfter(day) - 1;
  const auto time = readTime(text);
  if (!time) {
    return refuse("\"" + text + "\" is no time of a day. Please type it as 14:45 or 14:45:07.",
                  txttime);
  }
  return localInstant(day, time->hour, time->minute, time->second) + oneSecond - 1;
}

void frmasof::showMoment() {
  mskdate.setText(localDay(at_));
  txttime.setText(localTime(at_).substr(11));
}

void frmasof::step(bool later) {
  const Instant act = nearestAct(unit_, {year_.client, year_.secondDate}, at_, later);
  if (act == 0) {
    lblstate.setCaption(later ? "No later act changed these lines."
                              : "No earlier act changed these lines.");
    return;
  }
  at_ = act;
  showMoment();
  showBooks();
}

// --- the books ----------------------------------------------------------------------------------

void frmasof::empty() {
  vsf.clearRows();
  books_ = {};
  for (TextBox* total : {&txtthendr, &txtthencr, &txtnowdr, &txtnowcr}) total->setText("");
  lblstate.setCaption("");
  cmdprint.setEnabled(false);
}

void frmasof::showBooks() {
  empty();
  vsf.clearSort();
  vsf.setEmptyText("The trial balance could not be read.");
  const Busy busy(*context_.host);
  books_ = trialBalanceAsOf(unit_, {year_.client, year_.secondDate}, at_);
  if (!books_.refused.empty()) {
    vsf.setEmptyText(books_.refused + '.');
    return;
  }
  const ServiceObject& host = *context_.host;
  txtthendr.setText(groupedAmount(host, books_.then.debit));
  txtthencr.setText(groupedAmount(host, books_.then.credit));
  txtnowdr.setText(groupedAmount(host, books_.now.debit));
  txtnowcr.setText(groupedAmount(host, books_.now.credit));
  showRows();
}

// What differs is emphasised.
void frmasof::showRows() {
  if (!books_.refused.empty()) return;
  vsf.clearRows();
  std::size_t differing = 0;
  for (int at = 0; at < std::ssize(books_.lines); ++at) {
    const LineAsOf& line = books_.lines[at];
    const std::string difference = line.difference();
    if (!difference.empty()) ++differing;
    if (chkdiffers.checked() && difference.empty()) continue;
    const auto text = [&](const std::optional<BookRow>& row) {
      return row ? balanceText(*context_.host, row->balance) : std::string();
    };
    const int row = vsf.addRow(
        {nameThenAndNow(line.ledger, line.ledgerNow), nameThenAndNow(line.group, line.groupNow),
         text(line.rows.before), text(line.rows.after), difference},
        at + 1);
    vsf.setRowEmphasised(row, !difference.empty());
  }
  vsf.setEmptyText(books_.lines.empty() ? "There were no lines, and there are none."
                                        : "Nothing differs from today.");
  vsf.setCurrent(std::min(1, vsf.rows()));
  cmdprint.setEnabled(vsf.rows() > 0);
  std::string state = "As it stood on " + localTime(at_) + ": ";
  state += differing == 0   ? "nothing differs from today."
           : differing == 1 ? "1 line differs from today."
                            : std::to_string(differing) + " lines differ from today.";
  if (!books_.wasThere) state += " The year was not there.";
  if (!books_.isThere) state += " Today the year is not there.";
  lblstate.setCaption(state);
}

void frmasof::print() {
  Reporter& reporter = *context_.reporter;
  const Busy busy(*context_.host);
  reporter.WinModeReport(true);
  reporter.NewReport();
  reporter.printtext(printer::emphasised("Trial Balance as It Stood"));
  reporter.printtext(lblstate.caption());
  reporter.printtext(printer::control);
  ReportTable table(reporter, {Align::left, Align::left, Align::right, Align::right, Align::left});
  table.heading(
      {"Ledger", "Group", "Then", "Now", std::string("Difference") + printer::emphasisOff});
  for (int row = 1; row <= vsf.rows(); ++row) {
    std::vector<std::string> cells;
    for (int column = 0; column < vsf.cols(); ++column) cells.push_back(vsf.cell(row, column));
    table.row(std::move(cells));
  }
  const auto total = [&](const char* name, const TextBox& then, const TextBox& now) {
    table.row({name, "", printer::emphasised(then.text()), printer::emphasised(now.text())});
  };
  total("Total Debit", txtthendr, txtnowdr);
  total("Total Credit", txtthencr, txtnowcr);
  reporter.ShowReport();
}

LayoutItem frmasof::layout() {
  const auto totals = [](const char* name, TextBox& debit, TextBox& credit) {
    const std::string which = name;
    return row({named("Total debit " + which, field(which + ": Debit", debit, 18)),
                named("Total credit " + which, field("Credit", credit, 18))});
  };
  return column(
      {item(lblsubject),
       row({field("&Date", mskdate, 12), field("&Time", txttime, 10), item(cmdshow),
            item(cmdearlier), item(cmdlater), gap(), item(chkdiffers)}),
       named("Trial balance then and now", item(vsf, 1)), item(lblstate),
       row({totals("Then", txtthendr, txtthencr), gap(), totals("Now", txtnowdr, txtnowcr)}),
       row({item(cmdprint), gap(), item(cmdclose)})});
}

}  // namespace quillet::suite
