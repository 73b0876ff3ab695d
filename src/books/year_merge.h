// The merge of trial balances: what several clients' lines come to together.
#pragma once

#include <vector>

#include "books/lines.h"

namespace quillet {

// One line for each particular and group, in the order of group and particular, numbered from 1:
// the sum of the signed amounts, to the paisa. What nets to zero leaves no line.
std::vector<Line> mergedLines(const std::vector<Line>& lines);

}  // namespace quillet
