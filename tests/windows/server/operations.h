// The operations of the suite's service object by name, and what a test asks of the books beside
// them.
#pragma once

#include "suite/standalone_environment.h"
#include "wire/values.h"

namespace quillet::server {

// Never throws: what goes wrong is answered.
//
//   value, VALUE                                        what the operation gives
//   rows, COLUMNS, NAME..., IS-NUMERIC..., CELL...      a recordset, whole
//   error, NUMBER, DESCRIPTION, SOURCE
wire::Values perform(suite::Practice& practice, const wire::Values& asked) noexcept;

}  // namespace quillet::server
