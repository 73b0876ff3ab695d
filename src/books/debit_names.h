// Ledgers that stand on the debit side although their group is under capital: what an owner takes
// out of the business.
#pragma once

#include <string_view>

namespace quillet {

// Whether the ledger's name, or its group's, says so by whole words: "Drawings A/c, Rao", not
// "Drawing Room".
bool isUsuallyDebit(std::string_view ledger, std::string_view group);

}  // namespace quillet
