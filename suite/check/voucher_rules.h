// What holds for the vouchers of a client's journal: debit and credit agree, one date within the
// year and one narration, known ledgers and groups, lines numbered one by one, a number that no
// other client's voucher has.
//
// Whether a voucher was posted cannot be told from the books: the trial balance keeps no figures of
// before the adjustments, and a pair that an adjustment brings to zero has no line.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "suite/check/finding.h"
#include "suite/check/masters.h"

namespace quillet::suite::check {

struct VoucherRow {
  long rowId = 0;
  std::optional<long> vid, lineNumber, partid, allid;
  std::string date;  // "2008-06-02"
  std::optional<double> amount;
  std::string narration;
};

void examineVouchers(const Masters& masters, const Place& place, std::vector<VoucherRow> rows,
                     Examined& examined);

// The journals of one table by client. A number that several of them use stays with one and the
// others take the next free ones.
struct ClientVouchers {
  Place place;
  bool registered = false;  // what is not is left alone
  std::vector<VoucherRow> rows;
};
void examineVoucherNumbers(const std::vector<ClientVouchers>& journals, Examined& examined);

}  // namespace quillet::suite::check
