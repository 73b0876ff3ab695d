// Rows of a book before and after an act, paired: what was changed stands in one pair from old to
// new, although the act deleted a row and inserted another.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/money.h"

namespace quillet::suite {

// A row of any book. What a book does not have stays empty.
struct BookRow {
  long partId = 0;
  long allId = 0;
  Money balance;        // debit positive
  long voucher = 0;     // its number
  std::string date;     // and date, as it is stored
  std::string details;  // its narration; of a master, what it says
  long order = 0;       // among the rows of its book; says nothing by itself

  // Whether a person reads the same in both.
  bool saysSameAs(const BookRow& other) const;
};

struct RowPair {
  std::optional<BookRow> before;
  std::optional<BookRow> after;

  const BookRow& any() const { return after ? *after : *before; }
  bool isSame() const { return before && after && before->saysSameAs(*after); }
};

// Equal rows first, then those of the same ledger and group, then those of the same ledger, and of
// several always the first of each; only within one voucher. In the order of the rows.
std::vector<RowPair> matchRows(std::vector<BookRow> before, std::vector<BookRow> after);

}  // namespace quillet::suite
