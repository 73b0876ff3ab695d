// A report laid out on pages of A4: headings and heading rows on every page, one line at the foot.
// Texts wrap in their columns, figures stay whole; a row is on one page unless it is higher than
// that. Screen, printer and PDF all paint from here.
#pragma once

#include <QDate>
#include <QSizeF>
#include <cstddef>
#include <optional>
#include <vector>

#include "desktop/report_columns.h"

class QPainter;
class QRectF;

namespace quillet::desktop {

class ReportPages {
 public:
  // One unit is 1/720 of an inch.
  static constexpr int unitsPerInch = 720;

  ReportPages(const suite::Document& document, const QDate& printed, const ReportStyle& style = {});

  int count() const { return static_cast<int>(pages_.size()); }
  bool landscape() const { return landscape_; }
  QSizeF size() const;  // of a page, in units
  // Paints the page, from 0, with its corner at the painter's origin.
  void paint(QPainter& painter, int page) const;

  // The page that a row of the document begins on.
  int pageOf(std::size_t row) const;
  // The rows of the document on a page, the repeated ones too.
  std::vector<std::size_t> rowsOn(int page) const;

  // Where the cell's text goes, for a row that begins at the top of the page's body.
  QRectF room(const suite::DocumentRow& row, std::size_t cell) const;

 private:
  // A row, or what of its height a page has room for.
  struct Piece {
    std::size_t row = 0;
    double from = 0;
    double to = 0;
  };
  struct SetRow;

  void fit();
  void measureHeights();
  void paginate();

  double bodyWidth() const;
  double topOfRows() const;
  QFont headingFont(std::size_t at) const;
  double headingHeight(std::size_t at) const;
  double footTop() const;
  double inset() const;  // above and below a row's text
  bool onOneLine(std::size_t row, std::size_t cell) const;
  SetRow setRow(std::size_t row) const;
  double wholeLines(std::size_t row, double height) const;
  std::vector<std::size_t> repeatedAbove(std::size_t row) const;
  void paintHeadings(QPainter& painter) const;
  void paintRow(QPainter& painter, std::size_t row, double top) const;
  void paintFoot(QPainter& painter, int page) const;

  const suite::Document& document_;
  std::vector<suite::ReportHeading> headings_;
  QDate printed_;
  ReportStyle style_;
  bool landscape_ = false;
  ReportFont font_;
  std::optional<ReportColumns> columns_;
  std::vector<std::vector<std::size_t>> headingRows_;  // of each table
  std::vector<double> heights_;                        // of the rows
  std::vector<std::vector<Piece>> pages_;
};

}  // namespace quillet::desktop
