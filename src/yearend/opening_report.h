// Tells whether a year's opening agrees with the closing of the year before: in a message when it
// does, as a report of what differs otherwise.
#pragma once

#include <string>

#include "books/registry.h"
#include "host/context.h"

namespace quillet {

void reportOpening(Context& context, const std::string& client, const YearKeys& year);

}  // namespace quillet
