// A range of cells from a spreadsheet, pasted where a form has something to do with it.
#pragma once

#include <string>

#include "controls/control.h"

namespace quillet {

// A text with a tab or with more than one line; that of a single cell is none.
bool isCellRange(std::string_view text);

// True when it is a range and the control took it: the text is not to be pasted then.
bool pasteCells(Control& control, const std::string& text);

}  // namespace quillet
