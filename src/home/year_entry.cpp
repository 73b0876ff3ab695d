#include "home/year_entry.h"

#include <algorithm>

#include "books/year_rules.h"
#include "data/dates.h"
#include "data/year.h"
#include "home/third.h"
#include "home/year_table.h"
#include "host/rights.h"
#include "host/year_lock.h"

namespace quillet {

YearEntry::YearEntry(third& form, Context& context)
    : form_(form), context_(context), creation_(*context.host) {
  form.MaskEdBox1.KeyDown = [this](Key& key) { MASKEDBOX1_KEYDOWN(key); };
  form.MaskEdBox1.KeyPress = [this](Key& key) { MASKEDBOX1_KEYPRESS(key); };
  form.MaskEdBox2.GotFocus = [this] { MASKEDBOX2_GOTFOCUS(); };
  form.MaskEdBox2.KeyPress = [this](Key& key) { MASKEDBOX2_KEYPRESS(key); };
  form.cmdyear.Click = [this] { CMDYEAR_CLICK(); };
  form.cmdyearimport.Click = [this] { CMDYEARIMPORT_CLICK(); };
}

// --- the dates ----------------------------------------------------------------------------------

void YearEntry::begin() {
  leave();
  form_.flexgrid2.clearRows();
  form_.mergeList.clear();
  form_.MaskEdBox1.setText(emptyFirstDate);
  form_.MaskEdBox2.setText(emptySecondDate);
  form_.cmdyear.setCaption(form_.mode() == "merge" ? "&Other Clients..." : "Create &Year");
  form_.cmdyearimport.setVisible(form_.mode() == "create" &&
                                 context_.environment.sourceReader() != nullptr);
  source_.reset();
  showYears();
  form_.showSecondStep(form_.famdates, "type the financial year");
  form_.focus(form_.MaskEdBox1);
}

// After a failure they may not be what was read.
void YearEntry::forgetYears() {
  form_.grdyears.clearRows();
  form_.grdyears.setVisible(false);
  form_.lblproposal.setCaption("");
  proposed_.clear();
}

void YearEntry::showYears() {
  forgetYears();
  std::vector<YearFigures> figures;
  bool read = false;
  form_.logErrors("YEARFIGURES", [&] {
    figures = yearFigures(*context_.host, form_.clientCode());
    read = true;
  });
  std::vector<YearKeys> keys;
  for (const YearFigures& year : figures) keys.push_back(year.keys);
  fillYearTable(form_.grdyears, *context_.host, keys, figures,
                readYearNotes(form_, context_, form_.clientCode(), keys));
  form_.grdyears.setCurrent(form_.grdyears.rows());
  form_.grdyears.setVisible(!keys.empty());
  if (read) {
    propose(figures);
  } else {
    form_.lblproposal.setCaption("What the years hold could not be read.");
  }
}

// The year after the latest one; for a client without years the one that ended last.
void YearEntry::propose(const std::vector<YearFigures>& years) {
  int first = 0;
  for (const YearFigures& year : years) first = std::max(first, yearOf(year.keys.second));
  const Date today = context_.clock.today();
  if (years.empty()) first = today.year - (today.month < 4 ? 2 : 1);
  const std::string date = shownDate(firstDateKey(first));
  const std::string second = proposedSecondDate(date);
  if (second.empty() || yearFault(date, second) != YearFault::none) return;
  proposed_ = date;
  form_.lblproposal.setCaption("Down takes " + yearText(date, second) +
                               (years.empty()
                                    ? ", the year that ended last. The client has none yet."
                                    : ", the year after the latest one."));
}

void YearEntry::MASKEDBOX1_KEYDOWN(Key& key) {
  if (key != keys::Down || proposed_.empty()) return;
  key = keys::none;
  form_.MaskEdBox1.setText(proposed_);
  form_.focus(form_.MaskEdBox2);
}

void YearEntry::MASKEDBOX1_KEYPRESS(Key& key) {
  if (key != keys::Enter) return;
  key = keys::none;
  if (isDate(form_.MaskEdBox1.text())) {
    form_.focus(form_.MaskEdBox2);
  } else {
    context_.MsgBox("Invalid date.", Buttons::OK, Icon::information);
  }
}

void YearEntry::MASKEDBOX2_GOTFOCUS() {
  const std::string proposed = proposedSecondDate(form_.MaskEdBox1.text());
  if (proposed.empty()) return;
  form_.MaskEdBox2.setText(proposed);
  form_.MaskEdBox2.setCaret(0);
}

void YearEntry::MASKEDBOX2_KEYPRESS(Key& key) {
  if (key != keys::Enter) return;
  key = keys::none;
  source_.reset();
  if (datesAreValid()) enter();
}

void YearEntry::CMDYEAR_CLICK() {
  source_.reset();
  if (datesAreTyped()) enter();
}

// No year is created for a file that nobody chose or that cannot be read.
void YearEntry::CMDYEARIMPORT_CLICK() {
  source_.reset();
  if (!datesAreTyped()) return;
  source_ = askForSource(context_);
  if (source_) enter();
}

bool YearEntry::datesAreTyped() {
  // Whoever comes from the first date has not been in the second one, which proposes its date.
  if (!form_.MaskEdBox2.complete()) MASKEDBOX2_GOTFOCUS();
  return datesAreValid();
}

bool YearEntry::datesAreValid() {
  const std::string first = form_.MaskEdBox1.text();
  const std::string second = form_.MaskEdBox2.text();
  YearFault fault = yearFault(first, second);
  if (fault == YearFault::none && COMP_DT(first, second) >= 0) fault = YearFault::wrongOrder;
  if (fault == YearFault::none) return true;
  const YearRefusal& refusal = refusalOf(fault);
  context_.MsgBox(refusal.text, Buttons::OK, refusal.icon);
  // First, since entering the second box proposes a date there.
  if (refusal.resetsFirst || refusal.resetsSecond) {
    form_.focus(refusal.resetsFirst ? form_.MaskEdBox1 : form_.MaskEdBox2);
  }
  if (refusal.resetsFirst) form_.MaskEdBox1.setText(emptyFirstDate);
  if (refusal.resetsSecond) form_.MaskEdBox2.setText(emptySecondDate);
  return false;
}

int YearEntry::COMP_DT(const std::string& first, const std::string& second) {
  int order = 0;
  form_.logErrors("COMP_DT", [&] { order = compareDates(first, second); });
  return order;
}

void YearEntry::enter() {
  leave();
  // The client went as the turn came.
  if (form_.clientCode().empty()) return;
  creation_.begin(form_.clientCode(), form_.MaskEdBox1.text(), form_.MaskEdBox2.text());
  const bool merging = form_.mode() == "merge";
  if (const auto existing = creation_.existing()) {
    if (!form_.removal.take(existing->client, existing->keys)) return;
    // Nothing is deleted for a merge of which nothing would come.
    if (mayOverwrite() && (!merging || form_.mergeList.anySource())) return overwrite(*existing);
    form_.removal.leave();
  } else if (merging) {
    form_.mergeList.show();
  } else if (form_.mode() == "create" && registerNewYear()) {
    fill();
  }
}

// --- over an existing year ----------------------------------------------------------------------

bool YearEntry::mayOverwrite() {
  if (form_.mode() == "merge") {
    return context_.MsgBox("Do you want to overwrite previously saved data?", Buttons::YesNoCancel,
                           Icon::question, Answer::No) == Answer::Yes;
  }
  if (form_.mode() == "create") {
    return context_.host->CheckPass(right::overwrite) &&
           context_.MsgBox(
               "Duplicate date is not allowed !\r\n\r\n"
               "Do you want to overwrite previously saved data ?",
               Buttons::YesNo, Icon::question, Answer::No) == Answer::Yes;
  }
  context_.MsgBox("Duplicate date is not allowed.", Buttons::OK, Icon::information, Answer::OK,
                  "Warning");
  return false;
}

void YearEntry::overwrite(const RegisteredYear& existing) {
  creation_.takeTableOf(existing);
  form_.removal.open(existing, [this](const frmdelwhatinTB& deletion) {
    if (deletion.deleted()) {
      form_.logErrors("MASKEDBOX2_KEYPRESS", [&] { overwriteDeleted(); });
    } else {
      form_.status("The deletion of " + year().keys.text() +
                   " was not completed. Enter begins it again.");
    }
  });
}

void YearEntry::overwriteDeleted() {
  creation_.findRow();
  registerYear(context_.year());
  fill();
}

// --- table and registry -------------------------------------------------------------------------

bool YearEntry::GETTABLE() {
  bool found = false;
  form_.logErrors("GETTABLE", [&] {
    found = creation_.takeFreeTable();
    context_.table = year().table;
    if (!found) {
      context_.forgetYear();
      context_.MsgBox("No blank database available. Delete one or more years database.");
    }
  });
  return found;
}

std::optional<std::string> YearEntry::GETTABLE1(const std::string& firstKey,
                                                const std::string& secondKey) {
  std::optional<std::string> table;
  form_.logErrors("GETTABLE1", [&] {
    table = Registry(*context_.host).tableOf(form_.clientCode(), {firstKey, secondKey});
  });
  return table;
}

void YearEntry::select() {
  context_.setYear({year().client, year().table, year().keys.first, year().keys.second});
}

// The context names the new year or, when its row could not be written, the year from before.
void YearEntry::registerYear(const Context::Year& before) {
  select();
  try {
    creation_.registerYear();
  } catch (...) {
    if (!creation_.registered()) context_.setYear(before);
    form_.status("The trial balance of " + year().keys.text() +
                 " was not created in full. Enter begins it again.");
    forgetYears();
    throw;
  }
  hold_.take(context_.environment.yearLocks(), year().client, year().keys.second, year().table);
}

// Under a number of its own.
bool YearEntry::registerNewYear() {
  const Context::Year before = context_.year();
  if (!GETTABLE()) return false;
  if (form_.clientCode() != year().client) {
    context_.forgetYear();
    return false;
  }
  // An editor still open on that table shows a year that somebody deleted.
  closeEditorOf(context_, year().client, year().table);
  registerYear(before);
  return true;
}

bool YearEntry::provideTable() {
  const auto existing = GETTABLE1(year().keys.first, year().keys.second);
  if (!existing) return false;
  if (existing->empty()) return registerNewYear();
  if (!creation_.registered() || hold_.lost()) {
    // Somebody else made it after the dates were typed, or has had it since: ask before it is
    // overwritten.
    enter();
    return false;
  }
  creation_.takeTable(*existing);
  select();
  return true;
}

void YearEntry::takenBack() {
  if (year().keys.first.empty()) return;
  creation_.findRow();
  if (!creation_.registered()) leave();
}

void YearEntry::finish() {
  leave();
  form_.years.showAt(year().keys);
}

}  // namespace quillet
