// How the journal's printouts begin, and how their rows look.
#pragma once

#include <string>
#include <vector>

#include "host/report.h"

namespace quillet {

// The four masks that go with a row's cells, and where its amounts stand.
struct RowStyle {
  const char* rules;
  const char* emphasis;
  const char* last;
  const char* printed;
  bool heading = false;
  Align amounts = Align::right;
};

void beginReport(Reporter& reporter, const std::string& heading, int columns);

// Writes a row: texts in the first `texts` cells, amounts in the others.
void writeRow(Reporter& reporter, std::vector<std::string> cells, int texts, const RowStyle& style);

}  // namespace quillet
