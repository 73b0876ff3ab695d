#include "home/year_table.h"

#include <algorithm>

#include "books/amount.h"
#include "data/year.h"

namespace quillet {
namespace {

std::string differenceText(const ServiceObject& host, const YearFigures& year) {
  const Money difference = year.debit - year.credit;
  if (difference.isZero()) return year.lines == 0 ? "" : "Agrees";
  return groupedAmount(host, abs(difference)) + (difference > Money() ? " Debit" : " Credit");
}

}  // namespace

std::vector<GridColumn> figureColumns() {
  const auto amount = [](const char* heading) {
    return GridColumn{.heading = heading, .align = Align::right, .width = 15, .numeric = true};
  };
  return {{.heading = "Lines", .align = Align::right, .width = 7, .numeric = true},
          amount("Debit"),
          amount("Credit"),
          {.heading = "Difference", .align = Align::right, .width = 20, .numeric = true}};
}

std::vector<std::string> figureCells(const ServiceObject& host, const YearFigures& year) {
  return {std::to_string(year.lines), groupedAmount(host, year.debit),
          groupedAmount(host, year.credit), differenceText(host, year)};
}

void fillYearTable(Grid& grid, const ServiceObject& host, const std::vector<YearKeys>& years,
                   const std::vector<YearFigures>& figures) {
  std::vector<GridColumn> columns{{.heading = "From", .width = 12, .dated = true},
                                  {.heading = "To", .width = 12, .dated = true}};
  for (GridColumn& column : figureColumns()) columns.push_back(std::move(column));
  columns.push_back({.heading = "Last Voucher", .width = 13, .stretch = true, .dated = true});
  grid.setColumns(std::move(columns));
  long id = 0;
  for (const YearKeys& keys : years) {
    std::vector<std::string> cells{shownDate(keys.first), shownDate(keys.second)};
    const auto year = std::ranges::find(figures, keys, &YearFigures::keys);
    if (year != figures.end()) {
      for (std::string& cell : figureCells(host, *year)) cells.push_back(std::move(cell));
      const std::string& last = year->lastVoucher;
      cells.push_back(last.empty() ? "" : host.formatgen(last, "DD/MM/YYYY"));
    }
    grid.addRow(std::move(cells), ++id);
  }
}

}  // namespace quillet
