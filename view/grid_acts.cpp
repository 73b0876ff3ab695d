#include "view/grid_acts.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "controls/form.h"

namespace quillet::view {
namespace {

const GridColumn* columnAt(const Grid& grid, int column) {
  if (column < 0 || column >= grid.cols()) return nullptr;
  return &grid.columns()[static_cast<std::size_t>(column)];
}

bool isTick(const Grid& grid, int column) {
  const GridColumn* found = columnAt(grid, column);
  return found && found->tick;
}

bool isRow(const Grid& grid, int row) { return row >= 1 && row <= grid.rows(); }

}  // namespace

bool isWritten(const Grid& grid, int row, int column) {
  const GridColumn* found = columnAt(grid, column);
  return found && found->editable && !found->tick && !found->hidden && isRow(grid, row) &&
         !grid.rowHidden(row);
}

int firstWritten(const Grid& grid, int row) {
  int column = 0;
  while (column < grid.cols() && !isWritten(grid, row, column)) ++column;
  return column < grid.cols() ? column : -1;
}

void pressCell(Grid& grid, int row, int column, bool left, ActionRunner& runner) {
  if (!isRow(grid, row)) return;
  const bool turns = left && isTick(grid, column);
  runner.perform([&] {
    grid.setCurrent(row);
    if (turns && isRow(grid, row)) grid.tick(row, !grid.ticked(row));
  });
}

void pressEmpty(Grid& grid, bool left, ActionRunner& runner) {
  if (!left || grid.rows() > 0 || grid.emptyText().empty()) return;
  runner.perform([&] { grid.EmptyClick(); });
}

void doubleClickCell(Grid& grid, int row, int column, const std::function<bool()>& edit,
                     ActionRunner& runner) {
  if (!isRow(grid, row)) return;
  if (isTick(grid, column)) {
    runner.perform([&] { grid.tick(row, !grid.ticked(row)); });
  } else if (!edit()) {
    chooseRow(grid, row, runner);
  }
}

void selectRow(Grid& grid, int row, bool upTo, ActionRunner& runner) {
  if (!isRow(grid, row)) return;
  runner.perform([&] { upTo ? grid.selection.extendTo(row) : grid.selection.toggle(row); });
}

int extendSelection(Grid& grid, Key key, ActionRunner& runner) {
  constexpr int page = 15;
  const std::pair<Key, int> steps[] = {{keys::Up, -1},
                                       {keys::Down, 1},
                                       {keys::PageUp, -page},
                                       {keys::PageDown, page},
                                       {keys::Home, -grid.rows()},
                                       {keys::End, grid.rows()}};
  const auto* step = std::ranges::find(steps, key, &std::pair<Key, int>::first);
  if (step == std::end(steps)) return 0;
  int end = 0;
  runner.perform([&] { end = grid.selection.extendBy(step->second); });
  return end;
}

void selectAllRows(Grid& grid, ActionRunner& runner) {
  runner.perform([&] { grid.selection.selectAll(); });
}

void sortByShown(Grid& grid, int position, ActionRunner& runner) {
  for (int column = 0; column < grid.cols(); ++column) {
    if (columnAt(grid, column)->hidden || --position > 0) continue;
    runner.perform([&] { grid.sortBy(column); });
    return;
  }
}

void chooseRow(Grid& grid, int row, ActionRunner& runner) {
  if (!isRow(grid, row)) return;
  runner.perform([&] {
    grid.setCurrent(row);
    grid.form().doubleClick(grid);
  });
}

}  // namespace quillet::view
