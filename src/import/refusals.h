// What stands in the way of importing.
#pragma once

#include <string>
#include <vector>

#include "import/proposals.h"

namespace quillet {

struct Refusal {
  int row = 0;  // the number of the source's row, 0 for the whole
  std::string text;
};

// In the order of the rows, what concerns the whole first. `differenceConfirmed` is a person's
// explicit Yes to a difference, of debit and credit or between the source's total and what is
// entered; without it there is a refusal for it.
std::vector<Refusal> refusalsOf(const Mapping& mapping, const ImportRows& rows,
                                const Proposals& proposals, bool differenceConfirmed);
// The two differences in words, "" when there is none.
std::string differenceOf(const Proposals& proposals);

}  // namespace quillet
