// How a printout hands its rows to the reporter.
#pragma once

#include <string>
#include <vector>

#include "ports/ports.h"

namespace quillet {

// One row of a report's table. Each mask holds one character a cell, "1" or "0"; a lone character
// stands for every cell.
struct ReportRow {
  std::vector<std::string> values;
  std::vector<Align> alignments;
  std::vector<long> widths;         // in characters; 0 follows the content
  std::vector<std::string> before;  // printer codes around each cell
  std::vector<std::string> after;
  bool heading = false;  // repeats on every page
  std::string rules;     // rule above the cell
  std::string emphasis;
  std::string last;  // the row's last cell
  std::string printed;
};

// The one procedure through which every printout writes: passes all ten on unchanged.
inline void WriteToReport(Reporter& reporter, ReportRow& row) {
  reporter.WriteToReport(row.values, row.alignments, row.widths, row.before, row.after, row.heading,
                         row.rules, row.emphasis, row.last, row.printed);
}

}  // namespace quillet
