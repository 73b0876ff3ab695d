// What a person does in the cells of a grid, whatever draws them. Rows count from 1, columns from
// 0; 0 and -1 stand for none.
#pragma once

#include <functional>

#include "controls/grid.h"
#include "view/action_runner.h"

namespace quillet::view {

// Whether a person can write into the cell now; ticks are turned, not written.
bool isWritten(const Grid& grid, int row, int column);
// The row's first cell that can be written into, -1 for none.
int firstWritten(const Grid& grid, int row);

// A press makes the row current; that of the left button turns a tick.
void pressCell(Grid& grid, int row, int column, bool left, ActionRunner& runner);
// A double click turns a tick, or edits the cell; `edit` says whether it can be. Elsewhere it
// carries the row on.
void doubleClickCell(Grid& grid, int row, int column, const std::function<bool()>& edit,
                     ActionRunner& runner);
// A press beside the rows: on the words of a grid without any.
void pressEmpty(Grid& grid, bool left, ActionRunner& runner);
// A press with Shift selects the rows up to this one, one with Ctrl takes it in or out; the current
// row stays.
void selectRow(Grid& grid, int row, bool upTo, ActionRunner& runner);
// The same by a key with Shift. Returns the row where the selection ends, 0 for any other key.
int extendSelection(Grid& grid, Key key, ActionRunner& runner);
void selectAllRows(Grid& grid, ActionRunner& runner);
// Orders by the first column shown, or the second and so on.
void sortByShown(Grid& grid, int position, ActionRunner& runner);
// Makes the row current and carries it on.
void chooseRow(Grid& grid, int row, ActionRunner& runner);

}  // namespace quillet::view
