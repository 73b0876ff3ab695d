#include "controls/grid.h"

#include <algorithm>

#include "data/text.h"

namespace quillet {

Grid::Row& Grid::at(int row) { return rows_.at(static_cast<std::size_t>(row - 1)); }
const Grid::Row& Grid::at(int row) const { return rows_.at(static_cast<std::size_t>(row - 1)); }

void Grid::changed() {
  ++contentVersion_;
  touch();
}

void Grid::setColumns(std::vector<GridColumn> columns) {
  columns_ = std::move(columns);
  clearSort();
  clearRows();
}

void Grid::setColumnHidden(int column, bool hidden) {
  columns_.at(static_cast<std::size_t>(column)).hidden = hidden;
  changed();
}

void Grid::setColumnWidth(int column, int width) {
  columns_.at(static_cast<std::size_t>(column)).width = std::max(1, width);
  touch();
}

int Grid::addRow(std::vector<std::string> cells, long id) {
  insertRow(rows() + 1, std::move(cells), id);
  return rows();
}

void Grid::setRows(int rows, Cells cells) {
  clearRows();
  cells_ = std::move(cells);
  rows_.resize(static_cast<std::size_t>(rows));
  for (int id = 1; id <= rows; ++id) {
    at(id).id = id;
    at(id).made = false;
  }
  changed();
}

std::vector<std::string>& Grid::cellsOf(const Row& row) const {
  if (!row.made) {
    row.cells.clear();
    try {
      row.cells = cells_(static_cast<int>(row.id));
    } catch (...) {
      reportTrapped(form(), name(), "CELLS");
    }
    row.cells.resize(columns_.size());
    row.made = true;
  }
  return row.cells;
}

void Grid::insertRow(int row, std::vector<std::string> cells, long id) {
  cells.resize(columns_.size());
  Row added;
  added.cells = std::move(cells);
  added.id = id;
  rows_.insert(rows_.begin() + (row - 1), std::move(added));
  if (current_ >= row) ++current_;
  changed();
}

void Grid::removeRow(int row) {
  at(row);
  rows_.erase(rows_.begin() + (row - 1));
  changed();
  if (current_ > row || current_ > rows()) {
    --current_;
    RowColChange();
  }
}

void Grid::moveRow(int from, int to) {
  Row moved = std::move(at(from));
  at(to);
  rows_.erase(rows_.begin() + (from - 1));
  rows_.insert(rows_.begin() + (to - 1), std::move(moved));
  if (current_ == from) {
    current_ = to;
  } else if (from < current_ && current_ <= to) {
    --current_;
  } else if (to <= current_ && current_ < from) {
    ++current_;
  }
  changed();
}

void Grid::removeRowsIf(const std::function<bool(int row)>& condition) {
  int kept = 0;
  int current = 0;
  for (int row = 1; row <= rows(); ++row) {
    if (condition(row)) continue;
    ++kept;
    if (row == current_) current = kept;
    if (kept != row) at(kept) = std::move(at(row));
  }
  if (kept == rows()) return;
  rows_.resize(static_cast<std::size_t>(kept));
  const bool lost = current == 0 && current_ != 0;
  current_ = current;
  changed();
  if (lost) RowColChange();
}

void Grid::clearRows() {
  rows_.clear();
  cells_ = nullptr;
  changed();
  setCurrent(0);
}

void Grid::reserve(int rows) { rows_.reserve(static_cast<std::size_t>(rows)); }

const std::string& Grid::cell(int row, int column) const {
  return cellsOf(at(row)).at(static_cast<std::size_t>(column));
}

void Grid::setCell(int row, int column, std::string text) {
  std::string& cell = cellsOf(at(row)).at(static_cast<std::size_t>(column));
  if (cell == text) return;
  cell = std::move(text);
  changed();
}

int Grid::columnNamed(std::string_view heading) const {
  for (int c = 0; c < cols(); ++c) {
    if (equalIgnoringCase(columns_[static_cast<std::size_t>(c)].heading, heading)) return c;
  }
  return -1;
}

int Grid::find(int column, std::string_view text, int from) const {
  for (int r = from; r <= rows(); ++r) {
    if (cell(r, column) == text) return r;
  }
  return 0;
}

int Grid::findId(long id) const {
  const auto found =
      std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) { return row.id == id; });
  return found == rows_.end() ? 0 : static_cast<int>(found - rows_.begin()) + 1;
}

bool Grid::rowHidden(int row) const { return at(row).hidden; }

void Grid::setRowHidden(int row, bool hidden) {
  if (at(row).hidden == hidden) return;
  at(row).hidden = hidden;
  changed();
}

bool Grid::rowEmphasised(int row) const { return at(row).emphasised; }

void Grid::setRowEmphasised(int row, bool emphasised) {
  at(row).emphasised = emphasised;
  changed();
}

int Grid::tickColumn() const {
  const auto found = std::find_if(columns_.begin(), columns_.end(),
                                  [](const GridColumn& column) { return column.tick; });
  return found == columns_.end() ? -1 : static_cast<int>(found - columns_.begin());
}

bool Grid::ticked(int row) const {
  const int column = tickColumn();
  return column >= 0 && cell(row, column) == "1";
}

void Grid::tick(int row, bool on) {
  const int column = tickColumn();
  if (column < 0 || ticked(row) == on) return;
  setCell(row, column, on ? "1" : "");
  AfterEdit(row, column);
}

void Grid::edit(int row, int column, std::string text) {
  if (!columns_.at(static_cast<std::size_t>(column)).editable || cell(row, column) == text) return;
  setCell(row, column, std::move(text));
  AfterEdit(row, column);
}

void Grid::setCurrent(int row) {
  const int next = row >= 1 && row <= rows() ? row : 0;
  if (next == current_) return;
  current_ = next;
  touch();
  RowColChange();
}

}  // namespace quillet
