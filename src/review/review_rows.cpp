#include "review/review_rows.h"

#include <algorithm>

#include "books/amount.h"
#include "controls/scoped_flag.h"
#include "review/frmimport.h"
#include "review/totals_table.h"

namespace quillet {

using Kind = Difference::Kind;

ReviewRows::ReviewRows(frmimport& form, const ServiceObject& host, ImportReview& review)
    : form_(form), host_(host), review_(review) {
  form.vsfi.setColumns({{.heading = "Take", .width = 5, .tick = true},
                        {.heading = "Row", .align = Align::right, .width = 6, .numeric = true},
                        {.heading = "Kind", .width = 9},
                        {.heading = "Particulars", .width = 18, .stretch = true},
                        {.heading = "Ledger", .width = 18, .stretch = true},
                        {.heading = "State", .width = 11},
                        {.heading = "Group", .width = 14},
                        {.heading = "Group Is", .width = 12},
                        {.heading = "Debit", .align = Align::right, .width = 12, .numeric = true},
                        {.heading = "Credit", .align = Align::right, .width = 12, .numeric = true},
                        {.heading = "In the Year", .align = Align::right, .width = 15},
                        {.heading = "Remark", .width = 26, .stretch = true}});
  form.vsfi.setZebra(true);
  form.vsfi.AfterEdit = [this](int row, int) { tickChanged(row); };
  arrangeTotals(form.vsft, 20, 16);
  for (const char* shown : {"All rows", "To be entered", "Questions", "Left out"}) {
    form.cboshow.addItem(shown);
  }
  form.cboshow.setChosen(1);
  form.cboshow.Click = [this] { form_.reviewed(); };
}

const ReviewRow& ReviewRows::rowAt(int row) const {
  const auto id = static_cast<std::size_t>(form_.vsfi.rowId(row));
  return review_.rows().at(listed_.at(id - 1));
}

const ReviewRow* ReviewRows::current() const {
  return form_.vsfi.current() == 0 ? nullptr : &rowAt(form_.vsfi.current());
}

// --- listing ------------------------------------------------------------------------------------

bool ReviewRows::isListed(const ReviewRow& row) const {
  switch (static_cast<Shown>(std::max(0, form_.cboshow.chosen() - 1))) {
    case Shown::entered:
      return review_.takes(row);
    case Shown::questions:
      return row.question != nullptr;
    case Shown::leftOut:
      return !review_.takes(row) && (row.isGone() || row.row->kind != RowKind::blank);
    default:
      return true;
  }
}

void ReviewRows::show() {
  {
    const ScopedFlag listing(listing_);
    const int place = form_.vsfi.current();
    list();
    form_.vsfi.sortAgain();
    restore(place);
  }
  showTotals();
}

void ReviewRows::begin() {
  form_.cboshow.setChosen(1);
  form_.vsfi.clearSort();
  list();
  showTotals();
  if (nextQuestion()) return;
  for (int row = 1; row <= form_.vsfi.rows(); ++row) {
    if (rowAt(row).line) return form_.vsfi.setCurrent(row);
  }
}

void ReviewRows::list() {
  listed_.clear();
  const std::vector<ReviewRow>& rows = review_.rows();
  for (std::size_t at = 0; at < rows.size(); ++at) {
    if (isListed(rows[at])) listed_.push_back(at);
  }
  form_.vsfi.setRows(static_cast<int>(listed_.size()), [this](int id) {
    return cellsOf(review_.rows().at(listed_.at(static_cast<std::size_t>(id) - 1)));
  });
}

void ReviewRows::arrived() {
  const ReviewRow* row = listing_ ? nullptr : current();
  if (!row) return;
  number_ = row->isGone() ? 0 : row->row->number;
  gone_ = row->isGone() ? std::optional(row->difference->pair) : std::nullopt;
}

bool ReviewRows::isCurrent(const ReviewRow& row) const {
  return row.isGone() ? gone_ == row.difference->pair : number_ == row.row->number;
}

// A row that is listed no more leaves its place to the one behind it.
void ReviewRows::restore(int place) {
  if (place == 0) return;
  int current = std::min(place, form_.vsfi.rows());
  for (int row = 1; row <= form_.vsfi.rows(); ++row) {
    if (isCurrent(rowAt(row))) current = row;
  }
  form_.vsfi.setCurrent(current);
}

// --- moving -------------------------------------------------------------------------------------

std::vector<const ReviewRow*> ReviewRows::chosenRows() const {
  std::vector<const ReviewRow*> rows;
  for (const int at : form_.vsfi.selection.rows()) {
    if (!rowAt(at).isGone()) rows.push_back(&rowAt(at));
  }
  return rows;
}

std::vector<int> ReviewRows::chosen() const {
  std::vector<int> numbers;
  for (const ReviewRow* row : chosenRows()) numbers.push_back(row->row->number);
  return numbers;
}

std::vector<int> ReviewRows::withoutGroup() const {
  std::vector<int> numbers;
  for (const std::size_t at : listed_) {
    const ReviewRow& row = review_.rows()[at];
    if (row.line && row.line->taken && row.line->groupState == GroupState::missing) {
      numbers.push_back(row.row->number);
    }
  }
  return numbers;
}

bool ReviewRows::nextQuestion() {
  const int rows = form_.vsfi.rows();
  for (int step = 1; step <= rows; ++step) {
    const int row = (form_.vsfi.current() + step - 1) % rows + 1;
    if (!rowAt(row).question) continue;
    form_.vsfi.setCurrent(row);
    return true;
  }
  return false;
}

void ReviewRows::goTo(int number) {
  const auto at = [&]() -> int {
    for (int row = 1; row <= form_.vsfi.rows(); ++row) {
      const ReviewRow& shown = rowAt(row);
      if (!shown.isGone() && shown.row->number == number) return row;
    }
    return 0;
  };
  if (at() == 0) {
    form_.cboshow.setChosen(1);
    show();
  }
  form_.vsfi.setCurrent(at());
}

// --- ticking ------------------------------------------------------------------------------------

void ReviewRows::tickChanged(int row) {
  const ReviewRow& changed = rowAt(row);
  const bool taken = form_.vsfi.ticked(row);
  if (changed.isGone()) {
    review_.takeGone(changed.difference->pair, taken);
  } else if (changed.line) {
    const int number = changed.row->number;
    review_.choose({number}, [&](RowChoice& choice) { choice.taken = taken; });
  }
  form_.reviewed();
}

// --- what is shown ------------------------------------------------------------------------------

std::string ReviewRows::shownAmount(Money amount) const {
  return amount.isZero() ? std::string() : groupedAmount(host_, amount);
}

std::vector<std::string> ReviewRows::cellsOf(const ReviewRow& row) const {
  const std::string tick = review_.takes(row) ? "1" : "";
  const std::string before = row.difference ? groupedBalance(host_, row.difference->before) : "";
  if (row.isGone()) {
    const Difference& gone = *row.difference;
    return {tick, "", "In the year", "",           gone.ledger, stateOf(row), gone.group, "",
            "",   "", before,        remarkOf(row)};
  }
  const ImportRow& source = *row.row;
  std::vector<std::string> cells{tick, std::to_string(source.number),
                                 std::string(nameOf(source.kind)), source.name};
  if (row.line) {
    cells.insert(cells.end(), {row.line->ledger, stateOf(row), row.line->group,
                               std::string(nameOf(row.line->groupState))});
  } else {
    cells.insert(cells.end(), 4, "");
  }
  cells.insert(cells.end(),
               {shownAmount(source.debit), shownAmount(source.credit), before, remarkOf(row)});
  return cells;
}

std::string ReviewRows::stateOf(const ReviewRow& row) const {
  if (row.isGone()) return std::string(nameOf(Kind::vanished));
  const ProposedLine& line = *row.line;
  if (line.ledgerState == LedgerState::isNew) return "New ledger";
  if (line.ledgerState != LedgerState::known) return std::string(nameOf(line.ledgerState));
  if (!row.difference) return "Known";
  return row.difference->kind == Kind::isNew ? "New line"
                                             : std::string(nameOf(row.difference->kind));
}

std::string ReviewRows::remarkOf(const ReviewRow& row) const {
  std::string remark;
  const auto add = [&](const std::string& text) {
    if (!text.empty()) remark += (remark.empty() ? "" : " ") + text;
  };
  if (row.question) add(*row.question);
  if (!row.isGone()) {
    if (!row.question) add(row.row->reason);
    if (row.row->hidden) add("The row is hidden in the source.");
    const bool far = row.line && row.line->ledgerState == LedgerState::isNew;
    if (far && row.line->nearest.id != 0) add("Known is \"" + row.line->nearest.name + "\".");
  }
  if (row.difference) {
    const Money posted = review_.books().postedOn(row.difference->pair);
    if (!posted.isZero()) add("Vouchers of " + groupedBalance(host_, posted) + " come on top.");
  }
  return remark;
}

void ReviewRows::showTotals() {
  form_.vsft.clearRows();
  if (!review_.isOpen()) return;
  addTotals(form_.vsft, host_, "Source", review_.proposals().source);
  addTotals(form_.vsft, host_, "Entered or the same", review_.proposals().entered);
  addTotals(form_.vsft, host_, "Year afterwards", review_.afterwards());
}

}  // namespace quillet
