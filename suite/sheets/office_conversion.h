// Has LibreOffice turn a workbook of another kind into one that we read ourselves, in a process of
// its own and a private temporary folder. Formulas keep their values, macros do not run and links
// are not followed.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "suite/calc_spreadsheet.h"
#include "suite/sheets/content_kind.h"

namespace quillet::suite {

// Nothing when `goesOn` ended it. Throws SourceError.
std::optional<std::string> convertedWorkbook(std::string_view bytes, ContentKind kind,
                                             const CalcOptions& options,
                                             const std::function<bool(int percent)>& goesOn);

}  // namespace quillet::suite
