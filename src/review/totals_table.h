// The table below a review with the totals of both sides, and by how much they differ.
#pragma once

#include <string>

#include "controls/grid.h"
#include "import/sums.h"
#include "ports/ports.h"

namespace quillet {

// Three rows, each with what it is the total of; figures as wide as that.
void arrangeTotals(Grid& grid, int nameWidth, int figureWidth);
void addTotals(Grid& grid, const ServiceObject& host, const std::string& what,
               const SideTotals& totals);

}  // namespace quillet
