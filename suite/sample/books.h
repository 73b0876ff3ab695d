// Keeps the books of a client of the sample practice: works out a trial balance for each of its
// years, in whole paise, so that every year balances exactly and each goes on from the one before.
// The same client always gets the same books.
#pragma once

#include <string>
#include <vector>

#include "suite/sample/clients.h"

namespace quillet::suite::sample {

using Paise = long long;

struct BookLine {
  std::string ledger;
  std::string group;
  Paise amount = 0;  // debit positive, credit negative, never zero
};

struct YearBooks {
  long firstYear = 0;
  std::vector<BookLine> lines;
  std::vector<BookLine> stock;  // closing stock, which is no part of the trial balance
};

// Oldest year first.
std::vector<YearBooks> keepBooks(const SampleClient& client);

}  // namespace quillet::suite::sample
