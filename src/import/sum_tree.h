// One reading of a source's rows: which of them are sums, and what the others add up to.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "import/sums.h"

namespace quillet {

struct SumTree {
  // Which rows may be sums of those that follow.
  enum class Parents {
    none,
    told,      // those that their name, look or place tells
    any,       // every equal sum of two rows and more too
    anyEqual,  // and every row that equals the next one
    anyNet     // and every equal net amount
  };

  std::vector<RowKind> kinds;
  std::vector<std::optional<std::size_t>> parentOf;
  std::vector<std::size_t> children;  // how many nodes the row sums up; 0 for one that is no parent
  std::vector<bool> loose;            // a total by its amount alone
  std::vector<bool> named;            // a total by its name alone
  SideTotals leaves;
  SideTotals tops;  // sums in place of what they sum up

  bool meets(const SideTotals& stated) const { return leaves == stated || tops == stated; }
};

// Whether name, look or place says that the row could be a sum of those that follow.
bool tellsParent(const std::vector<SumRow>& rows, std::size_t at);

// `grand` is the row of the grand total. Totals that their amount alone tells count as such when
// `looseTotals`.
SumTree readTree(const std::vector<SumRow>& rows, std::optional<std::size_t> grand,
                 SumTree::Parents parents, bool looseTotals);

// For each row, how many rows that follow add up to its net amount, as they stand; 0 when none do.
// One row alone counts.
std::vector<std::size_t> plainSums(const std::vector<SumRow>& rows);

}  // namespace quillet
