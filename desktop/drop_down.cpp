#include "desktop/drop_down.h"

#include <QEvent>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

#include "controls/form.h"
#include "controls/spoken_name.h"
#include "desktop/cell_painter.h"
#include "desktop/grid_model.h"
#include "desktop/grid_table.h"
#include "desktop/text.h"
#include "desktop/theme.h"
#include "view/drop_down_place.h"
#include "view/form_controls.h"
#include "view/grid_acts.h"

namespace quillet::desktop {
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
  auto* inside = new QVBoxLayout(this);
  inside->setContentsMargins(1, 1, 1, 1);
  inside->addWidget(table_);
  window->installEventFilter(this);
}

bool DropDown::wanted() const {
  return field_ && view::isDropped(grid_) && field_->isVisible() && table_->cells().rowCount() > 0;
}

void DropDown::refresh() {
  table_->refresh();
  table_->setAccessibleName(toQt(spokenName(grid_)));
  const bool shown = wanted();
  tellCurrent(shown);
  if (!shown) {
    hide();
    return;
  }
  place();
  show();
  raise();
}

// The focus stays in the field: a screen reader hears of the current name through the field's
// description.
void DropDown::tellCurrent(bool shown) {
  if (!field_) return;
  const bool chosen = shown && grid_.current() > 0 && grid_.cols() > 0;
  const QString current = chosen ? toQt(grid_.cell(grid_.current(), 0)) : QString();
  if (field_->accessibleDescription() != current) field_->setAccessibleDescription(current);
}

void DropDown::place() {
  const QWidget* window = field_->window();
  const QPoint corner = field_->mapTo(window, QPoint(0, 0));
  constexpr int frame = 1;
  const int rows = table_->cells().rowCount();
  const auto heightOf = [&](int shown) { return table_->heightOf(shown) + 2 * frame; };
  const view::Size wanted{theme::characters(*table_, view::dropDownCharacters(grid_)) + 4 * frame,
                          heightOf(view::dropDownRows(rows))};
  const auto [left, top, width, height] =
      view::dropDownPlace({corner.x(), corner.y(), field_->width(), field_->height()}, wanted,
                          heightOf(view::dropDownLeastRows(rows)),
                          {window->width(), window->height()}, 4, heightOf(1) - heightOf(0));
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
      view::chooseRow(grid_, table_->cells().gridRow(table_->indexAt(place).row()), runner_);
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
