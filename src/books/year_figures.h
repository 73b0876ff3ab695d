// What each of a client's years holds, for lists that tell the years apart. The tables do not keep
// when a line was changed last; of the adjustments they keep the day of each voucher.
#pragma once

#include <string>
#include <vector>

#include "books/registry.h"
#include "data/money.h"

namespace quillet {

struct YearFigures {
  YearKeys keys;
  long lines = 0;
  Money debit{};
  Money credit{};
  std::string lastVoucher{};  // as the journal's table writes days; "" without a voucher
};

// Those of the client's years, in their order; one without a table holds nothing. Two statements,
// however many years there are.
std::vector<YearFigures> yearFigures(ServiceObject& host, const std::string& client);
// The same for years that were read already, of whatever clients, by one statement.
std::vector<YearFigures> yearFigures(ServiceObject& host, const std::vector<RegisteredYear>& years);

}  // namespace quillet
