// One client's rows in the closing-stock table of one year. The stock has no side: amounts are
// never negative.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "books/unposted_changes.h"
#include "data/money.h"
#include "data/name_list.h"
#include "ports/ports.h"

namespace quillet {

// The closing-stock table of a year, by the name of its trial-balance table.
std::string stockTable(const std::string& trialBalanceTable);
// One row of it; `client` is quoted.
Sql stockInsert(const Sql& table, const Sql& client, LedgerGroup pair, Money amount);

class ClosingStock {
 public:
  ClosingStock(ServiceObject& host, const ClientTable& books);

  // The rows of one pair, as one line with their sum.
  struct Line {
    LedgerGroup pair;
    std::string group;
    double amount;
  };
  std::vector<Line> lines() const;
  double total() const;

  // Each of them is one transaction: all of its statements count, or none does. The flush is the
  // caller's.
  //
  // Writes one row for the pair. What stood there is added to the amount, unless it is what is
  // altered; a line that was altered onto another pair goes.
  void save(LedgerGroup pair, Money amount, const std::optional<LedgerGroup>& altered);
  void remove(LedgerGroup pair);

 private:
  Sql rowsOf(LedgerGroup pair) const;
  void change(const std::vector<Sql>& statements);

  ServiceObject& host_;
  Sql table_;
  Sql client_;
};

// What a stock line can be entered with: the groups of closing stock, and every ledger.
NameList stockGroups(ServiceObject& host);
NameList stockLedgers(ServiceObject& host);

}  // namespace quillet
