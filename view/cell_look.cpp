#include "view/cell_look.h"

namespace quillet::view {

Ground groundOf(const Grid& grid, int row, int shown, bool inFocus) {
  if (row == grid.current()) {
    return inFocus || grid.dropOf() ? Ground::currentInFocus : Ground::current;
  }
  if (grid.rowEmphasised(row)) return Ground::emphasised;
  return grid.zebra() && shown % 2 == 1 ? Ground::everySecond : Ground::plain;
}

}  // namespace quillet::view
