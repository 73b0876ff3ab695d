#include "desktop/report_pages.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QLocale>
#include <QObject>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "desktop/text.h"
#include "desktop/theme.h"

namespace quillet::desktop {
namespace {

using suite::DocumentRow;
using suite::ReportCell;

constexpr double point = ReportPages::unitsPerInch / 72.0;
constexpr double margin = 40 * point;
constexpr double padding = 5 * point;  // at each side of a cell
constexpr double footHeight = 24 * point;
constexpr double leastShrink = 0.7;  // small print that still reads
constexpr int headingFlags = Qt::AlignCenter | Qt::TextWordWrap;
const QSizeF portraitPage(595.3 * point, 841.9 * point);

QFont sized(double points) {
  QFont font = theme::figures(QApplication::font());
  font.setPixelSize(qRound(points * point));
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

// The width that a cell asks for: its text's, but a text that is no amount rather wraps than turns
// the page or makes the print small.
double widthOf(const QFont& font, const ReportCell& cell) {
  constexpr double longest = 48;  // characters
  const QFontMetricsF metrics(font);
  const double character = metrics.horizontalAdvance(u'0');
  double text = metrics.horizontalAdvance(toQt(cell.text));
  if (cell.align != Align::right) text = std::min(text, longest * character);
  return std::max(text, character * static_cast<double>(cell.width));
}

double sum(const std::vector<double>& widths) {
  return std::accumulate(widths.begin(), widths.end(), 0.0);
}

int flagsOf(Align align) {
  const int side = align == Align::right    ? Qt::AlignRight
                   : align == Align::center ? Qt::AlignHCenter
                                            : Qt::AlignLeft;
  return side | Qt::AlignTop | Qt::TextWordWrap;
}

// Headings and results are set off by black rules; those between one line and the next are there to
// guide the eye and stay faint.
bool stands(const DocumentRow& row) {
  return row.heading || std::any_of(row.cells.begin(), row.cells.end(),
                                    [](const ReportCell& cell) { return cell.emphasised; });
}

}  // namespace

ReportPages::ReportPages(const suite::Document& document, const QDate& printed)
    : document_(document), headings_(document.pageHeadings()), printed_(printed) {
  fit();
  paginate();
}

QSizeF ReportPages::size() const { return landscape_ ? portraitPage.transposed() : portraitPage; }
double ReportPages::bodyWidth() const { return size().width() - 2 * margin; }
double ReportPages::footTop() const { return size().height() - margin - footHeight; }
double ReportPages::lineHeight() const { return QFontMetricsF(font_).height(); }
double ReportPages::inset() const { return lineHeight() * 0.175; }

// --- columns
// --------------------------------------------------------------------------------------

const ReportPages::Table& ReportPages::tableOf(const DocumentRow& row) const {
  return tables_.at(static_cast<std::size_t>(row.table));
}

void ReportPages::measure() {
  tables_.clear();
  tables_.resize(static_cast<std::size_t>(std::max(1, document_.tables())));
  for (std::size_t t = 0; t < tables_.size(); ++t) {
    tables_[t].widths.assign(document_.columns(static_cast<int>(t)), 0);
    tables_[t].words.assign(tables_[t].widths.size(), true);
  }
  for (std::size_t at = 0; at < document_.rows().size(); ++at) {
    const DocumentRow& row = document_.rows()[at];
    Table& table = tables_.at(static_cast<std::size_t>(row.table));
    if (row.heading) table.headings.push_back(at);
    for (std::size_t c = 0; c < row.cells.size(); ++c) {
      if (document_.spanOf(row, c).count > 1) continue;
      const ReportCell& cell = row.cells[c];
      const bool bold = cell.emphasised || row.heading;
      table.widths[c] = std::max(table.widths[c], widthOf(fontFor(bold), cell) + 2 * padding);
      if (cell.align == Align::right) table.words[c] = false;
    }
  }
}

void ReportPages::fit() {
  const auto widest = [&] {
    double width = 0;
    for (const Table& table : tables_) width = std::max(width, sum(table.widths));
    return width;
  };
  const auto set = [&](double points) {
    font_ = bold_ = sized(points);
    bold_.setBold(true);
    measure();
  };
  constexpr double usual = 9.5;
  set(usual);
  landscape_ = widest() > bodyWidth();
  if (widest() > bodyWidth()) set(usual * std::max(leastShrink, bodyWidth() / widest()));
  for (Table& table : tables_) {
    squeeze(table, bodyWidth());
    spread(table, bodyWidth());
  }
}

// What is still too wide takes from the widest texts, which then wrap; amounts stay whole.
void ReportPages::squeeze(Table& table, double room) const {
  const double least = QFontMetricsF(font_).horizontalAdvance(u'0') * 8 + 2 * padding;
  std::vector<double*> texts;
  for (std::size_t c = 0; c < table.widths.size(); ++c) {
    if (table.words[c]) {
      texts.push_back(&table.widths[c]);
    } else {
      room -= table.widths[c];
    }
  }
  std::sort(texts.begin(), texts.end(), [](const double* a, const double* b) { return *a < *b; });
  // The narrowest first: what it leaves of its share goes to the wider ones.
  for (std::size_t left = texts.size(); double* width : texts) {
    *width = std::min(*width, std::max(least, room / static_cast<double>(left--)));
    room -= *width;
  }
}

// What is left over goes to the widest text column, so that the amounts stand at the right edge.
void ReportPages::spread(Table& table, double room) {
  const double left = room - sum(table.widths);
  std::size_t widest = table.widths.size();
  for (std::size_t c = 0; c < table.widths.size(); ++c) {
    const bool wider = widest == table.widths.size() || table.widths[c] > table.widths[widest];
    if (table.words[c] && wider) widest = c;
  }
  if (left > 0 && widest < table.widths.size()) table.widths[widest] += left;
}

QRectF ReportPages::room(const DocumentRow& row, std::size_t cell) const {
  const auto widths = tableOf(row).widths.begin();
  const suite::Document::Span span = document_.spanOf(row, cell);
  const auto first = widths + static_cast<std::ptrdiff_t>(span.first);
  const double left = std::accumulate(widths, first, margin);
  const double width = std::accumulate(first, first + static_cast<std::ptrdiff_t>(span.count), 0.0);
  return QRectF(left + padding, 0, width - 2 * padding, 1e6);
}

// --- pages
// ----------------------------------------------------------------------------------------

double ReportPages::heightOf(std::size_t at) const {
  const DocumentRow& row = document_.rows()[at];
  double height = lineHeight();
  for (std::size_t c = 0; c < row.cells.size(); ++c) {
    const ReportCell& cell = row.cells[c];
    if (!cell.printed) continue;
    const QFontMetricsF metrics(fontFor(cell.emphasised || row.heading));
    const QString text = toQt(cell.text);
    const QRectF space = room(row, c);
    if (metrics.horizontalAdvance(text) <= space.width()) continue;
    height = std::max(height, metrics.boundingRect(space, flagsOf(cell.align), text).height());
  }
  return height + 2 * inset();
}

double ReportPages::topOfRows() const {
  double height = headings_.empty() ? 0 : lineHeight() * 0.7;
  for (std::size_t at = 0; at < headings_.size(); ++at) height += headingHeight(at);
  return margin + height;
}

// The first line stands out; one that is too wide is set smaller.
QFont ReportPages::headingFont(std::size_t at) const {
  QFont font = fontFor(headings_[at].emphasised);
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
  return lineHeight() * 1.3 + std::max(0.0, text - metrics.height());
}

// The heading rows that a page repeats when it begins with this row.
std::vector<std::size_t> ReportPages::repeatedAbove(std::size_t row) const {
  std::vector<std::size_t> repeated;
  for (const std::size_t heading : tableOf(document_.rows()[row]).headings) {
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
      pages_.back().push_back({heading, 0, heightOf(heading)});
      used += heightOf(heading);
    }
  };
  for (std::size_t row = 0; row < document_.rows().size(); ++row) {
    const double height = heightOf(row);
    if (used + height > space && !pages_.back().empty()) turnPage(row);
    double from = 0;
    // A row higher than a page goes on overleaf.
    while (used + height - from > space) {
      const double to = endOfLine(from + space - used);
      if (to <= from) break;
      pages_.back().push_back({row, from, to});
      turnPage(row);
      from = to;
    }
    pages_.back().push_back({row, from, height});
    used += height - from;
  }
}

// Where the last line of text ends that fits into so much of a row's height.
double ReportPages::endOfLine(double height) const {
  // As the painter sets lines, which is not quite the spacing that the font asks for.
  constexpr int lines = 100;
  const QFontMetricsF metrics(font_);
  const QString text = QStringLiteral("x\n").repeated(lines).chopped(1);
  const double line =
      metrics.boundingRect(QRectF(0, 0, 1e6, 1e6), flagsOf(Align::left), text).height() / lines;
  return inset() + std::floor((height - inset()) / line) * line;
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
  const double height = heightOf(at);
  const QPen ink = painter.pen();
  const QPen rule = stands(row) ? ink : QPen(QColor(0xB8, 0xB8, 0xB8), point * 0.5);
  for (std::size_t c = 0; c < row.cells.size(); ++c) {
    const ReportCell& cell = row.cells[c];
    QRectF space = room(row, c);
    space.moveTop(top + inset());
    space.setHeight(height);
    if (cell.ruled) {
      painter.setPen(rule);
      painter.drawLine(QPointF(space.left() - padding, top), QPointF(space.right() + padding, top));
      painter.setPen(ink);
    }
    if (!cell.printed) continue;
    painter.setFont(fontFor(cell.emphasised || row.heading));
    painter.drawText(space, flagsOf(cell.align), toQt(cell.text));
  }
  const auto& headings = tableOf(row).headings;
  if (row.heading && at == headings.back()) {
    painter.drawLine(QPointF(margin, top + height), QPointF(margin + bodyWidth(), top + height));
  }
}

void ReportPages::paintFoot(QPainter& painter, int page) const {
  const QRectF foot(margin, footTop(), bodyWidth(), footHeight);
  painter.setFont(sized(8));
  painter.setPen(QPen(QColor(0x60, 0x60, 0x60), point * 0.5));
  painter.drawText(
      foot, Qt::AlignLeft | Qt::AlignBottom,
      QObject::tr("Printed on %1").arg(printed_.toString(QStringLiteral("dd/MM/yyyy"))));
  painter.drawText(foot, Qt::AlignRight | Qt::AlignBottom,
                   QObject::tr("Page %1 of %2").arg(page + 1).arg(count()));
}

}  // namespace quillet::desktop
