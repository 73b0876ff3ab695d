// A list of a client's years as the home form shows it, to choose one from or to see what is there.
#pragma once

#include <vector>

#include "books/year_figures.h"
#include "controls/grid.h"

namespace quillet {

// One row for each year, with its position from 1 as the id. A year of which there are no figures
// is shown without them.
void fillYearTable(Grid& grid, const ServiceObject& host, const std::vector<YearKeys>& years,
                   const std::vector<YearFigures>& figures);

// What a year holds, for lists with other columns before: lines, debit, credit, difference.
std::vector<GridColumn> figureColumns();
std::vector<std::string> figureCells(const ServiceObject& host, const YearFigures& year);

}  // namespace quillet
