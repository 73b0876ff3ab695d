// The charts of accounts of the sample practice: which ledgers a client of each kind keeps, and how
// their figures follow from its turnover.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "suite/data_reader.h"
#include "suite/starter_data.h"

namespace quillet::suite::sample {

// Rates are parts of the year's turnover per 100,000 unless said otherwise. A group's grand group
// gives the side of an account; a negative rate puts it on the other one.
enum class Role {
  sales,         // rate: parts per 100,000 of the turnover, varied little
  purchases,     // rate: per cent of all that is bought
  direct,        // an expense that is part of the cost of goods sold
  flow,          // an expense or income of the year
  balance,       // an asset or liability that moves with the turnover
  lasting,       // set in the first year and kept
  asset,         // written down each year, added to now and then
  loan,          // repaid in equal parts
  depreciation,  // what the assets lost this year
  taxCharge,     // rate: per cent of the profit, in steps of thousand rupees
  taxDue,        // what was charged
  deposits,      // takes the money that the bank account does not need
  overdraft,     // gives the money that it lacks
  bank,          // whatever makes the year balance
  owner,         // rate: per cent of the profit that it takes over
  drawings,      // taken over by the owner before it in the chart
  openingStock,  // last year's closing stock
  customers,     // rate: weight among the customers
  suppliers,     // rate: weight among the suppliers
};

// Amounts are whole multiples of it, in paise.
enum Grain : long {
  paise = 1,
  rupees = 100,
  hundreds = 10'000,
  monthly = 120'000,  // twelve months of whole hundreds
  thousands = 100'000,
  lakhs = 10'000'000,
};

struct Account {
  std::string ledger;
  const AccountGroup* group;
  Role role;
  long rate;
  Grain grain;
};

struct Stock {
  std::string opening;
  const AccountGroup* openingGroup;
  std::string closing;
  const AccountGroup* closingGroup;
  long rate;
};

// What a client lives on.
struct Trade {
  long margin = 0;     // gross profit in per cent of the turnover
  long customers = 0;  // all that they owe and are owed at the year's end, per 100,000
  long suppliers = 0;
  long drawings = 0;  // of all owners together, per 100,000
  const AccountGroup* customerGroup = nullptr;
  const AccountGroup* supplierGroup = nullptr;
  std::vector<Stock> stocks;
};

// Null when there is none of that name.
const Trade* trade(const std::string& name);

// The accounts that "all" clients keep, or those of a trade or a status; null for any other name.
// The owners' own accounts are not among them.
const std::vector<Account>* accountsOf(const std::string& keptBy);

// Per cent that an asset of the group loses in a year.
long depreciationRate(const AccountGroup& group);

// The group that the row names; throws when there is none.
const AccountGroup* groupIn(const DataReader& row, std::string_view column);

using Accounts = std::map<std::string, std::vector<Account>>;
// By the name of whoever keeps them.
Accounts readAccounts(DataReader row);

}  // namespace quillet::suite::sample
