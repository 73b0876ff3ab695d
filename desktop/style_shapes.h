// The shapes of which the widgets are drawn: rounded areas, ticks, marks.
#pragma once

#include <QPixmap>
#include <QStyle>

class QPainter;
class QStyleOption;

namespace quillet::desktop {

// What one pixel of the usual font is in this one: every shape grows with the font beside it.
double unit(const QStyleOption* option);
double cornerRadius(const QStyleOption* option);

bool has(const QStyleOption* option, QStyle::StateFlag flag);
QColor accent(const QStyleOption* option);

// A rounded area; the border is the accent and twice as wide where the focus is.
void drawArea(QPainter* painter, const QStyleOption* option, const QColor& fill);
// The border of what scrolls: its contents fill the corners.
void drawFrame(QPainter* painter, const QStyleOption* option);
// The arrow of a combo box or of a heading.
enum class Points { down, up };
void drawChevron(QPainter* painter, const QRectF& room, const QColor& colour,
                 Points points = Points::down);
void drawTickMark(QPainter* painter, const QStyleOption* option);
void drawRadioMark(QPainter* painter, const QStyleOption* option);
// The mark of a message box: a sign on a disc.
QPixmap messageMark(const QColor& colour, QChar sign, int side, double ratio);

}  // namespace quillet::desktop
