#include "view/cell_look.h"

#include "view/figure_groups.h"

namespace quillet::view {

Ground groundOf(const Grid& grid, int row, int shown, bool inFocus) {
  if (row == grid.current()) {
    // Among selected rows the one that commands act on stands out, wherever the focus is.
    const bool standsOut = inFocus || grid.dropOf() || grid.selection.any();
    return standsOut ? Ground::currentInFocus : Ground::current;
  }
  if (grid.selection.has(row)) return Ground::current;
  if (grid.rowEmphasised(row)) return Ground::emphasised;
  return grid.zebra() && shown % 2 == 1 ? Ground::everySecond : Ground::plain;
}

std::string shownText(const Grid& grid, int row, int column) {
  const std::string& text = grid.cell(row, column);
  return holdsFigures(grid.columns()[static_cast<std::size_t>(column)]) ? grouped(text, grouping())
                                                                        : text;
}

std::string shownText(const TextBox& box, bool inFocus) {
  return box.locked() && box.rightAligned() && !inFocus ? grouped(box.text(), grouping())
                                                        : box.text();
}

}  // namespace quillet::view
