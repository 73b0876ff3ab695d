// The report of an import of vouchers: what became of each row of the source.
#pragma once

#include <string>

#include "ports/ports.h"
#include "review/voucher_review.h"

namespace quillet {

// Writes and shows it.
void reportVouchers(ServiceObject& host, Reporter& reporter, const VoucherReview& review,
                    const std::string& source);
// "Vouchers entered: 10, ...".
std::string importedText(const VoucherReview& review);

}  // namespace quillet
