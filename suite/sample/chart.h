// The charts of accounts of the sample practice: which ledgers a business of each kind keeps, and
// how their figures follow from its turnover.
#pragma once

#include <span>

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
  const char* ledger;
  const char* group;
  Role role;
  long rate;
  Grain grain;
};

struct Stock {
  const char* opening;
  const char* openingGroup;
  const char* closing;
  const char* closingGroup;
  long rate;
};

enum class Trade { goods, manufacture, service };
enum class Ownership { proprietor, partnership, company };

struct Business {
  std::span<const Account> accounts;
  std::span<const Stock> stocks;
  long margin;     // gross profit in per cent of the turnover
  long customers;  // all that they owe and are owed at the year's end, per 100,000
  long suppliers;
  long drawings;  // of all owners together, per 100,000
  const char* customerGroup;
  const char* supplierGroup;
};

const Business& business(Trade trade);
// Accounts that every business keeps, and those that its ownership brings along. The owners' own
// accounts are not among them.
std::span<const Account> commonAccounts();
std::span<const Account> ownershipAccounts(Ownership ownership);

// Per cent that an asset of the group loses in a year.
int depreciationRate(const char* group);

}  // namespace quillet::suite::sample
