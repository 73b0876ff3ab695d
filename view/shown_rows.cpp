#include "view/shown_rows.h"

#include <algorithm>

#include "controls/grid.h"

namespace quillet::view {

void ShownRows::read(const Grid& grid) {
  rows_.clear();
  count_ = grid.rows();
  int hidden = 1;
  while (hidden <= grid.rows() && !grid.rowHidden(hidden)) ++hidden;
  if (hidden > grid.rows()) return;
  for (int row = 1; row <= grid.rows(); ++row) {
    if (!grid.rowHidden(row)) rows_.push_back(row);
  }
  count_ = static_cast<int>(rows_.size());
}

int ShownRows::gridRow(int shown) const {
  if (shown < 0 || shown >= count_) return 0;
  return rows_.empty() ? shown + 1 : rows_[static_cast<std::size_t>(shown)];
}

int ShownRows::shownRow(int row) const {
  if (row < 1 || count_ == 0) return -1;
  if (rows_.empty()) return row <= count_ ? row - 1 : -1;
  const auto at = std::lower_bound(rows_.begin(), rows_.end(), row);
  return at != rows_.end() && *at == row ? static_cast<int>(at - rows_.begin()) : -1;
}

}  // namespace quillet::view
