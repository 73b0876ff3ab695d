// Shows what was read as a text that a test compares.
#pragma once

#include <string>

#include "ports/source_book.h"

namespace quillet::support {

// "a|b" for each row, one a line.
inline std::string sheetText(const SourceSheet& sheet) {
  std::string text;
  for (const SourceRow& row : sheet.rows) {
    for (std::size_t i = 0; i < row.cells.size(); ++i)
      text += (i > 0 ? "|" : "") + row.cells[i].text;
    text += '\n';
  }
  return text;
}

// The kind, the text and what else is particular: "n 500 side C".
inline std::string cellText(const SourceCell& cell) {
  constexpr const char* kinds = "-tndbe";  // in the order of SourceCell::Kind
  std::string text{kinds[static_cast<int>(cell.kind)]};
  if (!cell.text.empty()) text += " " + cell.text;
  if (cell.side != 0) text += std::string(" side ") + cell.side;
  if (cell.bold) text += " bold";
  if (cell.indent != 0) text += " indent " + std::to_string(cell.indent);
  if (cell.columns != 1) text += " columns " + std::to_string(cell.columns);
  if (cell.rows != 1) text += " rows " + std::to_string(cell.rows);
  return text;
}

}  // namespace quillet::support
