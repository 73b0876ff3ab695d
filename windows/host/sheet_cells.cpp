#include "windows/host/sheet_cells.h"

#include <algorithm>

#include "data/errors.h"
#include "windows/com/array.h"

namespace quillet::windows {
namespace {

// "AB12".
std::string address(int row, int column) {
  std::string letters;
  for (int c = column; c > 0; c = (c - 1) / 26) {
    letters.insert(letters.begin(), static_cast<char>('A' + (c - 1) % 26));
  }
  return letters + std::to_string(row);
}

std::string address(int top, int left, int bottom, int right) {
  return address(top, left) + ":" + address(bottom, right);
}

// Set before the text comes: the application does not read a text cell as a number, a date or a
// formula.
void makeText(const Late& range) { range.put("NumberFormat", "@"); }

Variant variantOf(const std::variant<std::string, double>& value) {
  return std::visit([](const auto& held) { return Variant(held); }, value);
}

}  // namespace

void SheetCells::writeTo(const Late& sheet) const {
  if (!cells_.empty() && !writeAtOnce(sheet)) writeEach(sheet);
}

SheetCells::Block SheetCells::block() const {
  Block block{cells_.begin()->first.first, cells_.begin()->first.second,
              cells_.rbegin()->first.first, 0};
  for (const auto& [place, value] : cells_) {
    block.left = std::min(block.left, place.second);
    block.right = std::max(block.right, place.second);
  }
  return block;
}

const SheetCells::Value* SheetCells::at(int row, int column) const {
  const auto found = cells_.find({row, column});
  return found == cells_.end() ? nullptr : &found->second;
}

// False when the application cannot take a block, or when the block would wipe out what the
// template holds between our cells. What really fails fails cell by cell as well, and is told then.
bool SheetCells::writeAtOnce(const Late& sheet) const {
  try {
    const auto [top, left, bottom, right] = block();
    if (!sheet.has("Range")) return false;
    const Late range = sheet.object("Range", address(top, left, bottom, right));
    if (leavesContents(range)) return false;
    formatTexts(sheet);
    const std::size_t rows = bottom - top + 1;
    const std::size_t columns = right - left + 1;
    Array values(VT_VARIANT, {{rows, 1}, {columns, 1}});
    {
      const ArrayView<VARIANT> elements(values.get());
      for (const auto& [place, value] : cells_) {
        variantOf(value).moveTo(&elements[(place.second - left) * rows + place.first - top]);
      }
    }
    range.put("Value", values.release());
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

// Whether a cell of the block that is not ours holds something.
bool SheetCells::leavesContents(const Late& range) const {
  const auto [top, left, bottom, right] = block();
  const Variant there = range.call("Value");
  if (top == bottom && left == right) return false;
  if (there.vt != (VT_ARRAY | VT_VARIANT)) return true;
  const ArrayView<const VARIANT> values(there.parray);
  const int rows = bottom - top + 1;
  const int columns = right - left + 1;
  if (static_cast<int>(values.size()) != rows * columns) return true;
  for (int i = 0; i < rows * columns; ++i) {
    if (values[i].vt != VT_EMPTY && !at(top + i % rows, left + i / rows)) return true;
  }
  return false;
}

// A run of texts below each other at a time.
void SheetCells::formatTexts(const Late& sheet) const {
  const auto [top, left, bottom, right] = block();
  for (int column = left; column <= right; ++column) {
    int first = 0;  // of the run, 0 between runs
    for (int row = top; row <= bottom + 1; ++row) {
      const Value* value = row <= bottom ? at(row, column) : nullptr;
      const bool text = value && std::holds_alternative<std::string>(*value);
      if (text && first == 0) first = row;
      if (text || first == 0) continue;
      makeText(sheet.object("Range", address(first, column, row - 1, column)));
      first = 0;
    }
  }
}

void SheetCells::writeEach(const Late& sheet) const {
  for (const auto& [place, value] : cells_) {
    const Late cell = sheet.object("Cells", place.first, place.second);
    if (std::holds_alternative<std::string>(value)) makeText(cell);
    cell.put("Value", variantOf(value));
  }
}

}  // namespace quillet::windows
