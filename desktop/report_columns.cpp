#include "desktop/report_columns.h"

#include <QApplication>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "desktop/theme.h"

namespace quillet::desktop {

using suite::DocumentRow;
using suite::ReportCell;

ReportFont ReportFont::ofSize(double units) {
  QFont font = theme::figures(QApplication::font());
  font.setPixelSize(std::max(1, static_cast<int>(units)));
  font.setHintingPreference(QFont::PreferNoHinting);
  ReportFont both{font, font};
  both.bold.setBold(true);
  return both;
}

ReportColumns::ReportColumns(const suite::Document& document, const ReportFont& font,
                             const ReportStyle& style)
    : character_(QFontMetricsF(font.plain).horizontalAdvance(u'0')),
      padding_(font.padding()),
      tables_(static_cast<std::size_t>(std::max(1, document.tables()))) {
  for (std::size_t table = 0; table < tables_.size(); ++table) {
    tables_[table].resize(document.columns(static_cast<int>(table)));
  }
  measure(document, font, style);
}

void ReportColumns::measure(const suite::Document& document, const ReportFont& font,
                            const ReportStyle& style) {
  const QFontMetricsF plain(font.plain);
  const QFontMetricsF bold(font.bold);
  std::vector<std::size_t> rows(tables_.size());
  for (const DocumentRow& row : document.rows()) {
    const auto number = static_cast<std::size_t>(row.table);
    places_.push_back(rows.at(number)++);
    for (Column& column : tables_[number]) column.texts.push_back(0);
    for (std::size_t at = 0; at < row.cells.size(); ++at) {
      const ReportCell& cell = row.cells[at];
      Column& column = tables_[number][at];
      double& text = column.texts.back();
      text = -1;
      if (document.spanOf(row, at).count > 1) continue;
      text = (cell.emphasised || row.heading ? bold : plain).horizontalAdvance(style.shown(cell));
      const double asked = std::max(text, character_ * static_cast<double>(cell.width));
      column.width = std::max(column.width, asked + 2 * padding_);
      if (cell.align == Align::right) column.figures = true;
    }
  }
}

double ReportColumns::widest(double characters) const {
  double most = 0;
  for (const Table& table : tables_) {
    double width = 0;
    for (const Column& column : table) {
      width += wraps(column, characters) ? of(characters) : column.width;
    }
    most = std::max(most, width);
  }
  return most;
}

void ReportColumns::fit(double room) {
  for (Table& table : tables_) fit(table, room);
}

void ReportColumns::fit(Table& table, double room) const {
  std::vector<Column*> texts;
  std::vector<Column*> wrapping;
  double whole = 0;
  for (Column& column : table) {
    if (!column.figures) texts.push_back(&column);
    if (wraps(column, least)) wrapping.push_back(&column);
    whole += column.width;
  }
  if (whole > room) {
    for (const Column* column : wrapping) whole -= column->width;
    share(wrapping, room - whole);
  } else if (!texts.empty()) {
    // What is left over goes to the widest text, so that the figures stand at the right edge.
    (*std::ranges::max_element(texts, {}, &Column::width))->width += room - whole;
  }
}

// Each two columns part what they have together where that takes the fewest lines.
void ReportColumns::share(const std::vector<Column*>& columns, double room) const {
  for (Column* column : columns) column->width = room / static_cast<double>(columns.size());
  for (std::size_t one = 0; one + 1 < columns.size(); ++one) {
    for (std::size_t other = one + 1; other < columns.size(); ++other) {
      part(columns, columns[one]->width, columns[other]->width);
    }
  }
}

void ReportColumns::part(const std::vector<Column*>& columns, double& one, double& other) const {
  constexpr int steps = 60;
  const double both = one + other;
  double best = one;
  double fewest = linesOf(columns);
  for (int at = 0; at <= steps; ++at) {
    one = of(least) + (both - 2 * of(least)) * at / steps;
    other = both - one;
    const double lines = linesOf(columns);
    if (lines >= fewest) continue;
    fewest = lines;
    best = one;
  }
  one = best;
  other = both - best;
}

// About as many lines as the rows take.
double ReportColumns::linesOf(const std::vector<Column*>& columns) const {
  constexpr double filled = 0.9;  // of a line, since words stay whole
  double lines = 0;
  for (std::size_t row = 0; row < columns.front()->texts.size(); ++row) {
    double most = 1;
    for (const Column* column : columns) {
      const double parts = column->texts[row] / (column->width - 2 * padding_);
      if (parts > 1) most = std::max(most, std::ceil(parts / filled));
    }
    lines += most;
  }
  return lines;
}

double ReportColumns::left(int table, std::size_t column) const {
  return width(table, {0, column});
}

double ReportColumns::width(int table, suite::Document::Span columns) const {
  const Table& all = tables_.at(static_cast<std::size_t>(table));
  double width = 0;
  for (std::size_t at = columns.first; at < columns.first + columns.count; ++at) {
    width += all[at].width;
  }
  return width;
}

}  // namespace quillet::desktop
