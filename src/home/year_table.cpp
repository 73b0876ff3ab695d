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
    return GridColumn{.heading = heading, .align = Align::right, .width = 14, .numeric = true};
  };
  return {{.heading = "Lines", .align = Align::right, .width = 6, .numeric = true},
          amount("Debit"),
          amount("Credit"),
          {.heading = "Difference", .align = Align::right, .width = 18, .numeric = true}};
}

std::vector<std::string> figureCells(const ServiceObject& host, const YearFigures& year) {
  return {std::to_string(year.lines), groupedAmount(host, year.debit),
          groupedAmount(host, year.credit), differenceText(host, year)};
}

void fillYearTable(Grid& grid, const ServiceObject& host, const std::vector<YearKeys>& years,
                   const std::vector<YearFigures>& figures, const YearNotes& notes) {
  const bool anyLocked =
      std::ranges::any_of(notes.locks, [](const auto& lock) { return !lock.empty(); });
  std::vector<GridColumn> columns{{.heading = "From", .width = 11, .dated = true},
                                  {.heading = "To", .width = 11, .dated = true}};
  for (GridColumn& column : figureColumns()) columns.push_back(std::move(column));
  columns.push_back({.heading = notes.changes ? "Last Change" : "Last Voucher",
                     .width = notes.changes ? 16 : 13,
                     .stretch = !anyLocked,
                     .dated = true});
  if (anyLocked) columns.push_back({.heading = "Locked", .width = 8, .stretch = true});
  grid.setColumns(std::move(columns));
  for (std::size_t at = 0; at < years.size(); ++at) {
    const YearKeys& keys = years[at];
    std::vector<std::string> cells{shownDate(keys.first), shownDate(keys.second)};
    const auto year = std::ranges::find(figures, keys, &YearFigures::keys);
    if (year != figures.end()) {
      for (std::string& cell : figureCells(host, *year)) cells.push_back(std::move(cell));
    }
    cells.resize(2 + figureColumns().size());
    if (notes.changes) {
      cells.push_back(notes.changes->at(at));
    } else {
      const std::string last = year == figures.end() ? "" : year->lastVoucher;
      cells.push_back(last.empty() ? "" : host.formatgen(last, "DD/MM/YYYY"));
    }
    if (anyLocked) cells.push_back(notes.locks[at]);
    grid.addRow(std::move(cells), static_cast<long>(at) + 1);
  }
}

YearNotes readYearNotes(Form& form, Context& context, const std::string& client,
                        const std::vector<YearKeys>& years) {
  YearNotes notes;
  form.logErrors("YEARLOCKS", [&] {
    std::vector<std::string> locks(years.size());
    for (const LockedYear& locked : lockedYears(context)) {
      if (!equalIgnoringCase(locked.client, client)) continue;
      const auto year = std::ranges::find(years, locked.secondDate, &YearKeys::second);
      if (year != years.end()) locks[year - years.begin()] = lockText(locked.lock);
    }
    notes.locks = std::move(locks);
  });
  form.logErrors("YEARCHANGES", [&] {
    BooksHistory* const history = context.environment.history();
    if (!history || years.empty()) return;
    const auto times = history->lastChanges(client);
    notes.changes.emplace();
    for (const YearKeys& year : years) {
      const auto time = times.find(year.second);
      notes.changes->push_back(time == times.end() ? "" : time->second.substr(0, 16));
    }
  });
  return notes;
}

}  // namespace quillet
