// The three lists of a year that the home form prints: by ledger, by group in total, by group in
// detail. They go out through the reporter and are seen on screen first.
#pragma once

#include <string>

#include "books/unposted_changes.h"
#include "host/context.h"

namespace quillet {

struct PrintedYear {
  ClientTable books;
  std::string clientName;
  std::string firstDate;  // as people read it
  std::string secondDate;
};

// `mode` is the home form's: "alphabetical", "group_summarized" or "group_detail". Tells when the
// year holds no rows.
void printYear(Context& context, const std::string& mode, const PrintedYear& year);

}  // namespace quillet
