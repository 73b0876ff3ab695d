// An adjustment voucher: lines on pairs of ledger and group, with a date and a narration.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "books/unposted_changes.h"
#include "data/money.h"

namespace quillet {

struct VoucherLine {
  LedgerGroup pair;  // 0 where a typed name stands for nothing
  bool debit = true;
  Money amount;  // 0 where none was typed

  // Debit positive.
  Money balance() const { return debit ? amount : -amount; }
  bool operator==(const VoucherLine&) const = default;
};

struct VoucherTotals {
  Money debit;
  Money credit;
};

// In characters: the column holds 65,535 bytes, and a character takes up to four.
inline constexpr int longestNarration = 16'000;

struct Voucher {
  std::string date;  // dd/mm/yyyy
  std::string narration;
  std::vector<VoucherLine> lines;
  bool shared = false;  // another client has lines of the same number

  bool operator==(const Voucher&) const = default;
};

VoucherTotals totalsOf(const std::vector<VoucherLine>& lines);

// What stands in the way of storing a voucher, and in which line.
struct VoucherFault {
  enum class Kind { noLedger, noGroup, noAmount, belowZero, totalsDiffer };
  Kind kind;
  int line = 0;
};
// The first one: names before amounts, and amounts before totals.
std::optional<VoucherFault> faultOf(const std::vector<VoucherLine>& lines);

}  // namespace quillet
