// The rows of a select as a database component of the platform hands them out: Fields, EOF, BOF,
// RecordCount, MoveFirst, MoveNext, Close. Using it after Close, or its fields at the end, is an
// error as it is there.
#pragma once

#include <string>
#include <vector>

#include "fakes/named_object.h"

namespace quillet::fakes {

using Row = std::vector<Variant>;

Pointer<IDispatch> recordset(std::vector<std::string> names, std::vector<Row> rows);

}  // namespace quillet::fakes
