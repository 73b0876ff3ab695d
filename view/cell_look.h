// How the cells of a grid are told apart, whatever draws them.
#pragma once

#include <string>

#include "controls/grid.h"
#include "controls/text_box.h"

namespace quillet::view {

// What stands behind a row's cells.
enum class Ground { plain, everySecond, emphasised, current, currentInFocus };

// `shown` counts the rows on the screen from 0. A list under a text box is always in focus: keys
// that go into the box move its current row.
Ground groundOf(const Grid& grid, int row, int shown, bool inFocus);

// Amounts stand under each other: they are drawn in digits of one width.
inline bool holdsFigures(const GridColumn& column) { return column.align == Align::right; }

// What a cell shows, its figures divided as a person prefers.
std::string shownText(const Grid& grid, int row, int column);
// A box that nobody types in shows figures so as well, unless it is read or copied just now.
std::string shownText(const TextBox& box, bool inFocus);

}  // namespace quillet::view
