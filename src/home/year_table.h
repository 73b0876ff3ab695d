// A list of a client's years as the home form shows it, to choose one from or to see what is there.
#pragma once

#include <string>
#include <vector>

#include "books/year_figures.h"
#include "controls/grid.h"
#include "host/context.h"

namespace quillet {

// One row for each year, with its position from 1 as the id. A year of which there are no figures
// is shown without them. `locks` says of each year why it is locked, "" where it is not; a list
// without a locked year has no column for it.
void fillYearTable(Grid& grid, const ServiceObject& host, const std::vector<YearKeys>& years,
                   const std::vector<YearFigures>& figures, const std::vector<std::string>& locks);
// Of the client's years, by their positions; none when the locks could not be read.
std::vector<std::string> lockTexts(Context& context, const std::string& client,
                                   const std::vector<YearKeys>& years);

// What a year holds, for lists with other columns before: lines, debit, credit, difference.
std::vector<GridColumn> figureColumns();
std::vector<std::string> figureCells(const ServiceObject& host, const YearFigures& year);

}  // namespace quillet
