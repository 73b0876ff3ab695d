#include "review/totals_table.h"

#include "books/amount.h"

namespace quillet {

void arrangeTotals(Grid& grid, int nameWidth, int figureWidth) {
  constexpr int sideWidth = 2;  // " DR"
  const auto figures = [](const char* heading, int width) {
    return GridColumn{.heading = heading, .align = Align::right, .width = width};
  };
  grid.setColumns({{.heading = "Totals", .width = nameWidth},
                   figures("Debit", figureWidth),
                   figures("Credit", figureWidth),
                   figures("Difference", figureWidth + sideWidth)});
  grid.setFixedRows(3);
  grid.tabStop = false;
}

void addTotals(Grid& grid, const ServiceObject& host, const std::string& what,
               const SideTotals& totals) {
  grid.addRow({what, groupedAmount(host, totals.debit), groupedAmount(host, totals.credit),
               groupedBalance(host, totals.difference())});
}

}  // namespace quillet
