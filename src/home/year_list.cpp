#include "home/year_list.h"

#include <algorithm>

#include "books/posting.h"
#include "data/year.h"
#include "editor/frmcrtb.h"
#include "home/printouts.h"
#include "home/third.h"
#include "home/year_table.h"
#include "host/rights.h"
#include "host/year_lock.h"

namespace quillet {
namespace {

constexpr const char* yearsUnread = "The years could not be read.";
constexpr const char* figuresUnread = "What the years hold could not be read.";

}  // namespace

YearList::YearList(third& form, Context& context) : form_(form), context_(context) {
  third::on(form.cmdchanges.Click, "CMDCHANGES_CLICK",
            [this] { showHistory(&BooksHistory::showChanges); });
  third::on(form.cmdasof.Click, "CMDASOF_CLICK",
            [this] { showHistory(&BooksHistory::showAsItStood); });
}

void YearList::load() {
  Grid& grid = form_.flexgrid2;
  years_.clear();
  grid.clearRows();
  grid.setEmptyText("\"Create Trial Balance\" makes a year for the client.");
  form_.mergeList.clear();
  form_.status("");
  form_.statusOnFailure(yearsUnread,
                        [&] { years_ = Registry(*context_.host).keysOf(form_.clientCode()); });
  std::vector<YearFigures> figures;
  if (!years_.empty()) {
    form_.logErrors("YEARFIGURES",
                    [&] { figures = yearFigures(*context_.host, form_.clientCode()); });
    if (figures.empty()) form_.status(figuresUnread);
  }
  fillYearTable(grid, *context_.host, years_, figures,
                readYearNotes(form_, context_, form_.clientCode(), years_));
  grid.setCurrent(grid.rows());
  form_.showSecondStep(form_.famyears, "choose the year");
  form_.focus(grid);
}

void YearList::show() {
  load();
  if (years_.empty()) {
    context_.MsgBox("No entry of this year is available.", Buttons::OK, Icon::information);
    form_.status("There is no year yet. Create Trial Balance (Alt+C) makes the first one.");
  }
}

void YearList::showAt(const YearKeys& year) {
  load();
  const auto found = std::find(years_.begin(), years_.end(), year);
  form_.flexgrid2.setCurrent(found == years_.end() ? 0
                                                   : static_cast<int>(found - years_.begin()) + 1);
}

void YearList::showAt(int row) {
  load();
  form_.flexgrid2.setCurrent(std::min(row, form_.flexgrid2.rows()));
}

void YearList::refresh() {
  const std::string told = form_.lblstatus.caption();
  Control* const active = form_.active();
  showAt(chosen() ? *chosen() : YearKeys{});
  if (active) form_.focus(*active);
  const bool failure = told == yearsUnread || told == figuresUnread;
  if (form_.lblstatus.caption().empty() && !failure) form_.status(told);
}

const YearKeys* YearList::chosen() const {
  const long id = form_.flexgrid2.currentId();
  return id == 0 ? nullptr : &years_[id - 1];
}

std::optional<RegisteredYear> YearList::findChosen() {
  const YearKeys keys = *chosen();
  auto year = Registry(*context_.host).year(form_.clientCode(), keys, YearSelect::home);
  if (year) return year;
  if (context_.clientCode == form_.clientCode() && context_.firstDate == keys.first) {
    context_.forgetYear();
  }
  form_.tellYearIsGone(form_.clientName(), keys);
  showAt(form_.flexgrid2.current());
  return std::nullopt;
}

void YearList::open() {
  if (!chosen()) return;
  context_.forgetYear();
  const auto year = findChosen();
  if (!year || (year->isSigned && !context_.host->CheckPass(right::open))) return;
  form_.status("");
  if (year->table.empty()) {
    form_.status("No table is named for the trial balance of " + year->keys.text() + ".");
    return;
  }
  context_.setYear({form_.clientCode(), year->table, year->keys.first, year->keys.second});
  theEditor(context_).showYear(form_.clientName());
}

void YearList::print() {
  if (!chosen()) return;
  const auto year = findChosen();
  if (!year) return;
  form_.status("");
  form_.statusOnFailure("The trial balance of " + year->keys.text() + " could not be printed.",
                        [&] {
                          postAllMissing(*context_.host, context_.unposted);
                          printYear(context_, form_.mode(),
                                    {{year->table, form_.clientCode()},
                                     form_.clientName(),
                                     shownDate(year->keys.first),
                                     shownDate(year->keys.second)});
                        });
}

void YearList::remove() {
  if (!chosen() || !form_.removal.take(form_.clientCode(), *chosen())) return;
  const std::string text = "Do you really want to Delete Trial Balance of '" + form_.clientName() +
                           "' for F.Y. " + chosen()->text() + " ?\r\n\r\nConfirm Delete ?";
  const bool wanted =
      context_.MsgBox(text, Buttons::YesNo, Icon::question, Answer::No) == Answer::Yes;
  const auto year = wanted ? findChosen() : std::nullopt;
  if (!year) return form_.removal.leave();
  form_.removal.open(*year, [this, text = year->keys.text()](const frmdelwhatinTB& deletion) {
    // Also when the deletion failed in the middle: the list tells what is left.
    form_.logErrors("FLEXGRID2_DBLCLICK", [&] { tellRemoved(deletion, text); });
  });
}

void YearList::offerHistory(bool offered) {
  const bool kept = context_.environment.history() != nullptr;
  for (Button* command : {&form_.cmdchanges, &form_.cmdasof}) {
    command->setVisible(offered && kept);
  }
}

// Without a year chosen, those that were deleted can still be looked at.
void YearList::showHistory(void (BooksHistory::*window)(const YearOfClient& year)) {
  BooksHistory* const history = context_.environment.history();
  if (!history) return;
  const YearKeys keys = chosen() ? *chosen() : YearKeys{};
  form_.focus(form_.flexgrid2);
  (history->*window)({form_.clientCode(), form_.clientName(), keys.first, keys.second});
}

void YearList::tellRemoved(const frmdelwhatinTB& deletion, const std::string& year) {
  showAt(form_.flexgrid2.current());
  const std::string files = deletion.filesLeft() ? " Not all of its files could be deleted." : "";
  form_.statusFirst(deletion.registryRowDeleted() ? "Trial balance of " + year + " deleted." + files
                    : deletion.deleted()
                        ? "What was chosen of " + year + " is deleted. The year itself stays." +
                              files
                        : "The deletion of " + year + " was not completed. Delete it again.");
}

}  // namespace quillet
