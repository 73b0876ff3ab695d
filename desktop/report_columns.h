// How wide the columns of a report's tables are. Figures and short texts stay whole; longer texts
// wrap and share the room that is left so that the report takes as few lines as possible.
#pragma once

#include <QFont>
#include <cstddef>
#include <vector>

#include "desktop/report_style.h"
#include "suite/document.h"

namespace quillet::desktop {

// The font of a report's rows, and that of what stands out.
struct ReportFont {
  QFont plain, bold;

  static ReportFont ofSize(double units);
  const QFont& of(const suite::DocumentRow& row, const suite::ReportCell& cell) const {
    return cell.emphasised || row.heading ? bold : plain;
  }
  // At each side of a cell.
  double padding() const { return plain.pixelSize() * 0.5; }
};

class ReportColumns {
 public:
  ReportColumns(const suite::Document& document, const ReportFont& font, const ReportStyle& style);

  // The room that the widest table asks for, its texts wrapped where they can be read with ease,
  // and what it needs.
  double wanted() const { return widest(readable); }
  double needed() const { return widest(least); }
  void fit(double room);

  double left(int table, std::size_t column) const;
  // From the left of the first to the right of the last.
  double width(int table, suite::Document::Span columns) const;
  // The cell's text on one line; less than 0 of one that spans columns.
  double textWidth(const suite::DocumentRow& row, std::size_t at, std::size_t cell) const {
    return tables_[static_cast<std::size_t>(row.table)][cell].texts[places_[at]];
  }

 private:
  static constexpr double readable = 18;  // characters of a text that wraps
  static constexpr double least = 10;

  struct Column {
    double width = 0;           // as it is fitted; before that of the widest text
    bool figures = false;       // right-aligned
    std::vector<double> texts;  // their widths on one line, by the table's rows
  };
  using Table = std::vector<Column>;

  void measure(const suite::Document& document, const ReportFont& font, const ReportStyle& style);
  double widest(double characters) const;
  bool wraps(const Column& column, double characters) const {
    return !column.figures && column.width > of(characters);
  }
  double of(double characters) const { return character_ * characters + 2 * padding_; }
  void fit(Table& table, double room) const;
  void share(const std::vector<Column*>& columns, double room) const;
  void part(const std::vector<Column*>& columns, double& one, double& other) const;
  double linesOf(const std::vector<Column*>& columns) const;

  double character_;  // the width of a digit
  double padding_;
  std::vector<Table> tables_;
  std::vector<std::size_t> places_;  // of the document's rows in their tables
};

}  // namespace quillet::desktop
