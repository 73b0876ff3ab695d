#include "desktop/drop_down.h"

#include <QEvent>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/form.h"
#include "desktop/cell_painter.h"
#include "desktop/grid_model.h"
#include "desktop/grid_table.h"
#include "desktop/text.h"
#include "desktop/theme.h"

namespace quillet::desktop {
namespace {

constexpr int mostRows = 9;

}  // namespace

DropDown::DropDown(Grid& grid, view::ActionRunner& runner, QWidget* window)
    : QFrame(window), grid_(grid), runner_(runner), table_(new GridTable(grid, this)) {
  setObjectName(toQt(grid.name()));
  setAutoFillBackground(true);
  hide();
  table_->setFrameStyle(QFrame::NoFrame);
  table_->horizontalHeader()->hide();
  table_->setFocusPolicy(Qt::NoFocus);
  table_->viewport()->installEventFilter(this);
  table_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  table_->painter().alwaysActive = true;
  auto* inside = new QVBoxLayout(this);
  inside->setContentsMargins(1, 1, 1, 1);
  inside->addWidget(table_);
  window->installEventFilter(this);
}

bool DropDown::wanted() const {
  return field_ && grid_.visible() && grid_.dropOf()->shown() && field_->isVisible() &&
         table_->cells().rowCount() > 0;
}

void DropDown::refresh() {
  table_->refresh();
  if (!wanted()) {
    hide();
    return;
  }
  place();
  show();
  raise();
}

void DropDown::place() {
  QWidget* window = field_->window();
  const QPoint under = field_->mapTo(window, QPoint(0, field_->height() + 2));
  const int rows = std::min(table_->cells().rowCount(), mostRows);
  int height = table_->heightOf(rows) + 2;
  int width = 4;
  for (const GridColumn& column : grid_.columns()) {
    if (!column.hidden) width += theme::characters(*table_, column.width + 3);
  }
  width = std::clamp(width, field_->width(), window->width() - 2 * theme::spacing(*this));
  int top = under.y();
  const int below = window->height() - top - 4;
  const int above = under.y() - field_->height() - 8;
  if (height > below && above > below) {
    height = std::min(height, above);
    top = under.y() - field_->height() - 4 - height;
  } else {
    height = std::min(height, below);
  }
  const int left = std::clamp(under.x(), 4, std::max(4, window->width() - width - 4));
  setGeometry(left, top, width, height);
}

bool DropDown::eventFilter(QObject* target, QEvent* event) {
  if (detached_) return false;
  if (target == parentWidget()) {
    if (event->type() == QEvent::Resize && isVisible()) refresh();
    return false;
  }
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
      const QPoint place = static_cast<QMouseEvent*>(event)->position().toPoint();
      const int row = table_->cells().gridRow(table_->indexAt(place).row());
      if (row > 0) {
        runner_.perform([&] {
          grid_.setCurrent(row);
          grid_.form().doubleClick(grid_);
        });
      }
      return true;
    }
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
      return true;
    default:
      return false;
  }
}

void DropDown::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Highlight));
  painter.setBrush(palette().color(QPalette::Base));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace quillet::desktop
