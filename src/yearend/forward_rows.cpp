#include "yearend/forward_rows.h"

#include <algorithm>

#include "books/amount.h"
#include "review/totals_table.h"
#include "yearend/frmbringfwd.h"

namespace quillet {
namespace {

// Shown only where the new year holds lines already.
constexpr const char* ofStandingYear[] = {"In the Year", "Afterwards", "State"};

GridColumn balanceColumn(const char* heading) {
  return {.heading = heading, .align = Align::right, .width = 16};
}

}  // namespace

ForwardRows::ForwardRows(frmbringfwd& form, ServiceObject& host, ForwardReview& review)
    : form_(form), host_(host), review_(review) {
  form.vsfl.setColumns({{.heading = "Take", .width = 5, .tick = true},
                        {.heading = "Ledger", .width = 22, .stretch = true},
                        {.heading = "Group", .width = 18, .stretch = true},
                        balanceColumn("Old Year"),
                        balanceColumn("Brought Forward"),
                        balanceColumn("In the Year"),
                        balanceColumn("Afterwards"),
                        {.heading = "State", .width = 15},
                        {.heading = "Reason", .width = 28, .stretch = true}});
  form.vsfl.setZebra(true);
  form.vsfl.AfterEdit = [this](int row, int) {
    review_.take(placeOf(row), form_.vsfl.ticked(row));
    form_.reviewed();
  };
  arrangeTotals(form.vsft, 14, 13);
  for (const char* shown : {"All lines", "To be written", "Offered", "Left"}) {
    form.cboshow.addItem(shown);
  }
  form.cboshow.setChosen(1);
  form.cboshow.Click = [this] { form_.reviewed(); };
}

std::size_t ForwardRows::placeOf(int row) const {
  return listed_.at(static_cast<std::size_t>(form_.vsfl.rowId(row) - 1));
}

bool ForwardRows::isListed(const ForwardReview::Row& row) const {
  switch (static_cast<Shown>(std::max(0, form_.cboshow.chosen() - 1))) {
    case Shown::taken:
      return row.taken;
    case Shown::offered:
      return row.change.offered;
    case Shown::left:
      return row.change.offered && !row.taken;
    default:
      return true;
  }
}

void ForwardRows::begin() {
  groups_.load(host_);
  form_.cboshow.setChosen(1);
  form_.vsfl.clearSort();
  for (const char* heading : ofStandingYear) {
    form_.vsfl.setColumnHidden(form_.vsfl.columnNamed(heading), review_.beginsYear());
  }
  show();
  form_.vsfl.setCurrent(std::min(1, form_.vsfl.rows()));
}

void ForwardRows::show() {
  Grid& grid = form_.vsfl;
  const int place = grid.current();
  const std::size_t current = place == 0 ? 0 : placeOf(place);
  listed_.clear();
  for (std::size_t at = 0; at < review_.rows().size(); ++at) {
    if (isListed(review_.rows()[at])) listed_.push_back(at);
  }
  grid.setRows(static_cast<int>(listed_.size()), [this](int id) {
    return cellsOf(review_.rows().at(listed_.at(static_cast<std::size_t>(id) - 1)));
  });
  grid.sortAgain();
  if (place != 0) grid.setCurrent(std::min(place, grid.rows()));
  for (int row = 1; place != 0 && row <= grid.rows(); ++row) {
    if (placeOf(row) == current) grid.setCurrent(row);
  }
  showTotals();
}

bool ForwardRows::nextLeft() {
  const int rows = form_.vsfl.rows();
  for (int step = 1; step <= rows; ++step) {
    const int row = (form_.vsfl.current() + step - 1) % rows + 1;
    const ForwardReview::Row& found = review_.rows()[placeOf(row)];
    if (!found.change.offered || found.taken) continue;
    form_.vsfl.setCurrent(row);
    return true;
  }
  return false;
}

void ForwardRows::turn() {
  std::vector<std::size_t> places;
  for (const int row : form_.vsfl.selection.rows()) {
    if (review_.rows()[placeOf(row)].change.offered) places.push_back(placeOf(row));
  }
  if (places.empty()) return;
  const bool taken = !review_.rows()[places.front()].taken;
  for (const std::size_t place : places) review_.take(place, taken);
  form_.reviewed();
}

std::vector<std::string> ForwardRows::cellsOf(const ForwardReview::Row& row) const {
  const auto& [change, taken] = row;
  const OpeningLine& line = change.line;
  const std::string opening = line.opening.isZero() && line.stands
                                  ? groupedAmount(host_, line.opening)
                                  : groupedBalance(host_, line.opening);
  return {taken ? "1" : "",
          line.pair.partId == 0 ? line.ledger : host_.GetPart_MastPartId(line.pair.partId),
          groups_.name(line.pair.allId),
          groupedBalance(host_, line.last),
          opening,
          groupedBalance(host_, change.standing),
          groupedBalance(host_, taken ? change.after : change.standing),
          nameOf(change.state),
          line.reason};
}

void ForwardRows::showTotals() {
  form_.vsft.clearRows();
  if (!review_.isOpen()) return;
  addTotals(form_.vsft, host_, "Old year", review_.last());
  addTotals(form_.vsft, host_, "Brought forward", review_.brought());
  addTotals(form_.vsft, host_, "New year", review_.afterwards());
}

}  // namespace quillet
