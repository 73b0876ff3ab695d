// What keys do in a grid: they move the current row, and letters look for one.
#include <algorithm>

#include "controls/form.h"
#include "controls/grid.h"
#include "controls/open_forms.h"

namespace quillet {
namespace {

constexpr int pageRows = 15;

// The column ordered by, else the one that has most room; -1 for none.
int searchedColumn(const Grid& grid) {
  const auto& columns = grid.columns();
  const auto holds = [](const GridColumn& column) { return !column.hidden && !column.tick; };
  const int sorted = grid.sortColumn();
  if (sorted >= 0 && sorted < grid.cols() && holds(columns[static_cast<std::size_t>(sorted)])) {
    return sorted;
  }
  const auto wide = [&](const GridColumn& column) {
    return holds(column) && column.stretch && !column.dated;
  };
  auto found = std::ranges::find_if(columns, wide);
  if (found == columns.end()) found = std::ranges::find_if(columns, holds);
  return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

}  // namespace

void Grid::moveBy(int steps) {
  const int direction = steps < 0 ? -1 : 1;
  int target = current_;
  for (int r = current_ + direction; r >= 1 && r <= rows() && steps != 0; r += direction) {
    if (rowHidden(r)) continue;
    target = r;
    steps -= direction;
  }
  setCurrent(target);
}

bool Grid::searchFor(Key letter) {
  const int column = searchedColumn(*this);
  if (dropOf_ || column < 0) return false;
  const auto text = [&](int row) -> std::string_view {
    if (rowHidden(row)) return {};
    return searchedText ? searchedText(row) : cell(row, column);
  };
  const auto clock = [&] { return form().openForms().typingClock(); };
  if (const int found = search_.next(letter, {rows(), text}, current_, clock())) {
    setCurrent(found);
    search_.goOn(clock());
  }
  return true;
}

bool Grid::handleKey(Key key) {
  const bool goesOn = search_.goesOn(form().openForms().typingClock());
  if (key == keys::Space && (tickColumn() >= 0 || !goesOn)) {
    if (current_ == 0 || tickColumn() < 0) return false;
    tick(current_, !ticked(current_));
    return true;
  }
  if (keys::typesText(key)) return searchFor(key);
  search_.end();
  switch (key) {
    case keys::Up:
      moveBy(-1);
      return true;
    case keys::Down:
      moveBy(1);
      return true;
    case keys::PageUp:
      moveBy(-pageRows);
      return true;
    case keys::PageDown:
      moveBy(pageRows);
      return true;
    case keys::Home:
      moveBy(-rows());
      return true;
    case keys::End:
      moveBy(rows());
      return true;
    default:
      return false;
  }
}

}  // namespace quillet
