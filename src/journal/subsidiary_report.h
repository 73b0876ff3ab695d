// The printout of the subsidiary trial balance: the ledgers under their groups, a total for each
// group and one for all.
#pragma once

#include <string>
#include <vector>

#include "books/subsidiary.h"
#include "ports/ports.h"

namespace quillet {

// Of at least one row.
void printSubsidiary(ServiceObject& host, Reporter& reporter, const std::string& heading,
                     const std::vector<SubsidiaryRow>& rows);

}  // namespace quillet
