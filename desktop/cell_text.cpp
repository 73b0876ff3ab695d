#include "desktop/cell_text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextOption>
#include <algorithm>

namespace quillet::desktop {
namespace {

constexpr double linesApart = 1.3;  // of the font's size

Qt::Alignment sideOf(Align align) {
  return align == Align::right    ? Qt::AlignRight
         : align == Align::center ? Qt::AlignHCenter
                                  : Qt::AlignLeft;
}

QString inOneParagraph(QString text) { return text.replace(u'\n', QChar::LineSeparator); }

}  // namespace

double CellText::pitch(const QFont& font) { return font.pixelSize() * linesApart; }

bool CellText::isPlain(const QString& text) {
  constexpr ushort afterLatin = 0x250;
  return std::all_of(text.begin(), text.end(), [](QChar character) {
    return character.unicode() >= ' ' && character.unicode() < afterLatin;
  });
}

CellText::CellText(const QString& text, const QFont& font, double width, Align align, Wrap wrap)
    : layout_(std::make_unique<QTextLayout>(inOneParagraph(text), font)) {
  QTextOption option(sideOf(align));
  // A word that is wider than its column goes on in the next line.
  option.setWrapMode(wrap == Wrap::never ? QTextOption::NoWrap
                                         : QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout_->setTextOption(option);
  layout_->setCacheEnabled(true);
  const QFontMetricsF metrics(font);
  const double usual = pitch(font);
  const double lead = (usual - metrics.ascent() - metrics.descent()) / 2;
  layout_->beginLayout();
  for (QTextLine line = layout_->createLine(); line.isValid(); line = layout_->createLine()) {
    line.setLineWidth(width);
    const double above = std::max(0.0, line.ascent() - metrics.ascent());
    const double below = std::max(0.0, line.descent() - metrics.descent());
    if (ends_.empty()) raised_ = above;
    const double base = height_ + above + lead + metrics.ascent();
    line.setPosition({0, base - line.ascent()});
    height_ += above + usual + below;
    ends_.push_back(height_);
  }
  layout_->endLayout();
}

double CellText::wholeUpTo(double limit) const {
  if (limit >= height_) return limit;
  const auto after = std::upper_bound(ends_.begin(), ends_.end(), limit);
  return after == ends_.begin() ? 0 : *(after - 1);
}

void CellText::paint(QPainter& painter, const QPointF& corner) const {
  layout_->draw(&painter, corner);
}

}  // namespace quillet::desktop
