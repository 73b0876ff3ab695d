// The walk over the per-year tables of every client and year, behind the masters' in-use tests and
// replacements.
#pragma once

#include <functional>
#include <string>

#include "host/context.h"

namespace quillet {

// Reads the names of the trial-balance tables from the registry and calls `visit` with each that is
// not empty, until one returns true; then, and only then, the walk does. The host's progress bar
// moves with it, under the text.
bool walkYearTables(Context& context, const std::string& text,
                    const std::function<bool(const std::string& table)>& visit);

}  // namespace quillet
