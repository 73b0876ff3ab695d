// Reads workbooks in the open format of zip and XML (.xlsx, .xlsm).
#pragma once

#include <functional>
#include <string_view>

#include "ports/source_book.h"

namespace quillet::suite {

// Throws SourceError. The book is without sheets when `goesOn` ended the reading.
SourceBook workbookIn(std::string_view bytes, const GoesOn& goesOn);

}  // namespace quillet::suite
