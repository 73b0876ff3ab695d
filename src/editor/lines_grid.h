// The rows of the grid of lines: one for each ledger and group, of one year or of both side by
// side.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "books/two_years.h"
#include "controls/grid.h"

namespace quillet {

class LinesGrid {
 public:
  LinesGrid(Grid& grid, const ServiceObject& host) : grid_(grid), host_(host) {}

  // Shows the entries under the columns of the years in view; the selected line stays selected.
  void show(std::vector<Entry> entries, const TwoYears& years);
  void clear();

  // The entry of the current row, null when there is none.
  const Entry* selected() const;
  std::optional<YearLine> selectedLine() const;
  // Nothing happens when the line is not there.
  void select(const YearLine& line);

  // A row as it goes out on paper or into a workbook. Beside the previous year's, the line is the
  // current year's; null when that has none.
  struct Row {
    const std::string& particular;
    const std::string& group;
    const Line* line;
  };
  Row row(int row) const;
  // The previous year's line beside it, null when there is none.
  const Line* lineBefore(int row) const;

 private:
  void setColumns();
  std::vector<std::string> cellsOf(const Entry& entry) const;
  const Entry& entryOf(int row) const { return entries_[grid_.rowId(row) - 1]; }

  Grid& grid_;
  const ServiceObject& host_;
  std::vector<Entry> entries_;  // a row's id is the position of its entry, from 1
  std::vector<TwoYears::Year> years_;
};

}  // namespace quillet
