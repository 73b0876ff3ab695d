#include "import/sheet_builder.h"

#include <algorithm>

namespace quillet {
namespace {

constexpr std::size_t mostCells = 2'000'000;
constexpr std::size_t mostText = std::size_t{256} << 20;

}  // namespace

void SourceBudget::take(std::size_t cells, std::size_t bytes) {
  cells_ += cells;
  bytes_ += bytes;
  if (cells_ <= mostCells && bytes_ <= mostText) return;
  throw SourceError(
      "holds far more cells than a trial balance. Copy the rows to be imported into a new sheet "
      "and import that.");
}

bool isBlank(std::string_view text) {
  constexpr std::string_view hardBlank = "\u00A0";
  while (!text.empty()) {
    if (text.starts_with(hardBlank)) {
      text.remove_prefix(hardBlank.size());
    } else if (std::string_view(" \t\r\n\v\f").find(text.front()) != std::string_view::npos) {
      text.remove_prefix(1);
    } else {
      return false;
    }
  }
  return true;
}

SourceRow& SheetBuilder::rowAt(int row) {
  auto& rows = sheet_.rows;
  const auto wanted = static_cast<std::size_t>(row) + 1;
  if (wanted > rows.size()) budget_.take(wanted - rows.size(), 0);
  while (rows.size() < wanted) rows.push_back({static_cast<int>(rows.size()) + 1, false, {}});
  return rows[wanted - 1];
}

void SheetBuilder::place(int row, int column, SourceCell cell) {
  if (cell.kind == SourceCell::Kind::text && isBlank(cell.text)) return;
  if (cell.kind == SourceCell::Kind::empty) return;
  if (row >= mostSourceRows) throw SourceError("has more rows than a workbook can have.");
  columns_ = std::max(columns_, column + 1);
  if (column >= mostSourceColumns) return;
  auto& cells = rowAt(row).cells;
  const auto wanted = static_cast<std::size_t>(column) + 1;
  budget_.take(wanted > cells.size() ? wanted - cells.size() : 0, cell.text.size());
  if (wanted > cells.size()) cells.resize(wanted);
  cells[wanted - 1] = std::move(cell);
}

SourceCell* SheetBuilder::at(int row, int column) {
  if (static_cast<std::size_t>(row) >= sheet_.rows.size()) return nullptr;
  auto& cells = sheet_.rows[static_cast<std::size_t>(row)].cells;
  return static_cast<std::size_t>(column) < cells.size() ? &cells[static_cast<std::size_t>(column)]
                                                         : nullptr;
}

void SheetBuilder::finish() {
  if (columns_ <= mostSourceColumns) return;
  sheet_.rows.clear();
  sheet_.refusal = "has " + std::to_string(columns_) + " columns; an import takes up to " +
                   std::to_string(mostSourceColumns) +
                   ". Copy the columns of the trial balance into a new sheet and import that.";
}

void requireReadable(const SourceBook& book) {
  const auto readable = [](const SourceSheet& sheet) { return sheet.refusal.empty(); };
  if (book.sheets.empty()) throw SourceError("holds no sheet of cells.");
  if (std::any_of(book.sheets.begin(), book.sheets.end(), readable)) return;
  const SourceSheet& first = book.sheets.front();
  throw SourceError(first.name.empty()
                        ? first.refusal
                        : "cannot be imported: the sheet \"" + first.name + "\" " + first.refusal);
}

}  // namespace quillet
