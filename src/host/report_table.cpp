#include "host/report_table.h"

#include <utility>

namespace quillet {

std::string printer::emphasised(const std::string& text) { return emphasisOn + text + emphasisOff; }

ReportTable::ReportTable(Reporter& reporter, std::vector<Align> alignments)
    : reporter_(reporter), alignments_(std::move(alignments)) {
  reporter_.CreateTable(1, static_cast<int>(alignments_.size()));
}

void ReportTable::heading(std::vector<std::string> cells) {
  write(std::move(cells), '1', '1', true);
}

void ReportTable::write(std::vector<std::string> cells, char rule, char emphasis, bool heading) {
  const std::size_t columns = alignments_.size();
  cells.resize(columns);
  ReportRow row;
  row.values = std::move(cells);
  row.alignments = alignments_;
  row.widths.resize(columns);
  row.before.resize(columns);
  row.after.resize(columns);
  row.heading = heading;
  row.rules.assign(columns, rule);
  row.emphasis.assign(columns, emphasis);
  row.last.assign(columns, '0');
  row.last.back() = '1';
  row.printed.assign(columns, '1');
  WriteToReport(reporter_, row);
}

}  // namespace quillet
