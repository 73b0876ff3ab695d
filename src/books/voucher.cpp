#include "books/voucher.h"

namespace quillet {

VoucherTotals totalsOf(const std::vector<VoucherLine>& lines) {
  VoucherTotals totals;
  for (const VoucherLine& line : lines) (line.debit ? totals.debit : totals.credit) += line.amount;
  return totals;
}

std::optional<VoucherFault> faultOf(const std::vector<VoucherLine>& lines) {
  using Kind = VoucherFault::Kind;
  const int count = static_cast<int>(lines.size());
  for (int i = 0; i < count; ++i) {
    if (lines[i].pair.partId == 0) return VoucherFault{Kind::noLedger, i};
    if (lines[i].pair.allId == 0) return VoucherFault{Kind::noGroup, i};
  }
  for (int i = 0; i < count; ++i) {
    if (lines[i].amount < Money()) return VoucherFault{Kind::belowZero, i};
    if (lines[i].amount.isZero()) return VoucherFault{Kind::noAmount, i};
  }
  const VoucherTotals totals = totalsOf(lines);
  if (totals.debit != totals.credit) return VoucherFault{Kind::totalsDiffer};
  return std::nullopt;
}

}  // namespace quillet
