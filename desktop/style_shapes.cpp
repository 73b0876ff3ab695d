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

double unit(const QStyleOption* option) {
  return std::max(1.0, option->fontMetrics.height() / theme::usualLine);
}

double cornerRadius(const QStyleOption* option) { return 4 * unit(option); }

namespace {

struct Edge {
  int width;
  int side;  // of a corner
  double radius;
};

void roundedRect(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& line,
                 const Edge& edge) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(line, edge.width));
  painter.setBrush(fill);
  const double inset = edge.width / 2.0;
  painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), edge.radius, edge.radius);
  painter.restore();
}

// The four corners of a rounded rectangle side by side, from the cache: drawing them anew for every
// box would take most of the time that a form takes to paint.
QPixmap corners(const QColor& fill, const QColor& line, const Edge& edge) {
  const int side = edge.side;
  const QString key = QStringLiteral("quillet-corners-%1-%2-%3-%4")
                          .arg(fill.rgba())
                          .arg(line.rgba())
                          .arg(edge.width)
                          .arg(side);
  QPixmap picture;
  if (QPixmapCache::find(key, &picture)) return picture;
  picture = QPixmap(2 * side, 2 * side);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  roundedRect(painter, picture.rect(), fill, line, edge);
  QPixmapCache::insert(key, picture);
  return picture;
}

}  // namespace

void drawFrame(QPainter* painter, const QStyleOption* option) {
  const int hairline = qRound(unit(option));
  const bool focus = has(option, QStyle::State_HasFocus);
  const QRect& rect = option->rect;
  const QRect inside = rect.adjusted(hairline, hairline, -hairline, -hairline);
  const QColor line = focus ? accent(option) : theme::line(option->palette);
  for (const QRect& side : QRegion(rect).subtracted(inside)) painter->fillRect(side, line);
}

void drawArea(QPainter* painter, const QStyleOption* option, const QColor& fill) {
  const bool focus = has(option, QStyle::State_HasFocus);
  const int hairline = qRound(unit(option));
  const int width = focus ? 2 * hairline : hairline;
  const QColor line = focus ? accent(option) : theme::line(option->palette);
  const QRect& rect = option->rect;
  const int side = qRound(6 * unit(option));
  const Edge edge{width, side, cornerRadius(option)};
  const bool scaled = painter->device()->devicePixelRatioF() != 1;
  if (scaled || rect.width() < 2 * side || rect.height() < 2 * side) {
    return roundedRect(*painter, rect, fill, line, edge);
  }
  const QPixmap picture = corners(fill, line, edge);
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

void drawChevron(QPainter* painter, const QRectF& room, const QColor& colour, Points points) {
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  const QPointF middle = room.center();
  const double reach = std::min(room.width(), room.height()) * 0.2;
  painter->setPen(
      QPen(colour, std::max(1.5, reach * 0.4), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const double rise = points == Points::down ? reach / 2 : -reach / 2;
  const QPointF corners[] = {middle + QPointF(-reach, -rise), middle + QPointF(0, rise),
                             middle + QPointF(reach, -rise)};
  painter->drawPolyline(corners, 3);
  painter->restore();
}

void drawTickMark(QPainter* painter, const QStyleOption* option) {
  const double edge = unit(option) / 2;
  const QRectF box = QRectF(option->rect).adjusted(edge, edge, -edge, -edge);
  const bool on = has(option, QStyle::State_On);
  const bool enabled = has(option, QStyle::State_Enabled);
  const QColor fill = enabled ? accent(option) : theme::dimmed(option->palette);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(QPen(on ? fill : theme::dimmed(option->palette), unit(option)));
  painter->setBrush(on ? fill : option->palette.color(QPalette::Base));
  const double corner = 2.5 * unit(option);
  painter->drawRoundedRect(box, corner, corner);
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
  const double edge = unit(option) / 2;
  const QRectF circle = QRectF(option->rect).adjusted(edge, edge, -edge, -edge);
  const bool on = has(option, QStyle::State_On);
  const QColor ring =
      on && has(option, QStyle::State_Enabled) ? accent(option) : theme::dimmed(option->palette);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(QPen(ring, unit(option)));
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
