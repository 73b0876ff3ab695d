// What the component handed to the suite's other parts, kept for the test to read.
#pragma once

#include <string>
#include <vector>

namespace quillet::fakes {

struct Kept {
  std::vector<std::string> report;  // of the report shown last: headings, then rows with tabs
  std::vector<std::string> stock;   // the calls of the closing stock's form
};
Kept& kept();

}  // namespace quillet::fakes
