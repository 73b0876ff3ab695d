// What the statements by heads are drawn from: the amounts of a client's year and of the year
// before it, with what groups and ledgers are called.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "books/two_years.h"
#include "data/money.h"
#include "ports/statutory_heads.h"

namespace quillet {

struct BookedAmount {
  LedgerGroup pair;
  Money amount;  // debit positive
};

struct StatementGroup {
  std::string name;
  long primary = 0;  // its number in Mast_Gunder
  long grand = 0;    // the grand group of that, 0 for none
};

// Of both years, as TwoYears::Year numbers them. A year that is not there has nothing.
struct StatementBooks {
  std::array<std::vector<BookedAmount>, 2> lines;
  std::array<std::vector<BookedAmount>, 2> stock;  // at the end of the year; not among the lines
  std::map<long, StatementGroup> groups;           // by id; one that is not here is in no master
  std::map<long, std::string> ledgers;             // by id, those of the amounts
  // What the raw-material binding says of the groups of closing stock.
  std::array<std::map<long, HeadRole>, 2> boundStock;
};

StatementBooks readStatementBooks(ServiceObject& host, const TwoYears& years);

}  // namespace quillet
