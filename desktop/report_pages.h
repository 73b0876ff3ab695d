// A report laid out on pages of A4: headings and heading rows on every page, portrait, or landscape
// when the columns need it, one line at the foot. Screen, printer and PDF all paint from here.
#pragma once

#include <QDate>
#include <QFont>
#include <QSizeF>
#include <cstddef>
#include <vector>

#include "suite/document.h"

class QPainter;
class QRectF;

namespace quillet::desktop {

class ReportPages {
 public:
  // One unit is 1/720 of an inch.
  static constexpr int unitsPerInch = 720;

  ReportPages(const suite::Document& document, const QDate& printed);

  int count() const { return static_cast<int>(pages_.size()); }
  bool landscape() const { return landscape_; }
  QSizeF size() const;  // of a page, in units
  // Paints the page, from 0, with its corner at the painter's origin.
  void paint(QPainter& painter, int page) const;

  // The rows of the document on a page, the repeated ones too.
  std::vector<std::size_t> rowsOn(int page) const;

  // Where the cell's text goes, for a row that begins at the top of the page's body.
  QRectF room(const suite::DocumentRow& row, std::size_t cell) const;

 private:
  struct Table {
    std::vector<double> widths;         // of the columns
    std::vector<bool> words;            // columns of texts, which may be made narrower and wider
    std::vector<std::size_t> headings;  // its heading rows
  };

  // A row, or what of its height a page has room for.
  struct Piece {
    std::size_t row = 0;
    double from = 0;
    double to = 0;
  };

  void measure();
  void fit();
  void squeeze(Table& table, double room) const;
  static void spread(Table& table, double room);
  void paginate();

  double bodyWidth() const;
  double topOfRows() const;
  QFont headingFont(std::size_t at) const;
  double headingHeight(std::size_t at) const;
  double footTop() const;
  double lineHeight() const;
  double heightOf(std::size_t row) const;
  double inset() const;  // above and below a row's text
  double endOfLine(double height) const;
  const Table& tableOf(const suite::DocumentRow& row) const;
  std::vector<std::size_t> repeatedAbove(std::size_t row) const;
  QFont fontFor(bool bold) const { return bold ? bold_ : font_; }
  void paintHeadings(QPainter& painter) const;
  void paintRow(QPainter& painter, std::size_t row, double top) const;
  void paintFoot(QPainter& painter, int page) const;

  const suite::Document& document_;
  std::vector<suite::ReportHeading> headings_;
  QDate printed_;
  QFont font_, bold_;
  bool landscape_ = false;
  std::vector<Table> tables_;
  std::vector<std::vector<Piece>> pages_;
};

}  // namespace quillet::desktop
