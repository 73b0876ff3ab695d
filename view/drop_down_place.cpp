#include "view/drop_down_place.h"

#include <algorithm>

#include "controls/grid.h"

namespace quillet::view {

int dropDownRows(int rows) { return std::min(rows, 9); }

int dropDownLeastRows(int rows) { return std::min(rows, 3); }

int dropDownCharacters(const Grid& list) {
  constexpr int aroundCell = 3;
  int characters = 0;
  for (const GridColumn& column : list.columns()) {
    if (!column.hidden) characters += column.width + aroundCell;
  }
  return characters;
}

Bounds dropDownPlace(const Bounds& field, Size wanted, int least, Size window, int gap, int row) {
  Bounds place;
  place.width = std::min(std::max(wanted.width, field.width), std::max(0, window.width - 2 * gap));
  place.left = std::clamp(field.left, gap, std::max(gap, window.width - place.width - gap));
  const int under = field.top + field.height + gap / 2;
  const int below = window.height - under - gap;
  const int above = field.top - gap / 2 - gap;
  const bool over = std::min(least, wanted.height) > below && above > below;
  const int room = std::clamp(wanted.height, 0, std::max(0, over ? above : below));
  const int rowsCut = (wanted.height - room + row - 1) / row;
  place.height = std::max(0, wanted.height - rowsCut * row);
  place.top = over ? field.top - gap / 2 - place.height : under;
  return place;
}

}  // namespace quillet::view
