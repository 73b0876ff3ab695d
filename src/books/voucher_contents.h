// What vouchers say, whatever their numbers: so one that stands in a journal already is found.
#pragma once

#include <compare>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "books/voucher.h"
#include "ports/ports.h"

namespace quillet {

struct VoucherContent {
  std::string date;  // dd/mm/yyyy
  std::string narration;
  std::vector<std::pair<LedgerGroup, Money>> lines;  // in order, debit positive

  auto operator<=>(const VoucherContent&) const = default;
};

// How many vouchers of each content there are.
using VoucherContents = std::map<VoucherContent, int>;

VoucherContent contentOf(const Voucher& voucher);
// Of the client's vouchers from one day to another (dd/mm/yyyy). Lines of merged groups stand under
// those that took their place.
VoucherContents readVoucherContents(ServiceObject& host, const ClientTable& books,
                                    const std::string& from, const std::string& to);

}  // namespace quillet
