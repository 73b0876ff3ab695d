#include "suite/text_report.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "data/text.h"

namespace quillet::suite {
namespace {

constexpr std::size_t gapInText = 2;

std::vector<std::size_t> widthsOf(const Document& document, int table) {
  const std::size_t columns = document.columns(table);
  std::vector<std::size_t> widths(columns, 1);
  for (const DocumentRow& row : document.rows()) {
    if (row.table != table) continue;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      const Document::Span span = document.spanOf(row, i);
      if (span.count > 1) continue;
      std::size_t& width = widths[span.first];
      width = std::max({width, lengthOf(row.cells[i].text), row.cells[i].width});
    }
  }
  return widths;
}

std::string fitted(const std::string& text, std::size_t width, Align align) {
  const std::size_t length = lengthOf(text);
  if (length >= width) return text.substr(0, offsetOf(text, width));
  const std::size_t room = width - length;
  const std::size_t left = align == Align::right ? room : align == Align::center ? room / 2 : 0;
  return std::string(left, ' ') + text + std::string(room - left, ' ');
}

std::string withoutTrailingBlanks(std::string line) {
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

class TextTable {
 public:
  TextTable(const Document& document, int table)
      : document_(document), widths_(widthsOf(document, table)) {}

  std::string linesOf(const DocumentRow& row) const {
    const std::string rules = line(row, [](const ReportCell& cell, std::size_t width) {
      return cell.ruled ? std::string(width, '-') : std::string(width, ' ');
    });
    const std::string texts = line(row, [](const ReportCell& cell, std::size_t width) {
      return cell.printed ? fitted(cell.text, width, cell.align) : std::string(width, ' ');
    });
    return (rules.empty() ? "" : rules + '\n') + texts + '\n';
  }

 private:
  template <class Draw>
  std::string line(const DocumentRow& row, Draw draw) const {
    std::string text;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      const Document::Span span = document_.spanOf(row, i);
      std::size_t width = (span.count - 1) * gapInText;
      for (std::size_t c = 0; c < span.count; ++c) width += widths_[span.first + c];
      if (i > 0) text += std::string(gapInText, ' ');
      text += draw(row.cells[i], width);
    }
    return withoutTrailingBlanks(text);
  }

  const Document& document_;
  std::vector<std::size_t> widths_;
};

}  // namespace

std::string textOf(const Document& document) {
  std::string text;
  for (const ReportHeading& heading : document.pageHeadings()) text += heading.text + '\n';
  int table = -1;
  std::optional<TextTable> current;
  for (const DocumentRow& row : document.rows()) {
    if (row.table != table) {
      text += '\n';
      table = row.table;
      current.emplace(document, table);
    }
    text += current->linesOf(row);
  }
  return text;
}

std::string tabbedTextOf(const Document& document) {
  std::string text;
  for (const DocumentRow& row : document.rows()) {
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      std::string cell = row.cells[i].printed ? row.cells[i].text : std::string();
      std::replace(cell.begin(), cell.end(), '\n', ' ');
      text += (i > 0 ? "\t" : "") + cell;
    }
    text += '\n';
  }
  return text;
}

}  // namespace quillet::suite
