#include "controls/row_text.h"

#include "data/text.h"

namespace quillet {
namespace {

std::string quoted(const std::string& text) {
  if (text.find_first_of("\t\r\n\"") == std::string::npos) return text;
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"') result += c;
    result += c;
  }
  return result + '"';
}

}  // namespace

std::string undivided(std::string_view text) {
  std::string result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool divides = text[at] == ',' && at > 0 && isDigit(text[at - 1]) &&
                         (at + 1 == text.size() || isDigit(text[at + 1]));
    if (!divides) result += text[at];
  }
  return result;
}

std::string copiedRows(const Grid& grid) {
  std::string text;
  for (const int row : grid.selection.rows()) {
    if (!text.empty()) text += '\n';
    bool first = true;
    for (int at = 0; at < grid.cols(); ++at) {
      const GridColumn& column = grid.columns()[static_cast<std::size_t>(at)];
      if (column.hidden) continue;
      if (!first) text += '\t';
      first = false;
      const std::string& cell = grid.cell(row, at);
      text += quoted(column.align == Align::right ? undivided(cell) : cell);
    }
  }
  return text;
}

}  // namespace quillet
