// A list of a client's years as the home form shows it, to choose one from or to see what is there.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "books/year_figures.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "host/context.h"

namespace quillet {

// What the host knows of a client's years besides their figures, by the years' positions.
struct YearNotes {
  // Why each is locked, "" where it is not; a list without a locked year has no column for it.
  std::vector<std::string> locks;
  // When each was changed last; where no history is kept the last voucher stands in its place.
  std::optional<std::vector<std::string>> changes;
};
// What cannot be read is not there, and is logged.
YearNotes readYearNotes(Form& form, Context& context, const std::string& client,
                        const std::vector<YearKeys>& years);

// One row for each year, with its position from 1 as the id. A year of which there are no figures
// is shown without them.
void fillYearTable(Grid& grid, const ServiceObject& host, const std::vector<YearKeys>& years,
                   const std::vector<YearFigures>& figures, const YearNotes& notes);

// What a year holds, for lists with other columns before: lines, debit, credit, difference.
std::vector<GridColumn> figureColumns();
std::vector<std::string> figureCells(const ServiceObject& host, const YearFigures& year);

}  // namespace quillet
