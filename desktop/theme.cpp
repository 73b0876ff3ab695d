#include "desktop/theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPalette>
#include <QWidget>
#include <algorithm>

#include "desktop/flat_style.h"
#include "desktop/system_scheme.h"

namespace quillet::desktop::theme {
namespace {

struct Colours {
  QRgb window, base, text, button, line, accent, accentText, link;
};

constexpr Colours light{0xfff4f5f7, 0xffffffff, 0xff1d2530, 0xffffffff,
                        0xffc3c9d1, 0xff1f5f8b, 0xffffffff, 0xff1f5f8b};
constexpr Colours dark{0xff1f2328, 0xff171a1e, 0xffe3e6ea, 0xff2b3036,
                       0xff454c55, 0xff6db3e2, 0xff0e1720, 0xff8cc4ea};

}  // namespace

Scheme wanted(const std::string& preferred) {
  if (preferred == "light") return Scheme::light;
  if (preferred == "dark") return Scheme::dark;
  return Scheme::system;
}

QColor blend(const QColor& over, const QColor& under, double share) {
  const auto mix = [share](int a, int b) { return static_cast<int>(a * share + b * (1 - share)); };
  return QColor(mix(over.red(), under.red()), mix(over.green(), under.green()),
                mix(over.blue(), under.blue()));
}

QPalette palette(bool isDark) {
  const Colours& c = isDark ? dark : light;
  const QColor window(c.window), base(c.base), text(c.text), button(c.button), line(c.line);
  QPalette p;
  p.setColor(QPalette::Window, window);
  p.setColor(QPalette::WindowText, text);
  p.setColor(QPalette::Base, base);
  p.setColor(QPalette::AlternateBase, blend(text, base, 0.035));
  p.setColor(QPalette::Text, text);
  p.setColor(QPalette::PlaceholderText, blend(text, base, 0.62));
  p.setColor(QPalette::Button, button);
  p.setColor(QPalette::ButtonText, text);
  p.setColor(QPalette::BrightText, text);
  p.setColor(QPalette::Highlight, QColor(c.accent));
  p.setColor(QPalette::HighlightedText, QColor(c.accentText));
  p.setColor(QPalette::Link, QColor(c.link));
  p.setColor(QPalette::LinkVisited, QColor(c.link));
  p.setColor(QPalette::ToolTipBase, button);
  p.setColor(QPalette::ToolTipText, text);
  // The shades between which a style draws its edges.
  p.setColor(QPalette::Light, blend(button, window, 0.5));
  p.setColor(QPalette::Midlight, blend(line, window, 0.4));
  p.setColor(QPalette::Mid, line);
  p.setColor(QPalette::Dark, blend(text, line, 0.25));
  p.setColor(QPalette::Shadow, QColor(isDark ? 0xff000000 : 0xff5b6570));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    p.setColor(QPalette::Disabled, role, blend(text, window, 0.45));
  }
  p.setColor(QPalette::Disabled, QPalette::Base, window);
  p.setColor(QPalette::Disabled, QPalette::Button, window);
  p.setColor(QPalette::Disabled, QPalette::Highlight, line);
  return p;
}

void apply(Scheme scheme) {
  // Read once, before it is replaced: without a portal the platform's own palette tells.
  static const bool platformIsDark = QApplication::palette().window().color().lightness() < 128;
  const bool systemIsDark = platformIsDark || systemPrefersDark();
  const bool isDark = scheme == Scheme::dark || (scheme == Scheme::system && systemIsDark);
  QApplication::setStyle(new FlatStyle);
  QApplication::setPalette(palette(isDark));
  onSystemSchemeChange([scheme](bool nowDark) {
    if (scheme == Scheme::system) QApplication::setPalette(palette(nowDark));
  });
}

QColor line(const QPalette& p) { return p.color(QPalette::Mid); }
QColor dimmed(const QPalette& p) { return p.color(QPalette::PlaceholderText); }
QColor selection(const QPalette& p) {
  return blend(p.color(QPalette::Active, QPalette::Highlight), p.color(QPalette::Base), 0.16);
}
QColor header(const QPalette& p) {
  return blend(p.color(QPalette::Text), p.window().color(), 0.04);
}
QColor zebra(const QPalette& p) { return p.color(QPalette::AlternateBase); }
QColor emphasis(const QPalette& p) {
  return blend(p.color(QPalette::Text), p.base().color(), 0.06);
}

QFont scaled(const QFont& font, double factor) {
  QFont other = font;
  if (font.pointSizeF() > 0) {
    other.setPointSizeF(font.pointSizeF() * factor);
  } else {
    other.setPixelSize(std::max(1, qRound(font.pixelSize() * factor)));
  }
  return other;
}

void likeParent(QWidget& dialog) {
  if (dialog.parentWidget()) dialog.setFont(dialog.parentWidget()->font());
}

int pixels(const QWidget& widget, int usual) {
  return qRound(usual * std::max(1.0, QFontMetricsF(widget.font()).height() / usualLine));
}

int spacing(const QWidget& widget) {
  return std::max(4, qRound(8 * QFontMetricsF(widget.font()).height() / usualLine));
}

int characters(const QFont& font, int count) {
  return qRound(QFontMetricsF(font).horizontalAdvance(u'0') * count);
}

double character(const QWidget& widget) {
  return QFontMetricsF(widget.font()).horizontalAdvance(u'0');
}

int characters(const QWidget& widget, int count) { return characters(widget.font(), count); }

QFont figures(const QFont& font) {
  const auto even = [](const QFont& candidate) {
    const QFontMetricsF metrics(candidate);
    const double width = metrics.horizontalAdvance(u'0');
    const QString digits = QStringLiteral("123456789");
    return std::all_of(digits.begin(), digits.end(), [&](QChar digit) {
      return std::abs(metrics.horizontalAdvance(digit) - width) < 0.01;
    });
  };
  if (even(font)) return font;
  QFont other = font;
  for (const char* family : {"Noto Sans", "DejaVu Sans", "Liberation Sans"}) {
    other.setFamily(QString::fromLatin1(family));
    if (QFontDatabase::hasFamily(other.family()) && even(other)) return other;
  }
  other.setFamily(QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
  return other;
}

}  // namespace quillet::desktop::theme
