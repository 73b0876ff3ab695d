#include "controls/row_selection.h"

#include <algorithm>

#include "controls/grid.h"

namespace quillet {

bool RowSelection::holds() const {
  return content_ == grid_.contentVersion() && current_ == grid_.current();
}

void RowSelection::begin() {
  chosen_.assign(static_cast<std::size_t>(grid_.rows()), false);
  content_ = grid_.contentVersion();
  current_ = end_ = grid_.current();
}

void RowSelection::changed() {
  grid_.touch();
  grid_.SelChange();
}

void RowSelection::extendTo(int row) {
  begin();
  if (row < 1 || row > grid_.rows()) return;
  end_ = row;
  const auto [from, to] = std::minmax(std::max(current_, 1), row);
  std::fill(chosen_.begin() + (from - 1), chosen_.begin() + to, true);
  changed();
}

int RowSelection::extendBy(int steps) {
  int target = holds() ? end_ : grid_.current();
  const int direction = steps < 0 ? -1 : 1;
  for (int row = target + direction; row >= 1 && row <= grid_.rows() && steps != 0;
       row += direction) {
    if (grid_.rowHidden(row)) continue;
    target = row;
    steps -= direction;
  }
  extendTo(target);
  return target;
}

void RowSelection::toggle(int row) {
  if (!holds()) begin();
  if (row < 1 || row > grid_.rows()) return;
  chosen_[static_cast<std::size_t>(row - 1)].flip();
  end_ = row;
  changed();
}

void RowSelection::selectAll() {
  begin();
  chosen_.flip();
  changed();
}

bool RowSelection::has(int row) const {
  if (row == grid_.current()) return row > 0;
  return holds() && row >= 1 && row <= static_cast<int>(chosen_.size()) &&
         chosen_[static_cast<std::size_t>(row - 1)];
}

std::vector<int> RowSelection::rows() const {
  std::vector<int> rows;
  for (int row = 1; row <= grid_.rows(); ++row) {
    if (has(row) && !grid_.rowHidden(row)) rows.push_back(row);
  }
  return rows;
}

}  // namespace quillet
