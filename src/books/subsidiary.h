// The subsidiary trial balance. The stored trial balance includes every adjustment, so it is the
// final one, and the original is what is left when the adjustments are taken out.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "books/journal.h"
#include "books/scratch_tables.h"
#include "books/trial_balance.h"
#include "data/money.h"

namespace quillet {

// Of one ledger and group.
struct SubsidiaryRow {
  std::string ledger;
  std::string group;
  Money amt;    // stored balance, debit positive
  Money amtDr;  // sum of the journal's debits, positive
  Money amtCr;  // sum of the journal's credits, negative
};

// A debit and a credit amount for each of original, subsidiary and final; 0 where there is no
// figure.
using SubsidiaryFigures = std::array<Money, 6>;
enum SubsidiaryColumn { originalDr, originalCr, subsidiaryDr, subsidiaryCr, finalDr, finalCr };

SubsidiaryFigures figuresOf(const SubsidiaryRow& row);

// Adds the figures, so that a total is the sum of what was printed above it.
void addTo(SubsidiaryFigures& total, const SubsidiaryFigures& figures);

// Reads the rows through the scratch tables, which stand until the object is closed or goes.
class SubsidiaryTrialBalance {
 public:
  SubsidiaryTrialBalance(ServiceObject& host, const ClientTable& books);

  // In the order of groups and ledgers.
  std::vector<SubsidiaryRow> read();
  void close();

 private:
  void collect(const Sql& sums, const Sql& table, const Sql& condition);
  void collectMerged();

  ServiceObject& host_;
  TrialBalance year_;
  Journal journal_;
  ScratchTables scratch_;
};

}  // namespace quillet
