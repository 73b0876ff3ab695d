#include "suite/reporter.h"

namespace quillet::suite {

void DocumentReporter::WriteToReport(std::vector<std::string>& values,
                                     std::vector<Align>& alignments, std::vector<long>& widths,
                                     std::vector<std::string>& before,
                                     std::vector<std::string>& after, bool& heading,
                                     std::string& rules, std::string& emphasis, std::string& last,
                                     std::string& printed) {
  document_.addRow(
      {values, alignments, widths, before, after, heading, {rules, emphasis, last, printed}});
}

}  // namespace quillet::suite
