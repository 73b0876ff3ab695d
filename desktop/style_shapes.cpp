#include "desktop/style_shapes.h"

#include <QApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QStyleOption>
#include <algorithm>

#include "desktop/theme.h"

namespace quillet::desktop {

bool has(const QStyleOption* option, QStyle::StateFlag flag) { return option->state & flag; }

QColor accent(const QStyleOption* option) {
  return option->palette.color(QPalette::Active, QPalette::Highlight);
}

namespace {

void roundedRect(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& line,
                 int width) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(line, width));
  painter.setBrush(fill);
  const double inset = width / 2.0;
  painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), cornerRadius, cornerRadius);
  painter.restore();
}

// The four corners of a rounded rectangle side by side, from the cache: drawing them anew for every
// box would take most of the time that a form takes to paint.
QPixmap corners(const QColor& fill, const QColor& line, int width, int side) {
  const QString key = QStringLiteral("quillet-corners-%1-%2-%3-%4")
                          .arg(fill.rgba())
                          .arg(line.rgba())
                          .arg(width)
                          .arg(side);
  QPixmap picture;
  if (QPixmapCache::find(key, &picture)) return picture;
  picture = QPixmap(2 * side, 2 * side);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  roundedRect(painter, picture.rect(), fill, line, width);
  QPixmapCache::insert(key, picture);
  return picture;
}

}  // namespace

void drawArea(QPainter* painter, const QStyleOption* option, const QColor& fill) {
  const bool focus = has(option, QStyle::State_HasFocus);
  const int width = focus ? 2 : 1;
  const QColor line = focus ? accent(option) : theme::line(option->palette);
  const QRect& rect = option->rect;
  constexpr int side = 6;  // of a corner
  const bool scaled = painter->device()->devicePixelRatioF() != 1;
  if (scaled || rect.width() < 2 * side || rect.height() < 2 * side) {
    return roundedRect(*painter, rect, fill, line, width);
  }
  const QPixmap picture = corners(fill, line, width, side);
  const int right = rect.right() - side + 1;
  const int bottom = rect.bottom() - side + 1;
  painter->drawPixmap(rect.left(), rect.top(), picture, 0, 0, side, side);
  painter->drawPixmap(right, rect.top(), picture, side, 0, side, side);
  painter->drawPixmap(rect.left(), bottom, picture, 0, side, side, side);
  painter->drawPixmap(right, bottom, picture, side, side, side, side);
  const QRect across = rect.adjusted(side, 0, -side, 0);
  const QRect down = rect.adjusted(0, side, 0, -side);
  if (fill.alpha() > 0) {
    painter->fillRect(across.adjusted(0, width, 0, -width), fill);
    painter->fillRect(QRect(rect.left() + width, down.top(), side - width, down.height()), fill);
    painter->fillRect(QRect(right, down.top(), side - width, down.height()), fill);
  }
  painter->fillRect(QRect(across.left(), rect.top(), across.width(), width), line);
  painter->fillRect(QRect(across.left(), rect.bottom() - width + 1, across.width(), width), line);
  painter->fillRect(QRect(rect.left(), down.top(), width, down.height()), line);
  painter->fillRect(QRect(rect.right() - width + 1, down.top(), width, down.height()), line);
}

void drawChevron(QPainter* painter, const QRectF& room, const QColor& colour) {
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(QPen(colour, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF middle = room.center();
  const double reach = std::min(room.width(), room.height()) * 0.18;
  const QPointF corners[] = {middle + QPointF(-reach, -reach / 2), middle + QPointF(0, reach / 2),
                             middle + QPointF(reach, -reach / 2)};
  painter->drawPolyline(corners, 3);
  painter->restore();
}

void drawTickMark(QPainter* painter, const QStyleOption* option) {
  const QRectF box = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
  const bool on = has(option, QStyle::State_On);
  const bool enabled = has(option, QStyle::State_Enabled);
  const QColor fill = enabled ? accent(option) : theme::dimmed(option->palette);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(on ? fill : theme::dimmed(option->palette));
  painter->setBrush(on ? fill : option->palette.color(QPalette::Base));
  painter->drawRoundedRect(box, 2.5, 2.5);
  if (on) {
    painter->setPen(QPen(option->palette.color(QPalette::HighlightedText), box.width() / 8,
                         Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&](double x, double y) {
      return box.topLeft() + QPointF(box.width() * x, box.height() * y);
    };
    const QPointF corners[] = {at(0.23, 0.52), at(0.42, 0.71), at(0.77, 0.3)};
    painter->drawPolyline(corners, 3);
  }
  painter->restore();
}

void drawRadioMark(QPainter* painter, const QStyleOption* option) {
  const QRectF circle = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
  const bool on = has(option, QStyle::State_On);
  const QColor ring =
      on && has(option, QStyle::State_Enabled) ? accent(option) : theme::dimmed(option->palette);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(ring);
  painter->setBrush(option->palette.color(QPalette::Base));
  painter->drawEllipse(circle);
  if (on) {
    const double inset = circle.width() * 0.25;
    painter->setPen(Qt::NoPen);
    painter->setBrush(ring);
    painter->drawEllipse(circle.adjusted(inset, inset, -inset, -inset));
  }
  painter->restore();
}

QPixmap messageMark(const QColor& colour, QChar sign, int side, double ratio) {
  QPixmap mark(QSize(side, side) * ratio);
  mark.setDevicePixelRatio(ratio);
  mark.fill(Qt::transparent);
  QPainter painter(&mark);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  const QRectF disc(1, 1, side - 2, side - 2);
  painter.drawEllipse(disc);
  QFont font = QApplication::font();
  font.setPixelSize(side * 5 / 8);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.drawText(disc, Qt::AlignCenter, QString(sign));
  return mark;
}

}  // namespace quillet::desktop
