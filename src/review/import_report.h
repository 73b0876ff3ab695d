// The report of an import: what became of each row of the source.
#pragma once

#include <string>

#include "ports/ports.h"
#include "review/import_review.h"

namespace quillet {

// Writes and shows it.
void reportImport(ServiceObject& host, Reporter& reporter, const ImportReview& review,
                  const std::string& source);
// "10 lines are new, 2 changed, ...".
std::string importedText(const ImportReview& review);

}  // namespace quillet
