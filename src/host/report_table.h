// A table of a report, row by row, and the printer codes that its texts may carry.
#pragma once

#include <string>
#include <vector>

#include "host/report.h"

namespace quillet {

// Codes of the ESC/P command set.
namespace printer {
inline constexpr const char* emphasisOn = "\x1B\x45";
inline constexpr const char* emphasisOff = "\x1B\x46";
// Ends condensed print and sets the skip over the perforation, whatever was printed before.
inline constexpr const char* control = "\x1B\x12\x1B\x4E";

std::string emphasised(const std::string& text);
}  // namespace printer

class ReportTable {
 public:
  // Begins the table with one column for each alignment.
  ReportTable(Reporter& reporter, std::vector<Align> alignments);

  // The row of column headings: repeats on every page, emphasised.
  void heading(std::vector<std::string> cells);
  // A row with a rule above it. Missing cells are empty.
  void row(std::vector<std::string> cells) { write(std::move(cells), '1', '0', false); }
  void unruledRow(std::vector<std::string> cells) { write(std::move(cells), '0', '0', false); }

 private:
  void write(std::vector<std::string> cells, char rule, char emphasis, bool heading);

  Reporter& reporter_;
  std::vector<Align> alignments_;
};

}  // namespace quillet
