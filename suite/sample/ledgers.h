// The accounts that a client of the sample practice keeps, made from the chart of its business.
#pragma once

#include <string>
#include <vector>

#include "suite/sample/books.h"
#include "suite/sample/dice.h"

namespace quillet::suite::sample {

// An account with its balance, debit positive.
struct Ledger {
  std::string name;
  const AccountGroup* group;
  Role role;
  long rate;
  long grain;
  bool nominal;  // closed into the owners' accounts at the year's end
  int side;      // 1 where the account stands in debit, -1 in credit
  Paise balance = 0;
  Paise first = 0;  // balance of the first year
};

// All with a balance of nothing. The owners come first, the customers last.
std::vector<Ledger> openLedgers(const SampleClient& client, Dice& dice);

}  // namespace quillet::suite::sample
