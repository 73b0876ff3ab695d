// A finished report: heading lines above tables. It decides how each cell looks, so that screen,
// printer, PDF and text file agree.
//
// Texts arrive with printer codes inside. ESC E and ESC F switch emphasis on and off, across cells
// and lines as on a printer; they and every other code are stripped from the texts. A line that
// consists of codes only prints nothing.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "data/align.h"

namespace quillet::suite {

struct ReportHeading {
  std::string text;
  bool emphasised = false;
};

struct ReportCell {
  std::string text;
  Align align = Align::left;
  std::size_t width = 0;  // in characters, 0 follows the content
  bool ruled = false;     // a rule above the cell
  bool emphasised = false;
  bool printed = true;
};

struct DocumentRow {
  std::vector<ReportCell> cells;
  bool heading = false;  // repeats on every page
  int table = 0;         // which of the report's tables, from 0
  // As written, one character a cell or a lone one for all: rule above, emphasis, last cell,
  // printed.
  std::array<std::string, 4> masks;
};

class Document {
 public:
  const std::vector<ReportHeading>& headings() const { return headings_; }
  // The heading lines as they stand on paper: the firm's name at the head, the subject below.
  std::vector<ReportHeading> pageHeadings() const;
  const std::vector<DocumentRow>& rows() const { return rows_; }
  // How many columns the widest row of a table has.
  std::size_t columns(int table = 0) const;
  // The columns that a cell stands over: one, but the last cell of a short row has the rest of the
  // line, and a heading row of fewer cells than the table has columns spreads those after its first
  // evenly over the rest, as "Original" over its two amounts.
  struct Span {
    std::size_t first;
    std::size_t count;
  };
  Span spanOf(const DocumentRow& row, std::size_t cell) const;
  int tables() const { return tables_; }
  // Who made the report.
  void setFirm(std::string name) { firm_ = std::move(name); }
  // Whose books it is about. It stands on every sheet, also where the report's own headings do not
  // name it, so that a loose sheet is not taken for another client's.
  void setSubject(std::string text) { subject_ = std::move(text); }
  // The client and the year, as a file with the report is named after them.
  void setFileSubject(std::string text) { fileSubject_ = std::move(text); }
  // "Asha Traders 2008-09 Trial Balance": the name for a file, without an ending. No text in it
  // leads out of a folder.
  std::string fileName() const;

  // Called by the reporter.
  void addHeading(const std::string& text);
  void beginTable();
  struct Written {
    std::vector<std::string> values;
    std::vector<Align> alignments;
    std::vector<long> widths;
    std::vector<std::string> before;
    std::vector<std::string> after;
    bool heading = false;
    std::array<std::string, 4> masks;
  };
  void addRow(const Written& row);

 private:
  std::string firm_;
  std::string subject_;
  std::string fileSubject_;
  std::vector<ReportHeading> headings_;
  std::vector<DocumentRow> rows_;
  std::vector<std::size_t> columns_;  // of each table
  int tables_ = 0;
  bool emphasis_ = false;  // what the last code said
};

}  // namespace quillet::suite
