// How wide the columns of a table are drawn. Grids count in characters, screens in pixels.
#pragma once

#include <vector>

#include "controls/grid.h"

namespace quillet::view {

struct CellMetrics {
  double character = 1;  // the width of a digit
  int padding = 0;       // what a cell adds to its characters

  int pixels(int characters) const;
  // At least one.
  int characters(int pixels) const;
};

// Pixels of each column, 0 for a hidden one. Columns that stretch share what room is left. `now`
// holds what they have on the screen: what a person dragged to stays to the pixel as long as it
// rounds to the grid's width.
std::vector<int> columnWidths(const std::vector<GridColumn>& columns, const std::vector<int>& now,
                              const CellMetrics& metrics, int room);

}  // namespace quillet::view
