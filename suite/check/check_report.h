// The report on an examination of the books: by client and year, two sentences for each finding.
#pragma once

#include "suite/check/books_check.h"
#include "suite/document.h"

namespace quillet::suite::check {

Document reportOf(const Examination& examination, ServiceObject& host);

// "Nothing is wrong in the books of 12 clients and 30 years.", or how much is.
std::string summaryOf(const Examination& examination);
// What was mended and what was not.
std::string summaryOf(const Mending& mending);

}  // namespace quillet::suite::check
