// What a year's vouchers have posted into its trial balance: the difference between its figures and
// the original ones.
#pragma once

#include "books/trial_balance.h"

namespace quillet {

// By the pairs under which the lines stand now: those of a group that was merged away stand under
// the one that it went into.
PairBalances postedAmounts(ServiceObject& host, const ClientTable& books);

}  // namespace quillet
