#include "desktop/grid_table.h"

#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <cstdlib>

#include "desktop/cell_painter.h"
#include "desktop/grid_model.h"
#include "desktop/text.h"
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
  horizontalHeader()->setMinimumSectionSize(theme::spacing(*this));
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setFocusPolicy(Qt::NoFocus);
  measure();
}

void GridTable::measure() {
  const int step = theme::spacing(*this);
  metrics_ = {theme::character(*this), 2 * step};
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + step);
  content_ = 0;
}

void GridTable::refresh() {
  const bool filled = content_ != grid_.contentVersion();
  if (filled) {
    content_ = grid_.contentVersion();
    cells_->refresh();
  }
  arrangeColumns();
  showWholeRows();
  showCurrent(filled);
}

// A row is shown whole or not at all: what is left over stays outside the frame.
void GridTable::showWholeRows() {
  const int row = verticalHeader()->defaultSectionSize();
  QMargins margins = contentsMargins();
  const QScrollBar* bar = horizontalScrollBar();
  const int room = height() - 2 * frameWidth() - viewportMargins().top() -
                   (bar->isVisibleTo(this) ? bar->sizeHint().height() : 0);
  const int bottom = frameWidth() + (room > row ? room % row : 0);
  if (bottom == margins.bottom()) return;
  margins.setBottom(bottom);
  setContentsMargins(margins);
}

bool GridTable::event(QEvent* event) {
  const bool done = QTableView::event(event);
  if (event->type() == QEvent::Resize) showWholeRows();
  return done;
}

int GridTable::heightOf(int rows) const {
  const int head = horizontalHeader()->isHidden() ? 0 : horizontalHeader()->sizeHint().height();
  return head + rows * verticalHeader()->defaultSectionSize() + 2 * frameWidth();
}

int GridTable::shownWidth(int shown) const { return metrics_.characters(columnWidth(shown)); }

void GridTable::arrangeColumns() {
  const QSignalBlocker quiet(horizontalHeader());
  std::vector<int> now(grid_.columns().size());
  const auto eachShown = [&](const auto& act) {
    for (int shown = 0; shown < cells_->columnCount(); ++shown) {
      if (cells_->hasColumn(shown)) act(shown, static_cast<std::size_t>(cells_->gridColumn(shown)));
    }
  };
  eachShown([&](int shown, std::size_t column) { now[column] = columnWidth(shown); });
  arrangedFor_ = viewport()->width();
  const std::vector<int> widths = view::columnWidths(grid_.columns(), now, metrics_, arrangedFor_);
  eachShown([&](int shown, std::size_t column) { setColumnWidth(shown, widths[column]); });
  // Blocked above: the header tells nobody, so the cells are arranged here.
  updateGeometries();
  viewport()->update();
}

void GridTable::showCurrent(bool filled) {
  const int row = cells_->shownRow(grid_.current());
  if (row < 0) {
    selectionModel()->clear();
    return;
  }
  const QModelIndex index = cells_->index(row, 0);
  const bool moved = currentIndex().row() != row;
  // What typing finds far down a list is shown with the names that follow it.
  const bool jumped = grid_.dropOf() && std::abs(currentIndex().row() - row) > 1 &&
                      !viewport()->rect().contains(visualRect(index));
  if (moved || !selectionModel()->isRowSelected(row)) {
    selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  }
  if (!moved) return;
  if (filled) return revealFromTop(index);
  reveal(index, jumped ? PositionAtTop : EnsureVisible);
}

// A list begins with its first row where that leaves room for the current one.
void GridTable::revealFromTop(const QModelIndex& index) {
  const int row = verticalHeader()->defaultSectionSize();
  if ((index.row() + 1) * row <= viewport()->height()) {
    verticalScrollBar()->setValue(0);
  } else {
    reveal(index, EnsureVisible);
  }
}

void GridTable::reveal(int row) {
  reveal(cells_->index(cells_->shownRow(row), currentIndex().column()), EnsureVisible);
}

// Across, the table stays where it is.
void GridTable::reveal(const QModelIndex& index, ScrollHint where) {
  const int across = horizontalScrollBar()->value();
  scrollTo(index, where);
  horizontalScrollBar()->setValue(across);
}

void GridTable::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (cells_->rowCount() > 0 || grid_.emptyText().empty()) return;
  QPainter painter(viewport());
  painter.setPen(theme::dimmed(palette()));
  const int step = theme::spacing(*this);
  painter.drawText(viewport()->rect().adjusted(2 * step, 2 * step, -2 * step, -2 * step),
                   Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, toQt(grid_.emptyText()));
}

void GridTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  arrangeColumns();
  // A scroll bar that the arrangement makes come or go changes the room once more.
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (arrangedFor_ != viewport()->width()) arrangeColumns();
      },
      Qt::QueuedConnection);
  if (currentIndex().isValid()) revealFromTop(currentIndex());
}

void GridTable::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) measure();
}

}  // namespace quillet::desktop
