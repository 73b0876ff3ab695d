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

void fillYearTable(Grid& grid, const ServiceObject& host, const std::vector<YearKeys>& years,
                   const std::vector<YearFigures>& figures) {
  const auto amount = [](const char* heading) {
    return GridColumn{.heading = heading, .align = Align::right, .width = 16, .numeric = true};
  };
  grid.setColumns({{.heading = "From", .width = 12},
                   {.heading = "To", .width = 12},
                   {.heading = "Lines", .align = Align::right, .width = 7, .numeric = true},
                   amount("Debit"),
                   amount("Credit"),
                   {.heading = "Difference", .align = Align::right, .width = 22},
                   {.heading = "Last Voucher", .width = 13, .stretch = true}});
  long id = 0;
  for (const YearKeys& keys : years) {
    std::vector<std::string> cells{shownDate(keys.first), shownDate(keys.second)};
    const auto year = std::ranges::find(figures, keys, &YearFigures::keys);
    if (year != figures.end()) {
      cells.insert(
          cells.end(),
          {std::to_string(year->lines), groupedAmount(host, year->debit),
           groupedAmount(host, year->credit), differenceText(host, *year),
           year->lastVoucher.empty() ? "" : host.formatgen(year->lastVoucher, "DD/MM/YYYY")});
    }
    grid.addRow(std::move(cells), ++id);
  }
}

}  // namespace quillet
