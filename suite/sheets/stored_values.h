// Takes the formulas out of workbooks that are XML, so that the spreadsheet program which turns
// them into another kind finds the stored values and has nothing to work out.
#pragma once

#include <string>
#include <string_view>

#include "suite/sheets/content_kind.h"

namespace quillet::suite {

// The same workbook, an .ods or one XML text, without its formulas. One whose stored value is an
// error, or that has none, becomes a formula that is nothing but an error; an error of
// LibreOffice's own becomes a text. Throws SourceError.
std::string withStoredValues(std::string_view bytes, ContentKind kind);
// "Err:522"
bool isOwnError(std::string_view text);

}  // namespace quillet::suite
