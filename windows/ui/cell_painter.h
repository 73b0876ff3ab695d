// Draws the rows of a grid in the system's colours.
#pragma once

#include <windows.h>

#include "controls/grid.h"
#include "view/cell_look.h"
#include "windows/ui/metrics.h"

namespace quillet::windows {

class CellPainter {
 public:
  CellPainter(HDC paper, const Grid& grid, const Metrics& metrics)
      : paper_(paper), grid_(grid), metrics_(metrics) {}

  // The ground of the row, and the colours and font of its cells.
  void beginRow(int row, const RECT& room, view::Ground ground, bool enabled);
  void drawCell(int column, const RECT& room) const;

  // What a cell's text may take of its room.
  static RECT textRoom(const RECT& cell);

 private:
  void drawTick(const RECT& room, bool on) const;

  HDC paper_;
  const Grid& grid_;
  const Metrics& metrics_;
  int row_ = 0;
};

}  // namespace quillet::windows
