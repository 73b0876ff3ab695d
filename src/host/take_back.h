// Taking back the last act on a year's books, where the host keeps their history.
#pragma once

#include <optional>
#include <string>

#include "host/context.h"

namespace quillet {

// What was taken back, as a line for the form; nothing when nothing was, which a box has told. The
// open forms show what is stored by then.
std::optional<std::string> takeBackLast(Context& context, const YearOfClient& year);

}  // namespace quillet
