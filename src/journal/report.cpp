#include "journal/report.h"

#include <algorithm>
#include <utility>

namespace quillet {

void beginReport(Reporter& reporter, const std::string& heading, int columns) {
  reporter.WinModeReport(true);
  reporter.NewReport();
  reporter.printtext(heading);
  reporter.CreateTable(1, columns);
}

void writeRow(Reporter& reporter, std::vector<std::string> cells, int texts,
              const RowStyle& style) {
  ReportRow row;
  row.alignments.assign(cells.size(), style.amounts);
  std::fill_n(row.alignments.begin(), texts, Align::left);
  row.widths.assign(cells.size(), 0);
  row.before.assign(cells.size(), "");
  row.after.assign(cells.size(), "");
  row.values = std::move(cells);
  row.heading = style.heading;
  row.rules = style.rules;
  row.emphasis = style.emphasis;
  row.last = style.last;
  row.printed = style.printed;
  WriteToReport(reporter, row);
}

}  // namespace quillet
