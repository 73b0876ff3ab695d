// Has LibreOffice turn a workbook of another kind into one that we read ourselves, in a process of
// its own and a private temporary folder. Macros do not run and links are not followed. Formulas
// keep their stored values.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ports/source_book.h"
#include "suite/calc_spreadsheet.h"
#include "suite/sheets/content_kind.h"

namespace quillet::suite {

struct ConvertedWorkbook {
  std::string bytes;
  // The same with the stored values of formulas, but 0 for a stored error; may be empty.
  std::string stored;
};

// Nothing when `goesOn` ended it. Throws SourceError.
std::optional<ConvertedWorkbook> convertedWorkbook(std::string_view bytes, ContentKind kind,
                                                   const CalcOptions& options,
                                                   const GoesOn& goesOn);

}  // namespace quillet::suite
