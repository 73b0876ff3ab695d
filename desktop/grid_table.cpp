#include "desktop/grid_table.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "desktop/cell_painter.h"
#include "desktop/grid_model.h"
#include "desktop/theme.h"

namespace quillet::desktop {

GridTable::GridTable(Grid& grid, QWidget* parent)
    : QTableView(parent), grid_(grid), cells_(new GridModel(grid, this)) {
  painter_ = new CellPainter(*cells_, this);
  setModel(cells_);
  setItemDelegate(painter_);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setShowGrid(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollMode(ScrollPerPixel);
  setTabKeyNavigation(false);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(1);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
  horizontalHeader()->setMinimumSectionSize(theme::step(*this));
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setFocusPolicy(Qt::NoFocus);
  measure();
}

void GridTable::measure() {
  const int step = theme::step(*this);
  padding_ = 2 * step;
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + step);
  content_ = 0;
}

void GridTable::refresh() {
  if (content_ != grid_.contentVersion()) {
    content_ = grid_.contentVersion();
    cells_->refresh();
  }
  arrangeColumns();
  showCurrent();
}

int GridTable::heightOf(int rows) const {
  const int head = horizontalHeader()->isHidden() ? 0 : horizontalHeader()->sizeHint().height();
  return head + rows * verticalHeader()->defaultSectionSize() + 2 * frameWidth();
}

int GridTable::shownWidth(int column) const {
  const double one = std::max(1, theme::characters(*this, 100)) / 100.0;
  return std::max(1, qRound((columnWidth(column) - padding_) / one));
}

void GridTable::arrangeColumns() {
  const QSignalBlocker quiet(horizontalHeader());
  int left = viewport()->width();
  int stretching = 0;
  for (int c = 0; c < cells_->columnCount(); ++c) {
    const GridColumn& column = cells_->column(c);
    if (isColumnHidden(c) != column.hidden) setColumnHidden(c, column.hidden);
    if (column.hidden) continue;
    stretching += column.stretch ? 1 : 0;
    left -= theme::characters(*this, column.width) + padding_;
  }
  const int extra = stretching > 0 && left > 0 ? left / stretching : 0;
  int rest = stretching > 0 && left > 0 ? left % stretching : 0;
  for (int c = 0; c < cells_->columnCount(); ++c) {
    const GridColumn& column = cells_->column(c);
    if (column.hidden) continue;
    // What a person dragged to stays to the pixel as long as it rounds to the grid's width.
    if (!column.stretch && shownWidth(c) == column.width) continue;
    int width = theme::characters(*this, column.width) + padding_;
    if (column.stretch) width += extra + std::exchange(rest, 0);
    setColumnWidth(c, width);
  }
  // Blocked above: the header tells nobody, so the cells are arranged here.
  updateGeometries();
  viewport()->update();
}

void GridTable::showCurrent() {
  const int row = cells_->shownRow(grid_.current());
  if (row < 0) {
    selectionModel()->clear();
    return;
  }
  int column = 0;
  while (column + 1 < cells_->columnCount() && isColumnHidden(column)) ++column;
  const QModelIndex index = cells_->index(row, column);
  const bool moved = currentIndex().row() != row;
  if (moved || !selectionModel()->isRowSelected(row)) {
    selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  }
  if (!moved) return;
  const int across = horizontalScrollBar()->value();
  scrollTo(index);
  horizontalScrollBar()->setValue(across);
}

void GridTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  arrangeColumns();
  if (currentIndex().isValid()) scrollTo(currentIndex());
}

void GridTable::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) measure();
}

}  // namespace quillet::desktop
