#include "editor/lines_grid.h"

#include <algorithm>
#include <utility>

#include "books/amount.h"

namespace quillet {
namespace {

using enum TwoYears::Year;

constexpr const char* absent = "-";
constexpr int amountColumnWidth = 18;

}  // namespace

void LinesGrid::show(std::vector<Entry> entries, const TwoYears& years) {
  const auto selected = selectedLine();
  const int columns = grid_.cols();
  const int ordered = grid_.sortColumn();
  const bool ascending = grid_.sortAscending();
  years_.clear();
  for (const TwoYears::Year year : {current, previous}) {
    if (years.inView(year)) years_.push_back(year);
  }
  setColumns();
  entries_ = std::move(entries);
  grid_.setRows(static_cast<int>(entries_.size()),
                [this](int id) { return cellsOf(entries_[id - 1]); });
  // The order that a person gave them stays while the columns do.
  if (ordered >= 0 && columns == grid_.cols()) {
    grid_.sortBy(ordered);
    if (!ascending) grid_.sortBy(ordered);
  }
  if (selected) select(*selected);
}

void LinesGrid::clear() {
  grid_.clearRows();
  entries_.clear();
}

void LinesGrid::setColumns() {
  std::vector<GridColumn> columns{{.heading = "Particulars", .width = 30, .stretch = true},
                                  {.heading = "Group", .width = years_.size() == 1 ? 44 : 36}};
  for (const TwoYears::Year year : years_) {
    const char* heading = years_.size() == 1 ? "Amount"
                          : year == current  ? "Amount (Curr)"
                                             : "Amount (Prev)";
    columns.push_back(
        {.heading = heading, .align = Align::right, .width = amountColumnWidth, .numeric = true});
    columns.push_back({.heading = "Dr/Cr", .align = Align::center, .width = 6});
  }
  grid_.setColumns(std::move(columns));
}

std::vector<std::string> LinesGrid::cellsOf(const Entry& entry) const {
  std::vector<std::string> cells{entry.particular, entry.group};
  for (const TwoYears::Year year : years_) {
    const auto& line = entry.line[year];
    cells.push_back(line ? plainAmount(host_, line->amount) : absent);
    cells.emplace_back(line ? line->side() : absent);
  }
  return cells;
}

const Entry* LinesGrid::selected() const {
  return grid_.current() == 0 ? nullptr : &entryOf(grid_.current());
}

std::optional<YearLine> LinesGrid::selectedLine() const {
  const Entry* entry = selected();
  if (!entry) return std::nullopt;
  return YearLine{entry->line[current] ? current : previous, entry->any()};
}

void LinesGrid::select(const YearLine& line) {
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return entry.line[line.year] && isSame(*entry.line[line.year], line.line);
  });
  if (found == entries_.end()) return;
  grid_.setCurrent(grid_.findId(static_cast<long>(found - entries_.begin()) + 1));
}

LinesGrid::Row LinesGrid::row(int row) const {
  const Entry& entry = entryOf(row);
  const auto& line = entry.line[years_.front()];
  return {entry.particular, entry.group, line ? &*line : nullptr};
}

const Line* LinesGrid::lineBefore(int row) const {
  const auto& line = entryOf(row).line[previous];
  return line ? &*line : nullptr;
}

}  // namespace quillet
