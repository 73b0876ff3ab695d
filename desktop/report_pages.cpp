#include "desktop/report_pages.h"

#include <QFontMetricsF>
#include <QObject>
#include <QPainter>
#include <algorithm>

#include "desktop/cell_text.h"
#include "desktop/text.h"

namespace quillet::desktop {
namespace {

using suite::DocumentRow;
using suite::ReportCell;

constexpr double point = ReportPages::unitsPerInch / 72.0;
constexpr double margin = 30 * point;
constexpr double footHeight = 18 * point;
constexpr double usualSize = 9 * point;
constexpr double smallSize = 7 * point;
constexpr double leastShrink = 0.7;  // of a heading that is too wide
constexpr int headingFlags = Qt::AlignCenter | Qt::TextWordWrap;
const QSizeF portraitPage(595.3 * point, 841.9 * point);

// Headings and results are set off by black rules; those between one line and the next are there to
// guide the eye and stay faint.
bool stands(const DocumentRow& row) {
  return row.heading || std::any_of(row.cells.begin(), row.cells.end(),
                                    [](const ReportCell& cell) { return cell.emphasised; });
}

}  // namespace

// A row's texts in lines, the first base lines at one height.
struct ReportPages::SetRow {
  struct Text {
    std::size_t cell;
    CellText lines;
  };
  std::vector<Text> texts;
  double raised = 0;

  double topOf(const CellText& text) const { return raised - text.raised(); }
};

ReportPages::ReportPages(const suite::Document& document, const QDate& printed,
                         const ReportStyle& style)
    : document_(document), headings_(document.pageHeadings()), printed_(printed), style_(style) {
  headingRows_.resize(static_cast<std::size_t>(std::max(1, document.tables())));
  for (std::size_t at = 0; at < document.rows().size(); ++at) {
    const DocumentRow& row = document.rows()[at];
    if (row.heading) headingRows_.at(static_cast<std::size_t>(row.table)).push_back(at);
  }
  fit();
  measureHeights();
  paginate();
}

QSizeF ReportPages::size() const { return landscape_ ? portraitPage.transposed() : portraitPage; }
double ReportPages::bodyWidth() const { return size().width() - 2 * margin; }
double ReportPages::footTop() const { return size().height() - margin - footHeight; }
double ReportPages::inset() const { return font_.plain.pixelSize() * 0.12; }

// Print is made smaller so that texts can be read with ease, and further only where the figures
// would not have room.
void ReportPages::fit() {
  using Orientation = ReportStyle::Orientation;
  const auto set = [&](double size) {
    font_ = ReportFont::ofSize(size);
    columns_.emplace(document_, font_, style_);
  };
  set(usualSize);
  landscape_ = style_.orientation == Orientation::landscape ||
               (style_.orientation == Orientation::automatic && columns_->wanted() > bodyWidth());
  if (columns_->wanted() > bodyWidth()) {
    set(std::max(smallSize, usualSize * bodyWidth() / columns_->wanted()));
  }
  for (double size = smallSize; columns_->needed() > bodyWidth() && size > 1;) {
    size = std::min(size - 1, size * bodyWidth() / columns_->needed());
    set(size);
  }
  columns_->fit(bodyWidth());
}

QRectF ReportPages::room(const DocumentRow& row, std::size_t cell) const {
  const suite::Document::Span span = document_.spanOf(row, cell);
  const double left = margin + columns_->left(row.table, span.first);
  const double padding = font_.padding();
  return QRectF(left + padding, 0, columns_->width(row.table, span) - 2 * padding, 0);
}

// --- rows
// -----------------------------------------------------------------------------------------

bool ReportPages::onOneLine(std::size_t at, std::size_t cell) const {
  const DocumentRow& row = document_.rows()[at];
  const double width = columns_->textWidth(row, at, cell);
  return width >= 0 && width <= room(row, cell).width() &&
         CellText::isPlain(style_.shown(row.cells[cell]));
}

ReportPages::SetRow ReportPages::setRow(std::size_t at) const {
  const DocumentRow& row = document_.rows()[at];
  SetRow set;
  for (std::size_t cell = 0; cell < row.cells.size(); ++cell) {
    const ReportCell& shown = row.cells[cell];
    if (!shown.printed || shown.text.empty()) continue;
    const auto wrap = shown.align == Align::right ? CellText::Wrap::never : CellText::Wrap::lines;
    set.texts.push_back({cell, CellText(style_.shown(shown), font_.of(row, shown),
                                        room(row, cell).width(), shown.align, wrap)});
    set.raised = std::max(set.raised, set.texts.back().lines.raised());
  }
  return set;
}

void ReportPages::measureHeights() {
  const double line = CellText::pitch(font_.plain);
  for (std::size_t at = 0; at < document_.rows().size(); ++at) {
    const DocumentRow& row = document_.rows()[at];
    bool simple = true;
    for (std::size_t cell = 0; cell < row.cells.size() && simple; ++cell) {
      simple = !row.cells[cell].printed || onOneLine(at, cell);
    }
    double height = line;
    if (!simple) {
      const SetRow set = setRow(at);
      for (const auto& [cell, lines] : set.texts) {
        height = std::max(height, set.topOf(lines) + lines.height());
      }
    }
    heights_.push_back(height + 2 * inset());
  }
}

// --- pages
// ----------------------------------------------------------------------------------------

double ReportPages::topOfRows() const {
  double height = headings_.empty() ? 0 : CellText::pitch(font_.plain) * 0.7;
  for (std::size_t at = 0; at < headings_.size(); ++at) height += headingHeight(at);
  return margin + height;
}

// The first line stands out; one that is too wide is set smaller.
QFont ReportPages::headingFont(std::size_t at) const {
  QFont font = headings_[at].emphasised ? font_.bold : font_.plain;
  if (at == 0) font.setPixelSize(qRound(font.pixelSize() * 1.15));
  const double width = QFontMetricsF(font).horizontalAdvance(toQt(headings_[at].text));
  const double fit = std::clamp(bodyWidth() / std::max(width, 1.0), leastShrink, 1.0);
  font.setPixelSize(static_cast<int>(font.pixelSize() * fit));
  return font;
}

// What is too wide even so goes on in the next line.
double ReportPages::headingHeight(std::size_t at) const {
  const QFontMetricsF metrics(headingFont(at));
  const QRectF room(0, 0, bodyWidth(), 1e6);
  const double text = metrics.boundingRect(room, headingFlags, toQt(headings_[at].text)).height();
  return CellText::pitch(font_.plain) * 1.2 + std::max(0.0, text - metrics.height());
}

// The heading rows that a page repeats when it begins with this row.
std::vector<std::size_t> ReportPages::repeatedAbove(std::size_t row) const {
  std::vector<std::size_t> repeated;
  for (const std::size_t heading :
       headingRows_.at(static_cast<std::size_t>(document_.rows()[row].table))) {
    if (heading < row) repeated.push_back(heading);
  }
  return repeated;
}

void ReportPages::paginate() {
  pages_.assign(1, {});
  const double space = footTop() - topOfRows();
  double used = 0;
  const auto turnPage = [&](std::size_t row) {
    pages_.emplace_back();
    used = 0;
    for (const std::size_t heading : repeatedAbove(row)) {
      pages_.back().push_back({heading, 0, heights_[heading]});
      used += heights_[heading];
    }
  };
  for (std::size_t row = 0; row < document_.rows().size(); ++row) {
    const double height = heights_[row];
    const bool begun =
        !pages_.back().empty() && !document_.rows()[pages_.back().back().row].heading;
    if (used + height > space && begun) turnPage(row);
    double from = 0;
    // A row higher than a page goes on overleaf.
    while (used + height - from > space) {
      const double to = wholeLines(row, from + space - used);
      if (to <= from) break;
      pages_.back().push_back({row, from, to});
      turnPage(row);
      from = to;
    }
    pages_.back().push_back({row, from, height});
    used += height - from;
  }
}

// The greatest part of a row's height within `height` that holds whole lines in every cell.
double ReportPages::wholeLines(std::size_t row, double height) const {
  const SetRow set = setRow(row);
  double whole = height - inset();
  for (double before = whole + 1; whole < before;) {
    before = whole;
    for (const auto& [cell, lines] : set.texts) {
      const double top = set.topOf(lines);
      whole = std::min(whole, top + lines.wholeUpTo(before - top));
    }
  }
  return whole <= 0 ? 0 : inset() + whole;
}

int ReportPages::pageOf(std::size_t row) const {
  const auto begins = [&](const Piece& piece) { return piece.row == row && piece.from == 0; };
  const auto found = std::ranges::find_if(
      pages_, [&](const auto& page) { return std::ranges::any_of(page, begins); });
  return found == pages_.end() ? 0 : static_cast<int>(found - pages_.begin());
}

std::vector<std::size_t> ReportPages::rowsOn(int page) const {
  std::vector<std::size_t> rows;
  for (const Piece& piece : pages_.at(static_cast<std::size_t>(page))) rows.push_back(piece.row);
  return rows;
}

// --- painting
// -------------------------------------------------------------------------------------

void ReportPages::paint(QPainter& painter, int page) const {
  painter.save();
  painter.setPen(QPen(Qt::black, point * 0.5));
  paintHeadings(painter);
  double top = topOfRows();
  for (const Piece& piece : pages_.at(static_cast<std::size_t>(page))) {
    painter.save();
    // A rule lies half above its row.
    const double above = piece.from == 0 ? point : 0;
    painter.setClipRect(
        QRectF(0, top - above, size().width(), piece.to - piece.from + above + point));
    paintRow(painter, piece.row, top - piece.from);
    painter.restore();
    top += piece.to - piece.from;
  }
  paintFoot(painter, page);
  painter.restore();
}

void ReportPages::paintHeadings(QPainter& painter) const {
  double top = margin;
  for (std::size_t at = 0; at < headings_.size(); ++at) {
    const double height = headingHeight(at);
    painter.setFont(headingFont(at));
    painter.drawText(QRectF(margin, top, bodyWidth(), height), headingFlags,
                     toQt(headings_[at].text));
    top += height;
  }
}

void ReportPages::paintRow(QPainter& painter, std::size_t at, double top) const {
  const DocumentRow& row = document_.rows()[at];
  const QPen ink = painter.pen();
  painter.setPen(stands(row) ? ink : QPen(QColor(0xB8, 0xB8, 0xB8), point * 0.5));
  const double padding = font_.padding();
  for (std::size_t c = 0; c < row.cells.size(); ++c) {
    if (!row.cells[c].ruled) continue;
    const QRectF space = room(row, c);
    painter.drawLine(QPointF(space.left() - padding, top), QPointF(space.right() + padding, top));
  }
  painter.setPen(ink);
  const SetRow set = setRow(at);
  for (const auto& [cell, lines] : set.texts) {
    lines.paint(painter, QPointF(room(row, cell).left(), top + inset() + set.topOf(lines)));
  }
  if (row.heading && at == headingRows_.at(static_cast<std::size_t>(row.table)).back()) {
    const double bottom = top + heights_[at];
    painter.drawLine(QPointF(margin, bottom), QPointF(margin + bodyWidth(), bottom));
  }
}

void ReportPages::paintFoot(QPainter& painter, int page) const {
  const QRectF foot(margin, footTop(), bodyWidth(), footHeight);
  painter.setFont(ReportFont::ofSize(8 * point).plain);
  painter.setPen(QPen(QColor(0x60, 0x60, 0x60), point * 0.5));
  painter.drawText(
      foot, Qt::AlignLeft | Qt::AlignBottom,
      QObject::tr("Printed on %1").arg(printed_.toString(QStringLiteral("dd/MM/yyyy"))));
  painter.drawText(foot, Qt::AlignRight | Qt::AlignBottom,
                   QObject::tr("Page %1 of %2").arg(page + 1).arg(count()));
}

}  // namespace quillet::desktop
