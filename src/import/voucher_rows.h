// A sheet of adjustment entries as vouchers: date, ledger, debit, credit, narration, and one number
// for each voucher.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "books/voucher.h"
#include "import/proposals.h"

namespace quillet {

struct ImportedVoucherLine {
  int row = 0;
  std::string ledger;
  std::string group;
  VoucherLine line;  // a pair without a ledger's id for a new one
  LedgerState ledgerState = LedgerState::known;
  GroupState groupState = GroupState::missing;
  NamedId nearest;
};

struct ImportedVoucher {
  std::string number;  // as the source names it
  int row = 0;         // its first one
  std::string date;    // dd/mm/yyyy
  std::string narration;
  std::vector<ImportedVoucherLine> lines;
  bool taken = true;
  // Why it stays out, with the row; "" when it can be entered.
  std::string reason;
  VoucherTotals totals() const;
};

// The year's first and last day, dd/mm/yyyy.
struct YearDates {
  std::string first;
  std::string last;
};

// Choices speak of rows; a `taken` of false at any of a voucher's rows leaves the voucher out.
std::vector<ImportedVoucher> readVouchers(const SourceSheet& sheet, const Mapping& mapping,
                                          const KnownBooks& books, const YearDates& year,
                                          const RowChoices& choices);

}  // namespace quillet
