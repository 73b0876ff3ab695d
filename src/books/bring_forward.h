// From the closing balances of a year to the opening lines of the next one, each with its reason.
//
// Ledgers of the balance sheet keep their amounts, those of profit and loss begin at nothing. The
// closing stock is opening stock: in the group that the raw-material binding names for it, all else
// in one line. The profit that is transferred to the balance sheet goes to the capital, so that
// what is brought forward differs by as much as the closing balances did.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "books/closing_balances.h"
#include "books/profit_shares.h"

namespace quillet {

struct OpeningChoices {
  bool keepsZero = true;         // ledgers without an amount stand as lines
  LedgerGroup stock;             // of stock that is not bound; no ledger: the one of that name
  std::string stockLedger = {};  // its name, where it has no id yet
  std::vector<ProfitShare> shares = {};
  bool operator==(const OpeningChoices&) const = default;
};

struct OpeningLine {
  LedgerGroup pair;
  std::string ledger = {};  // its name, where it has no id yet
  Money last{};             // in the old year; debit positive
  Money opening{};
  long side = debit;    // on which it stands at nothing
  bool stands = false;  // a row is written for it, if only of nothing
  std::string reason = {};
};

struct Opening {
  enum class Choice { none, stockGroup, stockLedger, shares };
  std::vector<OpeningLine> lines;  // every one of the old year, then those that it does not have
  Money profit;                    // of the old year; a loss is negative
  Money unboundStock;
  Money lastDifference;  // debit positive
  Money difference;
  std::string question;  // what has to be chosen first, "" for nothing
  Choice asked = Choice::none;
};

Opening openingOf(const ClosingBalances& closing, const OpeningChoices& choices);

// What is chosen where nothing else is known: the one capital account that there is; the group and
// the ledger of the old year's opening stock. `groups` are those of the master.
OpeningChoices usualChoices(const ClosingBalances& closing, const std::map<long, int>& groups);

// The ledger of the group's only line; nothing when there are none or several.
std::optional<long> onlyLedgerIn(const ClosingBalances& closing, long group);

}  // namespace quillet
