#include "desktop/cell_painter.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <QWidget>

#include "desktop/grid_model.h"
#include "desktop/text.h"
#include "desktop/theme.h"
#include "view/cell_look.h"

namespace quillet::desktop {
namespace {

Qt::Alignment alignmentOf(const GridColumn& column) {
  if (column.align == Align::right) return Qt::AlignRight | Qt::AlignVCenter;
  if (column.align == Align::center) return Qt::AlignCenter;
  return Qt::AlignLeft | Qt::AlignVCenter;
}

// What a cell's text may take.
QRect roomOf(const QStyleOptionViewItem& option) {
  const int margin = theme::spacing(*option.widget) * 3 / 4;
  return option.rect.adjusted(margin, 0, -margin, 0);
}

// Invalid where nothing is to be painted.
QColor colourOf(view::Ground ground, const QPalette& palette) {
  switch (ground) {
    case view::Ground::currentInFocus:
      return palette.color(QPalette::Active, QPalette::Highlight);
    case view::Ground::current:
      return theme::selection(palette);
    case view::Ground::emphasised:
      return theme::emphasis(palette);
    case view::Ground::everySecond:
      return theme::zebra(palette);
    case view::Ground::plain:
      break;
  }
  return {};
}

// On the highlighted row the colours change places, or a ticked box would be one with the row.
QPalette tickColours(QPalette palette, bool highlighted) {
  if (!highlighted) return palette;
  const QColor ground = palette.color(QPalette::Active, QPalette::Highlight);
  const QColor mark = palette.color(QPalette::Active, QPalette::HighlightedText);
  for (const auto role : {QPalette::Highlight, QPalette::PlaceholderText}) {
    palette.setColor(role, mark);
  }
  for (const auto role : {QPalette::HighlightedText, QPalette::Base}) {
    palette.setColor(role, ground);
  }
  return palette;
}

void drawTick(QPainter* painter, const QStyleOptionViewItem& option, bool on, bool highlighted) {
  QStyleOptionButton box;
  box.palette = tickColours(option.palette, highlighted);
  box.fontMetrics = option.fontMetrics;
  box.state = QStyle::State_Enabled | (on ? QStyle::State_On : QStyle::State_Off);
  const int side =
      option.widget->style()->pixelMetric(QStyle::PM_IndicatorWidth, &option, option.widget);
  box.rect = QRect(0, 0, side, side);
  box.rect.moveCenter(option.rect.center());
  option.widget->style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter,
                                        option.widget);
}

}  // namespace

CellPainter::CellPainter(GridModel& model, QWidget* parent)
    : QStyledItemDelegate(parent), model_(model) {}

void CellPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  const int row = model_.gridRow(index.row());
  if (row < 1 || row > model_.grid().rows() || !model_.hasColumn(index.column())) return;
  const GridColumn& column = model_.column(index.column());
  const QPalette& palette = option.palette;
  const bool enabled = option.state & QStyle::State_Enabled;
  const bool inFocus = enabled && option.widget && option.widget->hasFocus();

  const view::Ground behind = view::groundOf(model_.grid(), row, index.row(), inFocus);
  const QColor ground = colourOf(behind, palette);
  if (ground.isValid()) painter->fillRect(option.rect, ground);

  const QString text = index.data(Qt::DisplayRole).toString();
  const bool highlighted = behind == view::Ground::currentInFocus;
  if (column.tick) return drawTick(painter, option, text == u"1", highlighted);
  const QFont font = fontOf(option, index);
  painter->setFont(font);
  const QPalette::ColorGroup group = enabled ? QPalette::Active : QPalette::Disabled;
  painter->setPen(palette.color(group, highlighted ? QPalette::HighlightedText : QPalette::Text));
  const QRect room = roomOf(option);
  const QFontMetrics measure(font);
  const QString whole = view::holdsFigures(column) ? figuresIn(room.width(), text, measure) : text;
  const QString fitting =
      measure.elidedText(whole, Qt::ElideRight, room.width(), Qt::TextSingleLine);
  painter->drawText(room, static_cast<int>(alignmentOf(column)) | Qt::TextSingleLine, fitting);
}

QFont CellPainter::fontOf(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  if (plain_ != option.font) {
    plain_ = option.font;
    figures_ = theme::figures(option.font);
  }
  QFont font = view::holdsFigures(model_.column(index.column())) ? figures_ : plain_;
  font.setBold(model_.grid().rowEmphasised(model_.gridRow(index.row())));
  return font;
}

bool CellPainter::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                            const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid()) return false;
  const QString text = index.data(Qt::DisplayRole).toString();
  const int width = QFontMetrics(fontOf(option, index)).horizontalAdvance(text);
  const bool cut = width > roomOf(option).width();
  QToolTip::showText(event->globalPos(),
                     cut ? QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped()) : QString(),
                     view);
  return true;
}

bool CellPainter::eventFilter(QObject* editor, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
      // By itself Qt would go on to the next cell, past the grid's own current row.
      emit commitData(static_cast<QWidget*>(editor));
      emit closeEditor(static_cast<QWidget*>(editor), NoHint);
      return true;
    }
  }
  return QStyledItemDelegate::eventFilter(editor, event);
}

QWidget* CellPainter::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                   const QModelIndex& index) const {
  auto* line = new QLineEdit(parent);
  line->setAlignment(alignmentOf(model_.column(index.column())));
  return line;
}

void CellPainter::setModelData(QWidget* editor, QAbstractItemModel*,
                               const QModelIndex& index) const {
  if (edited)
    edited(model_.gridRow(index.row()), model_.gridColumn(index.column()),
           static_cast<QLineEdit*>(editor)->text());
}

}  // namespace quillet::desktop
