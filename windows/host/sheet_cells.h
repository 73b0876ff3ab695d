// What is to be written into a worksheet. Each call of a spreadsheet application crosses into
// another process, so the cells go there together.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <variant>

#include "windows/com/late.h"

namespace quillet::windows {

class SheetCells {
 public:
  // A text stays one whatever it looks like; rows and columns count from 1.
  void set(int row, int column, const std::string& text) { cells_[{row, column}] = text; }
  void set(int row, int column, double number) { cells_[{row, column}] = number; }
  void writeTo(const Late& sheet) const;

 private:
  using Value = std::variant<std::string, double>;

  bool writeAtOnce(const Late& sheet) const;
  void writeEach(const Late& sheet) const;
  void formatTexts(const Late& sheet) const;
  const Value* at(int row, int column) const;
  bool leavesContents(const Late& range) const;

  // The smallest block that holds all cells.
  struct Block {
    int top = 0;
    int left = 0;
    int bottom = 0;
    int right = 0;
  };
  Block block() const;

  std::map<std::pair<int, int>, Value> cells_;  // by row and column
};

}  // namespace quillet::windows
