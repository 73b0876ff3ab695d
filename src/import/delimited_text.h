// Reads text files of separated values, and ranges pasted from a spreadsheet. All their cells are
// texts: a ledger "007" stays "007", and "=1+1" is not reckoned.
#pragma once

#include <string_view>

#include "ports/source_book.h"

namespace quillet {

// What the options leave open is found out: the delimiter is the one that gives the most rows the
// same number of fields. Throws SourceError.
SourceBook delimitedBook(std::string_view bytes, const SourceOptions& options,
                         const GoesOn& goesOn);

// The text that a spreadsheet puts on the clipboard, in UTF-8: tabs between the cells.
SourceBook pastedBook(std::string_view text, const GoesOn& goesOn);

}  // namespace quillet
