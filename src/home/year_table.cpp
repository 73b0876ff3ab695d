#include "home/year_table.h"

#include <algorithm>

#include "books/amount.h"
#include "books/locked_years.h"
#include "data/text.h"
#include "data/year.h"
#include "host/year_lock.h"

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
                   const std::vector<YearFigures>& figures, const std::vector<std::string>& locks) {
  std::vector<GridColumn> columns{{.heading = "From", .width = 12, .dated = true},
                                  {.heading = "To", .width = 12, .dated = true}};
  for (GridColumn& column : figureColumns()) columns.push_back(std::move(column));
  const bool anyLocked = std::ranges::any_of(locks, [](const auto& lock) { return !lock.empty(); });
  columns.push_back({.heading = "Last Voucher", .width = 13, .stretch = !anyLocked, .dated = true});
  if (anyLocked) columns.push_back({.heading = "Locked", .width = 24, .stretch = true});
  grid.setColumns(std::move(columns));
  const std::size_t shownColumns = 3 + figureColumns().size();
  long id = 0;
  for (const YearKeys& keys : years) {
    std::vector<std::string> cells{shownDate(keys.first), shownDate(keys.second)};
    const auto year = std::ranges::find(figures, keys, &YearFigures::keys);
    if (year != figures.end()) {
      for (std::string& cell : figureCells(host, *year)) cells.push_back(std::move(cell));
      const std::string& last = year->lastVoucher;
      cells.push_back(last.empty() ? "" : host.formatgen(last, "DD/MM/YYYY"));
    }
    if (anyLocked) {
      cells.resize(shownColumns);
      cells.push_back(locks[static_cast<std::size_t>(id)]);
    }
    grid.addRow(std::move(cells), ++id);
  }
}

std::vector<std::string> lockTexts(Context& context, const std::string& client,
                                   const std::vector<YearKeys>& years) {
  std::vector<std::string> texts(years.size());
  for (const LockedYear& locked : lockedYears(context)) {
    if (!equalIgnoringCase(locked.client, client)) continue;
    const auto year = std::ranges::find(years, locked.secondDate, &YearKeys::second);
    if (year != years.end()) texts[year - years.begin()] = lockText(locked.lock);
  }
  return texts;
}

}  // namespace quillet
