// The table widget of a grid: fixed row height, columns by the grid's widths, and the current row
// where the grid has it. Used by the grids of a form and by the drop-downs under text boxes.
#pragma once

#include <QTableView>

#include "controls/grid.h"
#include "view/column_widths.h"

namespace quillet::desktop {

class CellPainter;
class GridModel;

class GridTable : public QTableView {
 public:
  GridTable(Grid& grid, QWidget* parent);

  // Shows what changed in the grid.
  void refresh();
  GridModel& cells() const { return *cells_; }
  CellPainter& painter() const { return *painter_; }
  // Scrolls to a row of the grid.
  void reveal(int row);
  // The height of that many rows, with headings and frame.
  int heightOf(int rows) const;
  // The width in characters that a column has on the screen.
  int shownWidth(int shown) const;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void arrangeColumns();
  void showCurrent(bool filled);
  void showWholeRows();
  void reveal(const QModelIndex& index, ScrollHint where);
  void revealFromTop(const QModelIndex& index);
  void measure();

  Grid& grid_;
  GridModel* cells_;
  CellPainter* painter_;
  unsigned content_ = 0;
  int arrangedFor_ = 0;  // the width that the columns share
  view::CellMetrics metrics_;
};

}  // namespace quillet::desktop
