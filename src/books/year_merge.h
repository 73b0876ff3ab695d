// The merge of trial balances: what several clients' lines and closing stocks come to together.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "books/unposted_changes.h"
#include "data/money.h"
#include "ports/ports.h"

namespace quillet {

// Balances, debit positive, summed for each pair of ledger and group.
class PairSums {
 public:
  struct Sum {
    LedgerGroup pair;
    Money balance;
  };

  void add(LedgerGroup pair, Money balance) { sums_[{pair.allId, pair.partId}] += balance; }
  // What does not net to zero, by group and ledger.
  std::vector<Sum> sums() const;

 private:
  std::map<std::pair<long, long>, Money> sums_;
};

class YearMerge {
 public:
  explicit YearMerge(ServiceObject& host) : host_(host) {}

  // Adds what a client has in that trial balance's table and its closing stock.
  void add(const ClientTable& source);
  // Writes the sums in place of what the client has there.
  void write(const ClientTable& target);

  // How many rows were written.
  long lines() const { return lines_; }
  long stockLines() const { return stockLines_; }

 private:
  ServiceObject& host_;
  PairSums balances_;
  PairSums stock_;
  long lines_ = 0;
  long stockLines_ = 0;
};

}  // namespace quillet
