#include "view/column_widths.h"

#include <algorithm>
#include <cmath>

namespace quillet::view {

int CellMetrics::pixels(int characters) const {
  return static_cast<int>(std::lround(character * characters)) + padding;
}

int CellMetrics::characters(int pixels) const {
  return std::max(1, static_cast<int>(std::lround((pixels - padding) / character)));
}

std::vector<int> columnWidths(const std::vector<GridColumn>& columns, const std::vector<int>& now,
                              const CellMetrics& metrics, int room) {
  std::vector<int> widths(columns.size());
  int left = room;
  int stretching = 0;
  for (std::size_t at = 0; at < columns.size(); ++at) {
    const GridColumn& column = columns[at];
    if (column.hidden) continue;
    const bool stays =
        !column.stretch && at < now.size() && metrics.characters(now[at]) == column.width;
    widths[at] = stays ? now[at] : metrics.pixels(column.width);
    left -= widths[at];
    stretching += column.stretch ? 1 : 0;
  }
  for (std::size_t at = 0; at < columns.size() && left > 0; ++at) {
    if (columns[at].hidden || !columns[at].stretch) continue;
    const int share = left / stretching--;
    widths[at] += share;
    left -= share;
  }
  return widths;
}

}  // namespace quillet::view
