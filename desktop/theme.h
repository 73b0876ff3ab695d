// How Quillet looks: a palette, light or dark, with one accent; distances and fonts. Everything
// that is drawn takes its colours from the application's palette.
#pragma once

#include <QColor>
#include <QFont>
#include <string>

class QPalette;
class QWidget;

namespace quillet::desktop::theme {

enum class Scheme { system, light, dark };

// "light" or "dark"; anything else follows the system.
Scheme wanted(const std::string& preferred);
QPalette palette(bool dark);
// Sets the style and the palette of the application, and follows the system from then on.
void apply(Scheme scheme);

// Colours that a palette has no role for, made from its roles.
QColor blend(const QColor& over, const QColor& under, double share);
QColor line(const QPalette& palette);       // hairlines and borders
QColor dimmed(const QPalette& palette);     // hints
QColor selection(const QPalette& palette);  // the current row of a table without the focus
QColor header(const QPalette& palette);     // headings of a table
QColor zebra(const QPalette& palette);      // every second row
QColor emphasis(const QPalette& palette);   // rows that stand out: totals

QFont scaled(const QFont& font, double factor);
// A dialog is a window of its own and takes no font from its parent by itself.
void likeParent(QWidget& dialog);
// The pixels that a line of the usual font takes.
inline constexpr double usualLine = 18;
// So many pixels of the usual font in this one; no fewer in a smaller one.
int pixels(const QWidget& widget, int usual);
// The distance between widgets of this font: 8 px at the usual size.
int spacing(const QWidget& widget);
// The width of a digit, and of that many characters, in the widget's font.
double character(const QWidget& widget);
int characters(const QWidget& widget, int count);
int characters(const QFont& font, int count);
// The same font when its digits are all of one width, else one of the same size whose digits are.
QFont figures(const QFont& font);

}  // namespace quillet::desktop::theme
