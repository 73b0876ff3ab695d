// Rows of a grid as the text that tables are exchanged in: cells parted by tabs, rows by line
// breaks.
#pragma once

#include <string>
#include <string_view>

#include "controls/grid.h"

namespace quillet {

// The selected rows. Hidden columns are left out, figures are undivided ("1234567.50"), and a cell
// that holds a tab, a line break or a quotation mark is quoted as spreadsheets read it.
std::string copiedRows(const Grid& grid);

// Without the commas that divide figures, also one that is just being typed at the end.
std::string undivided(std::string_view text);

}  // namespace quillet
