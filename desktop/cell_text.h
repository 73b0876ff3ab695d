// A text of a report, set in lines of a given width. The lines of a font lie equally far apart;
// other scripts and pictures, which need more room above or below than the font itself, get it.
#pragma once

#include <QFont>
#include <QString>
#include <QTextLayout>
#include <memory>
#include <vector>

#include "data/align.h"

class QPainter;
class QPointF;

namespace quillet::desktop {

class CellText {
 public:
  enum class Wrap { lines, never };
  CellText(const QString& text, const QFont& font, double width, Align align, Wrap wrap);

  // From one line of the font to the next.
  static double pitch(const QFont& font);
  // Whether the font alone has all of the text's characters, so that nothing is higher than it.
  static bool isPlain(const QString& text);

  // How much lower than the font's own the first base line lies.
  double raised() const { return raised_; }
  double height() const { return height_; }
  // How much of the height down to the limit holds whole lines.
  double wholeUpTo(double limit) const;
  void paint(QPainter& painter, const QPointF& corner) const;

 private:
  std::unique_ptr<QTextLayout> layout_;
  double raised_ = 0;
  double height_ = 0;
  std::vector<double> ends_;  // of the lines
};

}  // namespace quillet::desktop
