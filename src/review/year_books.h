// The books of the year that an import goes into, as the source is compared with them.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "books/registry.h"
#include "books/unposted_changes.h"
#include "host/context.h"
#include "import/proposals.h"

namespace quillet {

// The year that lines are imported into.
struct ReviewedYear {
  ClientTable books;
  std::string clientName;
  YearKeys keys;
  std::string previousTable;  // "" when the client has no year before
};

struct YearBooks {
  KnownBooks known;            // its lines are those of before the vouchers
  std::vector<Line> standing;  // as they are stored
  std::map<LedgerGroup, Money> posted;

  // What the year's vouchers have posted for the pair.
  Money postedOn(LedgerGroup pair) const;
};

// Reads everything anew; what earlier failures left unposted is posted first.
YearBooks readYearBooks(Context& context, const ReviewedYear& year);

}  // namespace quillet
