#include "desktop/grid_view.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include "controls/row_text.h"
#include "desktop/cell_painter.h"
#include "desktop/grid_model.h"
#include "desktop/grid_table.h"
#include "desktop/text.h"
#include "view/grid_acts.h"
#include "view/kept_places.h"

namespace quillet::desktop {

GridView::GridView(Grid& grid, view::ActionRunner& runner, QWidget* parent)
    : ControlView(grid, runner), grid_(grid), table_(new GridTable(grid, parent)) {
  adopt(table_);
  watch(table_->viewport());
  table_->setContextMenuPolicy(Qt::NoContextMenu);
  table_->painter().edited = [this](int row, int column, const QString& text) {
    perform([&] { grid_.edit(row, column, fromQt(text)); });
  };
  QHeaderView* header = table_->horizontalHeader();
  connect(header, &QHeaderView::sectionClicked, this,
          [this](int shown) { perform([&] { grid_.sortBy(table_->cells().gridColumn(shown)); }); });
  connect(header, &QHeaderView::sectionResized, this, [this](int shown) { widen(shown); });
}

void GridView::draw() {
  if (places_) places_->restoreWidths(grid_);
  QHeaderView* header = table_->horizontalHeader();
  header->setSectionsClickable(grid_.sortable);
  const int rows = grid_.fixedRows();
  table_->setMinimumHeight(table_->heightOf(rows > 0 ? rows : 3));
  table_->setMaximumHeight(rows > 0 ? table_->minimumHeight() : QWIDGETSIZE_MAX);
  table_->refresh();
  const int sorted = table_->cells().shownColumn(grid_.sortColumn());
  header->setSortIndicatorShown(sorted >= 0);
  header->setSortIndicator(sorted,
                           grid_.sortAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void GridView::widen(int shown) {
  if (drawing() || !table_->cells().hasColumn(shown)) return;
  const int width = table_->shownWidth(shown);
  if (width == table_->cells().column(shown).width) return;
  const int at = table_->cells().gridColumn(shown);
  if (places_) places_->changeWidth(grid_, at, width);
  perform([&] { grid_.setColumnWidth(at, width); });
}

// --- keys ---------------------------------------------------------------------------------------

bool GridView::keyPressed(QKeyEvent& event) {
  if (event.matches(QKeySequence::Paste)) {
    takesCells(fromQt(QGuiApplication::clipboard()->text()));
    return true;
  }
  if (selectionKey(event)) return true;
  switch (event.key()) {
    case Qt::Key_Menu:
      popUp();
      return true;
    case Qt::Key_F2:
      edit(grid_.current(), view::firstWritten(grid_, grid_.current()));
      return true;
    default:
      break;
  }
  const bool used = ControlView::keyPressed(event);
  const bool across = event.key() == Qt::Key_Left || event.key() == Qt::Key_Right;
  if (across && event.modifiers() == Qt::NoModifier) {
    QScrollBar* bar = table_->horizontalScrollBar();
    bar->setValue(bar->value() + (event.key() == Qt::Key_Left ? -40 : 40));
  }
  return used;
}

// Selecting and copying rows, and ordering them without the mouse.
bool GridView::selectionKey(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
  if (event.matches(QKeySequence::Copy)) {
    QGuiApplication::clipboard()->setText(toQt(copiedRows(grid_)));
    return true;
  }
  if (event.matches(QKeySequence::SelectAll)) {
    view::selectAllRows(grid_, runner());
    return true;
  }
  if (held == Qt::ControlModifier && event.key() >= Qt::Key_1 && event.key() <= Qt::Key_9) {
    view::sortByShown(grid_, event.key() - Qt::Key_0, runner());
    return true;
  }
  if (held != Qt::ShiftModifier) return false;
  const int end = view::extendSelection(grid_, namedKey(event.key()), runner());
  if (end > 0 && !detached()) table_->reveal(end);
  return end > 0;
}

void GridView::popUp() {
  perform([&] { grid_.Popup(); });
}

bool GridView::edit(int row, int column) {
  if (!view::isWritten(grid_, row, column)) return false;
  const GridModel& cells = table_->cells();
  const QModelIndex index = cells.index(cells.shownRow(row), cells.shownColumn(column));
  table_->setCurrentIndex(index);
  table_->edit(index);
  return true;
}

// --- mouse --------------------------------------------------------------------------------------

bool GridView::mousePressed(QObject* target, QMouseEvent& event, bool arrived) {
  if (target != table_->viewport()) return false;
  table_->setFocus(Qt::MouseFocusReason);  // ends the editing of a cell
  const QModelIndex index = table_->indexAt(event.position().toPoint());
  const int row = table_->cells().gridRow(index.row());
  const bool upTo = event.modifiers() & Qt::ShiftModifier;
  if (row > 0 && event.button() == Qt::LeftButton &&
      (upTo || event.modifiers() & Qt::ControlModifier)) {
    view::selectRow(grid_, row, upTo, runner());
    return true;
  }
  if (row > 0) {
    const bool wasCurrent = !arrived && row == grid_.current();
    const bool left = event.button() == Qt::LeftButton;
    const int column = table_->cells().gridColumn(index.column());
    view::pressCell(grid_, row, column, left, runner());
    if (wasCurrent && left && !detached()) edit(row, column);
  } else {
    view::pressEmpty(grid_, event.button() == Qt::LeftButton, runner());
  }
  if (event.button() == Qt::RightButton && !detached()) popUp();
  return true;
}

void GridView::doubleClicked(const QPoint& place) {
  const QModelIndex index = table_->indexAt(place);
  const int row = table_->cells().gridRow(index.row());
  const int column = table_->cells().gridColumn(index.column());
  const auto editing = [&] { return edit(row, column); };
  view::doubleClickCell(grid_, row, column, editing, runner());
}

bool GridView::otherEvent(QObject* target, QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonDblClick: {
      const auto& mouse = static_cast<QMouseEvent&>(event);
      if (target != table_->viewport()) return false;
      if (mouse.button() == Qt::LeftButton) doubleClicked(mouse.position().toPoint());
      return true;
    }
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
      return true;  // no selecting by dragging
    case QEvent::FocusIn:
    case QEvent::FocusOut:
      table_->update();  // the frame shows where the focus is
      table_->viewport()->update();
      return false;
    default:
      return ControlView::otherEvent(target, event);
  }
}

}  // namespace quillet::desktop
