// Reads the tables of a web page: many programs write one and call it a workbook. All cells are
// texts, as in text files; nothing that the page refers to is fetched.
#pragma once

#include <string_view>

#include "ports/source_book.h"

namespace quillet {

// Texts outside the tables stand in rows of their own. Throws SourceError.
SourceBook webBook(std::string_view bytes, const SourceOptions& options, const GoesOn& goesOn);

}  // namespace quillet
