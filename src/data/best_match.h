// What was found for a name, where it is not read from a query by itself.
#pragma once

#include <vector>

#include "data/names.h"

namespace quillet {

// As of the rows of a query, in their order.
std::optional<NamedId> bestMatch(const std::vector<NamedId>& rows, std::string_view name);

}  // namespace quillet
